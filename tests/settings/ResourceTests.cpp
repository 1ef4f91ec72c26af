#include "SettingsTest.h"

#include "platform/UIImage.h"
#include "settings/VekoraListController.h"

#include <set>

namespace vekora {

using namespace platform;

namespace {

class Resource : public SettingsTest {
protected:
    Resource() { installation.installPane(host::InstallationSources::ofThisBuild()); }
    static PropertyList listAt(const char* path)
    {
        const auto list = NSMutableDictionary::dictionaryWithContentsOfFile(path);
        EXPECT_TRUE(list) << path;
        return list ? list->entries() : PropertyList {};
    }
    static PropertyArray rows()
    {
        return *listAt("/Library/PreferenceBundles/Vekora.bundle/Vekora.plist").at("items").array();
    }
    /// The one row whose property has this value.
    static PropertyList rowWith(const char* key, const PropertyValue& value)
    {
        std::vector<PropertyList> found;
        for (const auto& row : rows()) {
            const auto& properties = *row.dictionary();
            if (const auto at = properties.find(key); at != properties.end() && at->second == value)
                found.push_back(properties);
        }
        EXPECT_EQ(found.size(), 1U) << key;
        return found.empty() ? PropertyList {} : found.front();
    }
};

}

TEST_F(Resource, TheBundleNamesItsModuleAndItsFirstPage)
{
    const auto info = listAt("/Library/PreferenceBundles/Vekora.bundle/Info.plist");
    EXPECT_EQ(info.at("CFBundleExecutable"), PropertyValue("Vekora"));
    EXPECT_EQ(info.at("CFBundlePackageType"), PropertyValue("BNDL"));
    EXPECT_EQ(info.at("CFBundleInfoDictionaryVersion"), PropertyValue("6.0"));
    EXPECT_EQ(info.at("NSPrincipalClass"), PropertyValue("VekoraListController"));
    EXPECT_TRUE(info.contains("CFBundleIdentifier"));
    EXPECT_TRUE(std::filesystem::is_regular_file(
        installation.root() / "Library/PreferenceBundles/Vekora.bundle/Vekora"));
}

TEST_F(Resource, TheLoaderEntryLeadsToTheFirstPage)
{
    const auto entry = *listAt("/Library/PreferenceLoader/Preferences/Vekora.plist").at("entry").dictionary();
    EXPECT_EQ(entry,
        (PropertyList { { "bundle", "Vekora" }, { "cell", "PSLinkCell" },
            { "detail", "VekoraListController" }, { "icon", "icon.png" }, { "isController", true },
            { "label", "Vekora" } }));
}

TEST_F(Resource, ThePageIsOneSectionWithItsGroupFirst)
{
    const auto all = rows();
    for (std::size_t index = 0; index < all.size(); ++index)
        EXPECT_EQ(all[index].dictionary()->at("cell") == PropertyValue("PSGroupCell"), index == 0);
}

TEST_F(Resource, TheOnOffSettingIsOffAtFirst)
{
    const auto row = rowWith("key", "enabled");
    EXPECT_EQ(row.at("cell"), PropertyValue("PSSwitchCell"));
    EXPECT_EQ(row.at("default"), PropertyValue(false));
}

TEST_F(Resource, TheLengthIsChosenAmongWholeMinutesAndIsAnHourAtFirst)
{
    const auto row = rowWith("key", "disableForMinutes");
    EXPECT_EQ(row.at("cell"), PropertyValue("PSLinkListCell"));
    EXPECT_EQ(row.at("default"), PropertyValue(60));

    const auto& values = *row.at("validValues").array();
    const auto& titles = *row.at("validTitles").array();
    ASSERT_EQ(values.size(), titles.size());
    EXPECT_EQ(values.front(), PropertyValue(5));
    EXPECT_EQ(values.back(), PropertyValue(24 * 60));
    std::set<std::string> differentTitles;
    for (std::size_t index = 0; index < values.size(); ++index) {
        EXPECT_TRUE(std::holds_alternative<std::int64_t>(values[index].storage()));
        if (index > 0) {
            EXPECT_LT(values[index - 1].intValue(), values[index].intValue());
        }
        const auto minutes = values[index].intValue();
        const auto title = minutes == 60 ? "1 Hour"
            : minutes == 90              ? "1½ Hours"
            : minutes % 60 == 0          ? std::to_string(minutes / 60) + " Hours"
                                         : std::to_string(minutes) + " Minutes";
        EXPECT_EQ(titles[index], PropertyValue(title));
        differentTitles.insert(title);
    }
    EXPECT_EQ(differentTitles.size(), values.size());
}

TEST_F(Resource, TwoButtonsReachTheActions)
{
    for (const char* action : { "vekoraNow", "clearVekora" })
        EXPECT_EQ(rowWith("action", action).at("cell"), PropertyValue("PSButtonCell"));
}

TEST_F(Resource, TheIconOptionHasAKeyOfItsOwn)
{
    const auto key = rowWith("id", "VKEnableIcon").at("key");
    EXPECT_EQ(rowWith("key", key).at("id"), PropertyValue("VKEnableIcon"));
}

TEST_F(Resource, NoRowNamesASetterOfItsOwn)
{
    for (const auto& row : rows()) {
        EXPECT_FALSE(row.dictionary()->contains("set"));
        EXPECT_FALSE(row.dictionary()->contains("get"));
    }
}

TEST_F(Resource, TheMarkerIs16By48PointsAtEveryScale)
{
    for (const double scale : { 1, 2, 3 }) {
        Device::current().scale = scale;
        const auto image = UIImage::imageNamed("/Library/PreferenceBundles/Vekora.bundle/Selector.png");
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), (CGSize { 16, 48 }));
        EXPECT_EQ(image->scale(), scale);
    }
}

TEST_F(Resource, TheIconIs29PointsAtEveryScale)
{
    for (const double scale : { 1, 2, 3 }) {
        Device::current().scale = scale;
        const auto image = UIImage::imageNamed("/Library/PreferenceBundles/Vekora.bundle/icon.png");
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), (CGSize { 29, 29 }));
        EXPECT_EQ(image->scale(), scale);
    }
}

}
