#include "DeviceFixture.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/PropertyListFormat.h"

#include <plist/plist.h>

using namespace platform;

namespace {

constexpr const char* path = "/var/mobile/Library/Preferences/test.plist";

class PropertyListFile : public DeviceTest {
protected:
    std::filesystem::path file() const { return preferences() / "test.plist"; }
    void store(const std::string& content) const { writeTestFile(file(), content); }
    /// As another writer's binary file; frees the list.
    void storeBinary(plist_t list) const
    {
        char* bytes = nullptr;
        std::uint32_t length = 0;
        plist_to_bin(list, &bytes, &length);
        store(std::string(bytes, length));
        plist_to_bin_free(bytes);
        plist_free(list);
    }
    static std::optional<NSMutableDictionary> load()
    {
        return NSMutableDictionary::dictionaryWithContentsOfFile(path);
    }
    static bool save(const PropertyList& list)
    {
        return NSMutableDictionary(list).writeToFileAtomically(path, true);
    }
};

TEST_F(PropertyListFile, ThatIsMissingOrNoFileIsNothing)
{
    EXPECT_FALSE(load());
    std::filesystem::create_directory(file());
    EXPECT_FALSE(load());
    std::filesystem::remove(file());
    std::filesystem::create_symlink("nowhere", file());
    EXPECT_FALSE(load());
    EXPECT_FALSE(NSMutableDictionary::dictionaryWithContentsOfFile("/no/such/folder/test.plist"));
    EXPECT_FALSE(NSMutableDictionary::dictionaryWithContentsOfFile(""));
    EXPECT_FALSE(NSMutableDictionary::dictionaryWithContentsOfFile("/"));
}

TEST_F(PropertyListFile, ThatNobodyWritesIntoDoesNotMakeAReaderWait)
{
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    EXPECT_FALSE(load());
}

TEST_F(PropertyListFile, ThatIsEmptyOrBlankIsAnEmptyDictionary)
{
    for (const char* content : { "", " \n" }) {
        store(content);
        const auto list = load();
        ASSERT_TRUE(list);
        EXPECT_TRUE(list->entries().empty());
    }
}

TEST_F(PropertyListFile, WithAnotherRootIsNothing)
{
    for (const char* root : { "<array/>", "<string>x</string>", "<integer>1</integer>" }) {
        store("<plist version=\"1.0\">" + std::string(root) + "</plist>");
        EXPECT_FALSE(load()) << root;
    }
}

TEST_F(PropertyListFile, CutAtAnyLengthIsNothing)
{
    ASSERT_TRUE(
        save({ { "a", 1 }, { "b", "text" }, { "c", NSDate(5) }, { "d", PropertyArray { 1.5, true } } }));
    const auto whole = readTestFile(file());
    for (std::size_t length = 1; length < whole.size() - 1; ++length) {
        store(whole.substr(0, length));
        EXPECT_FALSE(load()) << length;
    }
    // Without the last line's end nothing is missing.
    store(whole.substr(0, whole.size() - 1));
    EXPECT_TRUE(load());
}

TEST_F(PropertyListFile, GivesBackWhatWasSaved)
{
    const PropertyList list { { "on", true }, { "one", 1 }, { "real", 1.0 }, { "text", "\xE2\x9C\x93" },
        { "negative", -9 }, { "wide", std::numeric_limits<long long>::min() }, { "data", PropertyData { 0 } },
        { "inner", PropertyList { { "deep", PropertyArray { PropertyList {} } } } } };
    ASSERT_TRUE(save(list));
    const auto again = load();
    ASSERT_TRUE(again);
    EXPECT_EQ(again->entries(), list);
}

TEST_F(PropertyListFile, HoldsWholeSecondsWhileMemoryKeepsTheFraction)
{
    NSMutableDictionary list;
    list.setObjectForKey(NSDate(410641689.75), "until");
    ASSERT_TRUE(list.writeToFileAtomically(path, true));
    EXPECT_EQ(*list.objectForKey("until"), PropertyValue(NSDate(410641689.75)));
    EXPECT_EQ(*load()->objectForKey("until"), PropertyValue(NSDate(410641689)));
}

TEST_F(PropertyListFile, ThatIsBinaryIsReadWholeAndSavedAsXml)
{
    const plist_t root = plist_new_dict();
    plist_dict_set_item(root, "text", plist_new_string("value"));
    plist_dict_set_item(root, "on", plist_new_bool(1));
    plist_dict_set_item(root, "count", plist_new_uint(60));
    plist_dict_set_item(root, "until", plist_new_date(1000, 500000));
    storeBinary(root);

    auto list = load();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->entries(),
        (PropertyList { { "text", "value" }, { "on", true }, { "count", 60 }, { "until", NSDate(1000.5) } }));
    list->setObjectForKey("#FF0000", "buttonColor");
    ASSERT_TRUE(list->writeToFileAtomically(path, true));
    EXPECT_TRUE(readTestFile(file()).starts_with("<?xml "));
    EXPECT_EQ(load()->entries(),
        (PropertyList { { "buttonColor", "#FF0000" }, { "text", "value" }, { "on", true }, { "count", 60 },
            { "until", NSDate(1000) } }));
}

