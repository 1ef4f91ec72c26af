#include "platform/PSTextFieldSpecifier.h"
#include "SettingsScreen.h"

using namespace platform;

namespace {

class LoadedPage : public PSListController {
public:
    using PSListController::PSListController;
    const Specifiers& load(std::string_view name = "Test")
    {
        _specifiers = loadSpecifiersFromPlistNameTarget(name, this);
        return *_specifiers;
    }
};

class UnregisteredPage final : public LoadedPage {
public:
    using LoadedPage::LoadedPage;
};

class DetailPage final : public PSListController {
public:
    using PSListController::PSListController;
};

const auto registration = registerTestPage<LoadedPage>("LoadedPage");
const auto detailRegistration = registerTestPage<DetailPage>("LoadedDetailPage");

class SpecifierLoading : public SettingsScreen {
protected:
    /// The rows of this resource.
    const PSListController::Specifiers& load(const std::string& items, const std::string& more = {})
    {
        writeResource(items, more);
        return page->load();
    }

    Ref<LoadedPage> page = std::make_shared<LoadedPage>(CGSize { 375, 600 });
};

}

TEST_F(SpecifierLoading, GivesNothingWithoutAResource)
{
    EXPECT_TRUE(page->load().empty());
    EXPECT_TRUE(page->load("../../../Test").empty());
    EXPECT_EQ(page->title(), "");
}

TEST_F(SpecifierLoading, GivesNothingToAPageOfNoBundle)
{
    writeResource(item("PSSwitchCell", "Row"));
    auto other = std::make_shared<UnregisteredPage>(CGSize { 375, 600 });
    EXPECT_TRUE(other->load().empty());
}

TEST_F(SpecifierLoading, MakesARowOfEachItemInOrder)
{
    const auto& rows = load(item("PSGroupCell", "Group") + item("PSSwitchCell", "Switch"));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0]->name(), "Group");
    EXPECT_EQ(rows[0]->cellType(), PSCellType::Group);
    EXPECT_EQ(rows[1]->name(), "Switch");
    EXPECT_EQ(rows[1]->target(), page.get());
}

TEST_F(SpecifierLoading, TakesTitleAndIdentifierFromTheRoot)
{
    load("", text("title", "The Title") + text("id", "TheID") + text("unknown", "key"));
    EXPECT_EQ(page->title(), "The Title");
    EXPECT_EQ(page->identifier(), "TheID");
}

TEST_F(SpecifierLoading, KnowsEveryKindByName)
{
    const std::pair<const char*, PSCellType> kinds[] = {
        { "PSGroupCell", PSCellType::Group },
        { "PSLinkCell", PSCellType::Link },
        { "PSLinkListCell", PSCellType::LinkList },
        { "PSListItemCell", PSCellType::ListItem },
        { "PSTitleValueCell", PSCellType::TitleValue },
        { "PSSliderCell", PSCellType::Slider },
        { "PSSwitchCell", PSCellType::Switch },
        { "PSStaticTextCell", PSCellType::StaticText },
        { "PSEditTextCell", PSCellType::EditText },
        { "PSSegmentCell", PSCellType::Segment },
        { "PSGiantIconCell", PSCellType::GiantIcon },
        { "PSGiantCell", PSCellType::Giant },
        { "PSSecureEditTextCell", PSCellType::SecureEditText },
        { "PSButtonCell", PSCellType::Button },
        { "PSEditTextViewCell", PSCellType::EditTextView },
        { "PSSpinnerCell", PSCellType::Spinner },
        { "PSUnheardOfCell", PSCellType::StaticText },
    };
    std::string items;
    for (const auto& [name, type] : kinds)
        items += item(name, name);
    const auto& rows = load(items);
    ASSERT_EQ(rows.size(), std::size(kinds));
    for (std::size_t index = 0; index < rows.size(); ++index)
        EXPECT_EQ(rows[index]->cellType(), kinds[index].second) << kinds[index].first;
}

