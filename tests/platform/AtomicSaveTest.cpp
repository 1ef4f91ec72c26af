#include "AtomicSaveTest.h"

#include "platform/NSMutableDictionary.h"
#include "platform/qt/PropertyListFormat.h"

#include <cerrno>
#include <cstring>
#include <ostream>

namespace platform::tests {

std::ostream& operator<<(std::ostream& stream, Before before)
{
    return stream << (before == Before::Nothing ? "nothing" : before == Before::File ? "a file" : "a link");
}

void AtomicSave::prepare(Before before)
{
    for (const auto& entry : std::filesystem::directory_iterator(preferences()))
        std::filesystem::remove(entry);
    if (before == Before::Nothing)
        return;
    const auto xml = xmlFromPropertyList(oldList);
    ASSERT_TRUE(xml);
    writeTestFile(before == Before::Link ? target() : file(), *xml);
    if (before == Before::Link)
        std::filesystem::create_symlink("target.plist", file());
}

bool AtomicSave::save(const PropertyList& list)
{
    return NSMutableDictionary(list).writeToFileAtomically(path, true);
}

std::optional<PropertyList> AtomicSave::load()
{
    const auto list = NSMutableDictionary::dictionaryWithContentsOfFile(path);
    return list ? std::optional(list->entries()) : std::nullopt;
}

std::set<std::string> AtomicSave::names() const
{
    std::set<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(preferences()))
        result.insert(entry.path().filename());
    return result;
}

mode_t AtomicSave::mode() const
{
    struct stat status { };
    ::lstat(file().c_str(), &status);
    return status.st_mode & 07777;
}

void AtomicSave::expectUntouched(Before before) const
{
    std::set<std::string> expected;
    if (before != Before::Nothing)
        expected.insert("test.plist");
    if (before == Before::Link)
        expected.insert("target.plist");
    EXPECT_EQ(names(), expected);
    EXPECT_EQ(load(), before == Before::Nothing ? std::nullopt : std::optional(oldList));
    EXPECT_EQ(std::filesystem::is_symlink(file()), before == Before::Link);
}

void AtomicSave::expectSaved(Before before) const
{
    const std::set<std::string> expected = before == Before::Link
        ? std::set<std::string> { "test.plist", "target.plist" }
        : std::set<std::string> { "test.plist" };
    EXPECT_EQ(names(), expected);
    EXPECT_EQ(load(), newList);
    EXPECT_FALSE(std::filesystem::is_symlink(file()));
}

void AtomicSave::failEachCallInTurn()
{
    for (const auto before : { Before::Nothing, Before::File, Before::Link }) {
        for (const int error : { EIO, ENOSPC, EACCES, EROFS }) {
            bool hasFailed = true;
            int failures = 0;
            for (int failing = 1; hasFailed; ++failing) {
                prepare(before);
                std::string failed;
                bool succeeded = false;
                {
                    int count = 0;
                    const CallHooks hooks([&](std::string_view call, int) {
                        if (++count != failing)
                            return 0;
                        failed = call;
                        return error;
                    });
                    succeeded = save(newList);
                    hasFailed = count >= failing;
                }
                SCOPED_TRACE(testing::Message() << before << ": call " << failing << ", " << failed
                                                << ", fails with " << std::strerror(error));
                failures += succeeded ? 0 : 1;
                if (succeeded)
                    expectSaved(before);
                else
                    expectUntouched(before);
                if (HasFailure())
                    return;
            }
            // Finding the folder alone takes a dozen calls.
            EXPECT_GT(failures, 20);
        }
    }
}

}
