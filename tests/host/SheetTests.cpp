#include "Conversation.h"
#include "host/sheet/IndexedPng.h"
#include "host/sheet/SheetDocument.h"

#include <fstream>
#include <gtest/gtest.h>
#include <QImage>

using platform::Bitmap;

namespace {

class Sheets : public testing::Test {
protected:
    QString path(const char* name) const { return QString::fromStdString((_folder.path() / name).string()); }
    HostRun render(const char* name, const QStringList& more = {})
    {
        return runHost(QStringList { "sheet", path(name), "--phones", "320x480", "--scales", "1", "--locales",
                           "en_US,ar_EG" }
            + more);
    }
    QByteArray bytesOf(const char* name) const
    {
        std::ifstream file(path(name).toStdString(), std::ios::binary);
        return QByteArray::fromStdString({ std::istreambuf_iterator<char>(file), {} });
    }

    TemporaryFolder _folder;
};

Bitmap pictureWith(int colors)
{
    Bitmap picture(97, 31);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            picture.row(y)[x]
                = 0xFF000000U | static_cast<std::uint32_t>((y / 3 * 97 + x) % colors) * 0x01F3B7U % 0xFFFFFFU;
    }
    return picture;
}

TEST(IndexedPng, KeepsEveryPixel)
{
    for (const int colors : { 1, 2, 255, 256, 257, 900 }) {
        const auto picture = pictureWith(colors);
        const auto image
            = QImage::fromData(host::indexedPng(picture), "PNG").convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(image.size(), QSize(picture.width, picture.height)) << colors;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x)
                ASSERT_EQ(image.pixel(x, y), picture.at(x, y)) << colors << " colours, " << x << ", " << y;
        }
    }
}

TEST_F(Sheets, ShowEveryStateOfThePane)
{
    const auto run = render("sheet.html");
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, "26 pictures.\n");
    const auto sheet = host::SheetDocument::read(path("sheet.html").toStdString());
    std::set<std::string> states;
    for (const auto& entry : sheet.entries) {
        states.insert(entry.state);
        EXPECT_EQ(entry.phone, "320x480");
        const auto found = sheet.pictures.find(entry.id);
        ASSERT_NE(found, sheet.pictures.end());
        const auto image = QImage::fromData(QByteArray::fromBase64(found->second), "PNG");
        EXPECT_EQ(image.size(), QSize(entry.width, entry.height));
        EXPECT_EQ(entry.width, 320);
        EXPECT_GE(entry.height, 480);
    }
    EXPECT_EQ(states.size(), 9U);
    EXPECT_LE(sheet.pictures.size(), sheet.entries.size());
}

TEST_F(Sheets, AreTheSameEachTime)
{
    render("one.html");
    render("other.html");
    EXPECT_FALSE(bytesOf("one.html").isEmpty());
    EXPECT_EQ(bytesOf("one.html"), bytesOf("other.html"));
}

TEST_F(Sheets, ShowAnyBundle)
{
    const auto run = render("sheet.html", { "--bundle", TEST_BUNDLE });
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    const auto sheet = host::SheetDocument::read(path("sheet.html").toStdString());
    std::set<std::string> titles;
    for (const auto& entry : sheet.entries)
        titles.insert(entry.title);
    EXPECT_TRUE(titles.contains("Long Page")) << run.output.toStdString();
}

TEST_F(Sheets, TellWhatChanged)
{
    render("old.html");
    auto old = host::SheetDocument::read(path("old.html").toStdString());
    // As if one page had looked different, one had not been there, and another had been.
    const auto other = old.entries.at(2).id;
    ASSERT_NE(old.entries.at(0).id, other);
    old.entries.at(0).id = other;
    old.entries.at(0).width = old.entries.at(2).width;
    old.entries.at(0).height = old.entries.at(2).height;
    old.entries.at(5).state = "Gone";
    std::ofstream(path("old.html").toStdString()) << old.html().toStdString();
    const auto run = render("new.html", { "--against", path("old.html") });
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, "26 pictures: 24 same, 1 changed, 1 new, 1 gone.\n");
    EXPECT_TRUE(bytesOf("new.html").contains("24 same, 1 changed, 1 new, 1 gone"));
    const auto sheet = host::SheetDocument::read(path("new.html").toStdString());
    EXPECT_TRUE(sheet.pictures.contains(other));
}

TEST_F(Sheets, ThatChangedNothingSaySo)
{
    render("old.html");
    EXPECT_EQ(render("new.html", { "--against", path("old.html") }).output,
        "26 pictures: 26 same, 0 changed, 0 new, 0 gone.\n");
}

TEST_F(Sheets, RefuseWhatTheyCannotReadOrWrite)
{
    const auto expectRefusal = [](const HostRun& run) {
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(run.output.isEmpty());
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    };
    expectRefusal(render("no/such/folder.html"));
    expectRefusal(render("sheet.html", { "--against", path("none.html") }));
    std::ofstream(path("page.html").toStdString()) << "<html>";
    expectRefusal(render("sheet.html", { "--against", path("page.html") }));
    expectRefusal(render("sheet.html", { "--bundle", path("None.bundle") }));
    expectRefusal(runHost({ "sheet" }));
    expectRefusal(runHost({ "sheet", "a.html", "--phones", "320x480,large" }));
    EXPECT_FALSE(std::filesystem::exists(path("sheet.html").toStdString()));
}

}
