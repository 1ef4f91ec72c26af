#include "SheetFixture.h"

#include <QImage>

namespace {

class Sheets : public SheetFixture { };

TEST_F(Sheets, ShowEveryStateOfThePane)
{
    const auto run = render("sheet.html");
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, "26 pictures.\n");
    const auto document = sheet("sheet.html");
    std::set<std::string> states;
    for (const auto& entry : document.entries) {
        states.insert(entry.state);
        EXPECT_EQ(entry.phone, "320x480");
        const auto found = document.pictures.find(entry.id);
        ASSERT_NE(found, document.pictures.end());
        const auto image = QImage::fromData(QByteArray::fromBase64(found->second), "PNG");
        EXPECT_EQ(image.size(), QSize(entry.width, entry.height));
        EXPECT_EQ(entry.width, 320);
        EXPECT_GE(entry.height, 480);
    }
    EXPECT_EQ(states.size(), 9U);
    EXPECT_LE(document.pictures.size(), document.entries.size());
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
    std::set<std::string> titles;
    for (const auto& entry : sheet("sheet.html").entries)
        titles.insert(entry.title);
    EXPECT_TRUE(titles.contains("Long Page")) << run.output.toStdString();
}

TEST_F(Sheets, TellWhatChanged)
{
    render("old.html");
    auto old = sheet("old.html");
    // As if one page had looked different, one had not been there, and another had been.
    const auto other = old.entries.at(2).id;
    ASSERT_NE(old.entries.at(0).id, other);
    old.entries.at(0).id = other;
    old.entries.at(0).width = old.entries.at(2).width;
    old.entries.at(0).height = old.entries.at(2).height;
    old.entries.at(5).state = "Gone";
    write("old.html", old);
    const auto run = render("new.html", { "--against", path("old.html") });
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, "26 pictures: 24 same, 1 changed, 1 new, 1 gone.\n");
    EXPECT_TRUE(bytesOf("new.html").contains("24 same, 1 changed, 1 new, 1 gone"));
    EXPECT_TRUE(sheet("new.html").pictures.contains(other));
}

TEST_F(Sheets, ThatChangedNothingSaySo)
{
    render("old.html");
    EXPECT_EQ(render("new.html", { "--against", path("old.html") }).output,
        "26 pictures: 26 same, 0 changed, 0 new, 0 gone.\n");
}

TEST_F(Sheets, GoByPixelsAndNotByMarks)
{
    render("old.html");
    auto old = sheet("old.html");
    const auto id = old.entries.at(0).id;
    old.pictures["ab12"] = old.pictures.at(id);
    for (auto& entry : old.entries) {
        if (entry.id == id)
            entry.id = "ab12";
    }
    write("old.html", old);
    EXPECT_EQ(render("new.html", { "--against", path("old.html") }).output,
        "26 pictures: 26 same, 0 changed, 0 new, 0 gone.\n");
    EXPECT_FALSE(sheet("new.html").pictures.contains("ab12"));
}

TEST_F(Sheets, TakeThePlaceOfTheOneTheyAreComparedWith)
{
    render("sheet.html");
    const auto before = sheet("sheet.html");
    EXPECT_EQ(render("sheet.html", { "--against", path("sheet.html") }).output,
        "26 pictures: 26 same, 0 changed, 0 new, 0 gone.\n");
    EXPECT_EQ(sheet("sheet.html").pictures, before.pictures);
}

}