TEST_F(PropertyListFile, IsLeftAloneByAListItCannotHold)
{
    ASSERT_TRUE(save({ { "a", 1 } }));
    const auto before = readTestFile(file());
    EXPECT_FALSE(save({ { "a", "\x01" } }));
    EXPECT_FALSE(save({ { "a", NSDate(1e300) } }));
    EXPECT_EQ(readTestFile(file()), before);
}

TEST_F(PropertyListFile, ReportsEachWriteByItsPlaceOnTheDevice)
{
    constexpr const char* place = "/private/var/mobile/Library/Preferences/test.plist";
    EXPECT_TRUE(save({}));
    EXPECT_TRUE(NSMutableDictionary().writeToFileAtomically(place, true));
    EXPECT_FALSE(save({ { "a", "\x01" } }));
    EXPECT_FALSE(NSMutableDictionary().writeToFileAtomically("/var/missing/test.plist", true));
    ASSERT_EQ(journal.size(), 4U);
    for (const auto& entry : journal)
        EXPECT_EQ(entry.kind, JournalEntry::Kind::Write);
    EXPECT_EQ(journal[0].name, place);
    EXPECT_TRUE(journal[0].succeeded);
    EXPECT_EQ(journal[1].name, place);
    EXPECT_TRUE(journal[1].succeeded);
    EXPECT_EQ(journal[2].name, place);
    EXPECT_FALSE(journal[2].succeeded);
    EXPECT_EQ(journal[3].name, "/private/var/missing/test.plist");
    EXPECT_FALSE(journal[3].succeeded);
}

TEST_F(PropertyListFile, MayBeLarge)
{
    PropertyList list { { "text", std::string(20'000'000, 'x') }, { "data", PropertyData(15'000'000, 7) } };
    for (int index = 0; index < 100'000; ++index)
        list.emplace(
            "key " + std::to_string(index), PropertyArray { index, std::string(60, 'y'), NSDate(index) });
    ASSERT_TRUE(save(list));
    EXPECT_GT(std::filesystem::file_size(file()), 50'000'000U);
    const auto again = load();
    ASSERT_TRUE(again);
    EXPECT_EQ(again->entries(), list);
}

TEST_F(PropertyListFile, MayBeALargeBinaryOne)
{
    const plist_t root = plist_new_dict();
    plist_dict_set_item(root, "data", plist_new_data(std::string(50'000'000, 'd').data(), 50'000'000));
    const plist_t array = plist_new_array();
    for (std::uint64_t index = 0; index < 100'000; ++index)
        plist_array_append_item(array, plist_new_uint(index));
    plist_dict_set_item(root, "array", array);
    storeBinary(root);

    const auto list = load();
    ASSERT_TRUE(list);
    EXPECT_EQ(std::get<PropertyData>(list->objectForKey("data")->storage()), PropertyData(50'000'000, 'd'));
    ASSERT_EQ(list->objectForKey("array")->array()->size(), 100'000U);
    EXPECT_EQ(list->objectForKey("array")->array()->back(), PropertyValue(99'999));
}

TEST(NSMutableDictionary, StoresReplacesAndRemoves)
{
    NSMutableDictionary list;
    EXPECT_EQ(list.objectForKey("a"), nullptr);
    list.setObjectForKey(1, "a");
    list.setValueForKey("x", "b");
    EXPECT_EQ(*list.objectForKey("a"), PropertyValue(1));
    list.setObjectForKey(2, "a");
    EXPECT_EQ(*list.objectForKey("a"), PropertyValue(2));
    list.setValueForKey(std::nullopt, "b");
    list.removeObjectForKey("missing");
    EXPECT_EQ(list.entries(), (PropertyList { { "a", 2 } }));
    list.removeObjectForKey("a");
    EXPECT_TRUE(list.entries().empty());
}

}