TEST_F(SpecifierLoading, CopiesEveryKeyIntoTheProperties)
{
    const auto& rows = load(item("PSSwitchCell", "Label",
        text("key", "k") + text("own", "thing")
            + "<key>min</key><integer>3</integer><key>list</key><array/>"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0]->properties().size(), 6u);
    EXPECT_EQ(*rows[0]->propertyForKey("label"), PropertyValue("Label"));
    EXPECT_EQ(*rows[0]->propertyForKey("own"), PropertyValue("thing"));
    EXPECT_EQ(*rows[0]->propertyForKey("min"), PropertyValue(3));
}

TEST_F(SpecifierLoading, RoutesValueRowsThroughThePage)
{
    writeFile("/var/mobile/Library/Preferences/net.test.plist",
        "<plist version=\"1.0\"><dict><key>a</key><true/></dict></plist>");
    const auto& rows = load(item("PSSwitchCell", "A", text("key", "a") + text("defaults", "net.test"))
        + item("PSSwitchCell", "No key", text("defaults", "net.test"))
        + item("PSSwitchCell", "Unknown getter",
            text("key", "a") + text("defaults", "net.test") + text("get", "no:")));
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0]->performGetter(), PropertyValue(true));
    EXPECT_EQ(rows[1]->performGetter(), std::nullopt);
    EXPECT_EQ(rows[2]->performGetter(), std::nullopt);
}

TEST_F(SpecifierLoading, ReadsChoicesWithTheirTitles)
{
    const auto& rows = load(item("PSLinkListCell", "List",
        "<key>validValues</key><array><integer>1</integer><integer>2</integer><integer>3</integer></array>"
        "<key>validTitles</key><array><string>One</string><integer>22</integer></array>"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0]->titles(), (std::vector<std::string> { "One", "22", "3" }));
}

TEST_F(SpecifierLoading, FindsDetailPagesAndActions)
{
    const auto& rows = load(item("PSLinkCell", "A", text("detail", "LoadedDetailPage") + text("action", "go"))
        + item("PSLinkCell", "B", text("detail", "NoSuchPage")));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0]->detailControllerClass(), NSClassFromString("LoadedDetailPage"));
    EXPECT_EQ(rows[0]->buttonAction(), "go");
    EXPECT_EQ(rows[1]->detailControllerClass(), nullptr);
}

TEST_F(SpecifierLoading, GivesTextRowsTheirPlaceholder)
{
    const auto& rows = load(item("PSEditTextCell", "Text", text("placeholder", "Vekora")));
    ASSERT_EQ(rows.size(), 1u);
    const auto* row = dynamic_cast<PSTextFieldSpecifier*>(rows[0].get());
    ASSERT_TRUE(row);
    EXPECT_EQ(row->placeholder(), "Vekora");
}

TEST_F(SpecifierLoading, ReadsMalformedItemsWithoutHarm)
{
    std::string everyKeyWrong = "<dict>";
    for (const char* key : { "cell", "label", "key", "default", "defaults", "id", "get", "set", "action",
             "detail", "cellClass", "enabled", "icon", "height", "PostNotification", "validValues",
             "validTitles", "shortTitles", "min", "max", "isSegmented", "segmentCount", "showValue",
             "isNumeric", "placeholder", "footerText", "negate", "bundle" })
        everyKeyWrong += "<key>" + std::string(key) + "</key><dict/>";
    everyKeyWrong += "</dict>";
    const auto& rows = load("<string>text</string><integer>5</integer><array/>" + everyKeyWrong + "<dict/>"
            + item("PSSwitchCell", "Good"),
        "<key>title</key><integer>3</integer><key>id</key><array/>");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[2]->name(), "Good");
    EXPECT_EQ(page->title(), "");
    show(page);
    for (long row = 0; row < 3; ++row)
        tapRow(0, row);
}

