#include "LintBundle.h"

#include "tests/host/Conversation.h"

#include <gtest/gtest.h>
#include <QRegularExpression>
#include <ranges>

using namespace platform;

// What is said of a row, and that nothing is said of the same row put right.

namespace {

struct Case {
    PropertyList row;
    QStringList reasons; ///< What the linter says, in order.
};

/// All on one page, each with a key of its own where it has any, so that none says anything of another.
void expectAll(const std::vector<Case>& cases)
{
    PropertyArray rows;
    for (auto row : std::views::transform(cases, &Case::row)) {
        if (const auto key = row.find("key"); key != row.end())
            key->second = *key->second.string() + std::to_string(rows.size());
        rows.emplace_back(std::move(row));
    }
    LintBundle bundle;
    bundle.setRows(std::move(rows));
    std::vector<QStringList> reasons(cases.size());
    for (const auto& line : bundle.findings()) {
        const auto number = line.section(' ', 2, 2).remove(':').toUInt();
        // One end of a sentence, and not two.
        static const QRegularExpression sentence("^Root\\.plist: row .*[^.?][.?]$");
        ASSERT_TRUE(sentence.match(line).hasMatch() && number >= 1 && number <= cases.size())
            << line.toStdString();
        reasons[number - 1] << line.section(": ", 2).chopped(line.endsWith('.') ? 1 : 0);
    }
    for (std::size_t index = 0; index < cases.size(); ++index)
        EXPECT_EQ(reasons[index].join('\n'), cases[index].reasons.join('\n')) << "case " << index;
}

PropertyList with(PropertyList row, std::initializer_list<std::pair<const char*, PropertyValue>> more)
{
    for (const auto& [key, value] : more)
        row.insert_or_assign(key, value);
    return row;
}

PropertyList without(PropertyList row, const char* key)
{
    row.erase(key);
    return row;
}

const PropertyList button { { "cell", "PSButtonCell" }, { "label", "Go" }, { "action", "go" } };
const PropertyList link { { "cell", "PSLinkCell" }, { "label", "More" }, { "detail", "SecondPage" } };
const PropertyList flag { { "cell", "PSSwitchCell" }, { "label", "Flag" }, { "key", "flag" },
    { "defaults", "org.example" }, { "default", false } };
const PropertyList slider { { "cell", "PSSliderCell" }, { "key", "volume" }, { "defaults", "org.example" },
    { "min", 0 }, { "max", 10 }, { "default", 5 } };
const PropertyList segments { { "cell", "PSSegmentCell" }, { "key", "side" }, { "defaults", "org.example" },
    { "validValues", PropertyArray { 1, 2 } }, { "validTitles", PropertyArray { "Left", "Right" } },
    { "default", 1 } };
const PropertyList choice = with(segments, { { "cell", "PSLinkListCell" }, { "label", "Choice" } });
const PropertyList field { { "cell", "PSEditTextCell" }, { "label", "Name" }, { "key", "name" },
    { "defaults", "org.example" } };

TEST(LintRow, SaysNothingOfWholeRows)
{
    expectAll({
        { button, {} },
        { link, {} },
        { flag, {} },
        { slider, {} },
        { segments, {} },
        { choice, {} },
        { field, {} },
        { { { "cell", "PSStaticTextCell" }, { "label", "Text" } }, {} },
        { { { "cell", "PSTitleValueCell" }, { "label", "Value" }, { "get", "readPreferenceValue:" } }, {} },
        { { { "cell", "PSStaticTextCell" }, { "cellClass", "LintCell" }, { "whatever", 1 } }, {} },
    });
}

TEST(LintRow, NamesTheRowByNumberLabelAndCell)
{
    LintBundle bundle;
    bundle.setRows({ without(button, "action"), without(with(slider, { { "id", "loud" } }), "max"),
        without(slider, "min"), PropertyList { { "label", "Bare" } }, "no row" });
    EXPECT_EQ(bundle.findings().join('\n'),
        "Root.plist: row 1 \"Go\" (PSButtonCell): has no \"action\": a tap does nothing.\n"
        "Root.plist: row 2 \"loud\" (PSSliderCell): has no \"max\": it runs from 0 to 1.\n"
        "Root.plist: row 2 \"loud\" (PSSliderCell): has the \"default\" 5, which lies outside 0 to 1.\n"
        "Root.plist: row 3 \"volume\" (PSSliderCell): has no \"min\": it runs from 0 to 10.\n"
        "Root.plist: row 3 \"volume\" (PSSliderCell): remark: stores under the key \"volume\" of row 2.\n"
        "Root.plist: row 4 \"Bare\": has no \"cell\"; it is shown as a row of text.\n"
        "Root.plist: row 5: is no dictionary and is left out.");
}

TEST(LintRow, KnowsTheCells)
{
    expectAll({
        { with(button, { { "cell", "PSButonCell" } }),
            { "there is no cell \"PSButonCell\"; it is shown as a row of text" } },
        { { { "cell", 3 }, { "label", "x" } }, { "\"cell\" is a number, not a text, and is not taken" } },
        { { { "cell", "PSSpinnerCell" } }, { "remark: a PSSpinnerCell is shown as a row of text here" } },
    });
}

TEST(LintRow, AsksForWhatACellNeeds)
{
    expectAll({
        { without(button, "action"), { "has no \"action\": a tap does nothing" } },
        { without(button, "label"), { "has no \"label\": the row is blank" } },
        { without(link, "detail"), { "has no \"detail\": a tap opens nothing" } },
        { without(flag, "key"), { "has no \"key\": nothing is stored" } },
        { with(without(flag, "key"), { { "get", "readPreferenceValue:" } }),
            { "has neither \"key\" nor \"set\": nothing is stored" } },
        { with(without(flag, "key"), { { "set", "setPreferenceValue:specifier:" } }),
            { "has neither \"key\" nor \"get\": no value is shown" } },
        { { { "cell", "PSTitleValueCell" }, { "label", "x" } },
            { "has neither \"key\" nor \"get\": no value is shown" } },
        { without(flag, "defaults"), { "has no \"defaults\", and LintPage does not store it either" } },
    });
}

TEST(LintRow, TakesWhatThePageGivesInCode)
{
    expectAll({
        { with(without(button, "action"), { { "id", "actionInCode" } }), {} },
        { with(without(link, "detail"), { { "id", "detailInCode" } }), {} },
        { with(without(without(choice, "validValues"), "validTitles"), { { "id", "valuesInCode" } }), {} },
    });
}

TEST(LintRow, LeavesStoringToAPageThatTakesCareOfIt)
{
    LintBundle bundle;
    bundle.setInfo("NSPrincipalClass", "StoringPage");
    bundle.setRow(without(flag, "defaults"));
    EXPECT_EQ(bundle.findings().join('\n'), QString());
}

TEST(LintRow, KnowsTheModulesClassesAndSelectors)
{
    expectAll({
        { with(link, { { "detail", "NoSuchPage" } }),
            { "names the detail class \"NoSuchPage\", which the module does not have" } },
        { with(link, { { "detail", "NoPage" } }), { "names the detail class \"NoPage\", which is no page" } },
        { with(field, { { "cellClass", "NoSuchCell" } }),
            { "names the cell class \"NoSuchCell\", which the module does not have" } },
        { with(field, { { "cellClass", "NoPage" } }),
            { "names the cell class \"NoPage\", which is no cell" } },
        { with(field, { { "cellClass", "FSSwitchPanel" } }), {} },
        { with(field, { { "headerCellClass", "Head" } }),
            { "names the header's cell class \"Head\", which the module does not have" } },
        { with(button, { { "action", "fly" } }),
            { "names the action \"fly\", which LintPage does not have" } },
        { with(button, { { "action", "second" } }),
            { "names the action \"second\", which LintPage does not have" } },
        { with(flag, { { "get", "flag" }, { "set", "setFlag:" } }),
            { "names the getter \"flag\", which LintPage does not have",
                "names the setter \"setFlag:\", which LintPage does not have" } },
        { with(choice, { { "valuesDataSource", "values" } }),
            { "names the source of values \"values\", which LintPage does not have" } },
    });
}

TEST(LintRow, CountsThePlatformsClassesAsThere)
{
    LintBundle bundle;
    bundle.setRow(with(link, { { "detail", "PSListController" } }));
    EXPECT_EQ(bundle.findings().join('\n'), "Lint: remark: the page PSListController has no rows.");
}

TEST(LintRow, OpensPagesAndChecksTheirRowsToo)
{
    LintBundle bundle;
    bundle.setRow(link);
    bundle.setRows({ with(button, { { "action", "second" } }), button }, "Second");
    EXPECT_EQ(bundle.findings().join('\n'),
        "Second.plist: row 2 \"Go\" (PSButtonCell): names the action \"go\", which SecondPage does not "
        "have.");
}

TEST(LintRow, ChecksRowsOfAPageThatNoRowOpens)
{
    LintBundle bundle;
    bundle.setRows(
        { with(button, { { "action", "second" } }), with(button, { { "action", "fly" } }) }, "Second");
    EXPECT_EQ(bundle.findings().join('\n'),
        "Second.plist: row 2 \"Go\" (PSButtonCell): names the action \"fly\", which no class of the module "
        "has.");
}

TEST(LintRow, ComparesValuesWithTitlesAndDefaults)
{
    expectAll({
        { without(segments, "validTitles"), {} },
        { without(choice, "validValues"),
            { "has \"validTitles\" without \"validValues\"", "has no \"validValues\"" } },
        { with(segments, { { "validTitles", PropertyArray { "Left" } } }),
            { "has 2 \"validValues\" but 1 \"validTitles\"" } },
        { with(choice, { { "shortTitles", PropertyArray { "L", "R", "X" } } }),
            { "has 2 \"validValues\" but 3 \"shortTitles\"" } },
        { with(choice, { { "shortTitles", PropertyArray { "L", 2 } } }),
            { "short title 2 is no text and is not taken" } },
        { with(choice, { { "validValues", PropertyArray {} }, { "validTitles", PropertyArray {} } }),
            { "\"validValues\" is empty" } },
        { with(without(without(choice, "validTitles"), "validValues"), { { "valuesDataSource", "go" } }),
            { "remark: \"valuesDataSource\" is not read here, and there are no \"validValues\"" } },
        { with(choice, { { "default", 3 } }),
            { "has the \"default\" 3, which is none of its \"validValues\"" } },
        { with(choice, { { "default", "1" } }),
            { "has the \"default\" \"1\", which is none of its \"validValues\"" } },
        { with(choice, { { "default", 1.0 } }), {} },
        { with(choice, { { "validValues", PropertyArray { 1, 1.0 } } }), { "value 2, 1, is value 1 again" } },
        { with(without(without(choice, "validTitles"), "validValues"), { { "detail", "SecondPage" } }), {} },
    });
}

TEST(LintRow, AsksASliderForItsRange)
{
    expectAll({
        { without(without(slider, "min"), "max"),
            { "has no \"min\" and no \"max\": it runs from 0 to 1",
                "has the \"default\" 5, which lies outside 0 to 1" } },
        { with(slider, { { "min", 10 } }), { "has a \"min\" of 10 that is not below its \"max\" of 10" } },
        { with(slider, { { "min", 11 } }), { "has a \"min\" of 11 that is not below its \"max\" of 10" } },
        { with(slider, { { "default", 10.5 } }), { "has the \"default\" 10.5, which lies outside 0 to 10" } },
        { with(slider, { { "min", "0" }, { "max", "10" } }), {} },
        { with(slider, { { "max", "ten" } }),
            { "\"max\" is the text \"ten\", which reads as 0",
                "has a \"min\" of 0 that is not below its \"max\" of 0" } },
        { with(slider, { { "default", "loud" } }), { "has a \"default\" that is no number" } },
        { with(slider, { { "isSegmented", true } }),
            { "is segmented, but has no \"segmentCount\" of 1 or more" } },
        { with(slider, { { "isSegmented", true }, { "segmentCount", 4 } }), {} },
    });
}

TEST(LintRow, TellsWrongKindsAndSlipsOfThePen)
{
    expectAll({
        { with(flag, { { "label", 7 } }), { "\"label\" is a number, not a text, and is not taken" } },
        { with(flag, { { "enabled", PropertyArray {} } }), { "\"enabled\" is a list, not a boolean" } },
        { with(flag, { { "enabled", "NO" } }), {} },
        { with(flag, { { "height", -1 } }), { "\"height\" is not above 0 and is not taken" } },
        { with(flag, { { "default", PropertyList {} } }),
            { "has a \"default\" that is neither on nor off" } },
        { with(choice, { { "validTitles", "Left" } }),
            { "\"validTitles\" is a text, not a list, and is not taken" } },
        { with(without(flag, "default"), { { "defualt", true } }),
            { "remark: nobody knows the key \"defualt\"; is \"default\" meant?" } },
        { with(without(flag, "default"), { { "Default", true } }),
            { "remark: nobody knows the key \"Default\"; is \"default\" meant?" } },
        { with(flag, { { "ours", true } }), {} },
        { with(field, { { "keyboard", "runes" } }), { "there is no keyboard \"runes\" (numbers, phone)" } },
        { with(field, { { "keyboard", "phone" } }),
            { "remark: \"keyboard\" is not read here; \"isNumeric\" asks for digits" } },
    });
}

TEST(LintRow, TellsOfNamesThatTwoRowsShare)
{
    LintBundle bundle;
    bundle.setRows(
        { with(flag, { { "id", "a" } }), with(flag, { { "id", "a" } }), flag, with(flag, { { "id", "b" } }),
            with(flag, { { "defaults", "org.other" }, { "id", "c" } }), button, button });
    EXPECT_EQ(bundle.findings().join('\n'),
        "Root.plist: row 2 \"Flag\" (PSSwitchCell): has the identifier \"a\" of row 1, which alone is found "
        "by it.\n"
        "Root.plist: row 3 \"Flag\" (PSSwitchCell): remark: stores under the key \"flag\" of row 1.\n"
        "Root.plist: row 4 \"Flag\" (PSSwitchCell): remark: stores under the key \"flag\" of row 1.");
}

TEST(LintRow, LooksForIconsAndMeasuresThem)
{
    LintBundle bundle;
    bundle.writeImage("small.png", 29, 29);
    bundle.writeImage("small@2x.png", 58, 58);
    bundle.writeImage("large.png", 45, 20);
    bundle.writeImage("large@2x.png", 90, 40);
    bundle.writeImage("only@3x.png", 87, 87);
    writeTestFile(bundle.path("broken.png"), "no picture");
    bundle.setRows({ with(flag, { { "icon", "small.png" }, { "id", "1" }, { "key", "k1" } }),
        with(flag, { { "icon", "small" }, { "id", "2" }, { "key", "k2" } }),
        with(flag, { { "icon", "large.png" }, { "id", "3" }, { "key", "k3" } }),
        with(flag, { { "icon", "large.png" }, { "height", 60 }, { "id", "4" }, { "key", "k4" } }),
        with(flag, { { "icon", "only.png" }, { "id", "5" }, { "key", "k5" } }),
        with(flag, { { "icon", "none.png" }, { "id", "6" }, { "key", "k6" } }),
        with(flag, { { "icon", "broken.png" }, { "id", "7" }, { "key", "k7" } }) });
    EXPECT_EQ(bundle.findings().join('\n'),
        "Root.plist: row 3 \"Flag\" (PSSwitchCell): its icon large.png is 45x20 pixels large, more than the "
        "44x44 that fit "
        "into its row of 44 points.\n"
        "Root.plist: row 3 \"Flag\" (PSSwitchCell): its icon large@2x.png is 90x40 pixels large, more than "
        "the 88x88 that "
        "fit into its row of 44 points.\n"
        "Root.plist: row 6 \"Flag\" (PSSwitchCell): its icon none.png is not there, nor any @2x or @3x of "
        "it.\n"
        "broken.png: cannot be decoded.");
}

}