TEST_F(SpecifierLoading, ReadsEveryKindWithEveryKeyWrong)
{
    std::string items;
    for (const char* kind :
        { "PSLinkCell", "PSLinkListCell", "PSListItemCell", "PSTitleValueCell", "PSSliderCell",
            "PSSwitchCell", "PSStaticTextCell", "PSEditTextCell", "PSSegmentCell", "PSGiantIconCell",
            "PSSecureEditTextCell", "PSButtonCell", "PSEditTextViewCell", "PSSpinnerCell", "PSGroupCell" }) {
        std::string more;
        for (const char* key : { "key", "default", "id", "get", "set", "action", "detail", "cellClass",
                 "icon", "height", "validValues", "validTitles", "shortTitles", "min", "max", "segmentCount",
                 "placeholder", "footerText" })
            more += "<key>" + std::string(key) + "</key><array><dict/></array>";
        items += item(kind, kind, more);
    }
    load(items);
    show(page);
    for (long row = 0; row < 14; ++row) {
        tapRow(0, row);
        // A list of choices needs no detail page named.
        EXPECT_EQ(navigation->popViewController(), row == 1);
    }
}

TEST_F(SpecifierLoading, ReadsRootsThatAreNone)
{
    for (const char* content : { "", "   ", "garbage", "<plist version=\"1.0\"><array/></plist>",
             "<plist version=\"1.0\"><dict><key>items</key><string>none</string></dict></plist>",
             "<plist version=\"1.0\"><dict><key>items</key></dict></plist>" }) {
        writeFile(testBundle + "/Test.plist", content);
        EXPECT_TRUE(page->load().empty()) << content;
    }
}

TEST_F(SpecifierLoading, TranslatesTexts)
{
    writeFile(testBundle + "/de.lproj/Test.strings",
        "<plist version=\"1.0\"><dict>" + text("Enabled", "Aktiviert") + text("T", "Titel")
            + text("One", "Eins") + text("Foot", "Fu\u00DFnote") + text("P", "Platzhalter")
            + "</dict></plist>");
    Device::current().locale = "de_AT";
    const auto& rows = load(item("PSSwitchCell", "Enabled") + item("PSSwitchCell", "Other")
            + item("PSGroupCell", "", text("footerText", "Foot"))
            + item("PSEditTextCell", "", text("placeholder", "P"))
            + item("PSLinkListCell", "",
                "<key>validValues</key><array><integer>1</integer></array><key>validTitles</key><array>"
                "<string>One</string></array>"),
        text("title", "T"));
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(rows[0]->name(), "Aktiviert");
    EXPECT_EQ(*rows[0]->propertyForKey("label"), PropertyValue("Enabled"));
    EXPECT_EQ(rows[1]->name(), "Other");
    EXPECT_EQ(*rows[2]->propertyForKey("footerText"), PropertyValue("Fu\u00DFnote"));
    EXPECT_EQ(dynamic_cast<PSTextFieldSpecifier&>(*rows[3]).placeholder(), "Platzhalter");
    EXPECT_EQ(rows[4]->titles().front(), "Eins");
    EXPECT_EQ(page->title(), "Titel");
}

TEST_F(SpecifierLoading, FallsBackToALanguageThatIsThere)
{
    const auto translation = [](const std::string& value) {
        return "<plist version=\"1.0\"><dict>" + text("A", value) + "</dict></plist>";
    };
    writeFile(testBundle + "/en.lproj/Test.strings", translation("English"));
    writeFile(testBundle + "/zh-Hant.lproj/Test.strings", translation("Chinese"));
    const std::pair<const char*, const char*> expected[] = { { "fr_FR", "English" },
        { "zh_Hant_TW", "Chinese" }, { "zh_Hans_CN", "English" }, { "", "English" } };
    for (const auto& [locale, name] : expected) {
        Device::current().locale = locale;
        EXPECT_EQ(load(item("PSSwitchCell", "A")).front()->name(), name) << locale;
    }
}

TEST_F(SpecifierLoading, FindsRowsWhileTheListIsStillBeingBuilt)
{
    EXPECT_EQ(page->specifierForID("wanted"), nullptr);
    load(item("PSSwitchCell", "A", text("id", "wanted") + text("key", "a"))
        + item("PSSwitchCell", "B", text("id", "wanted")) + item("PSSwitchCell", "C", text("key", "byKey")));
    ASSERT_TRUE(page->specifierForID("wanted"));
    EXPECT_EQ(page->specifierForID("wanted")->name(), "A");
    EXPECT_EQ(page->specifierForID("byKey")->name(), "C");
    EXPECT_EQ(page->specifierForID("none"), nullptr);
}
