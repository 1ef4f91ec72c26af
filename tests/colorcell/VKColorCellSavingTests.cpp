#include "ColorCellEditTest.h"

using namespace platform;

namespace vekora::tests {

TEST_F(ColorCellEdit, KeepsWhatOthersWroteMeanwhile)
{
    holdThumb(0);
    moveThumb(0, 0);
    store({ { "enabled", false }, { "new", "value" }, { "buttonColor", "#123456" } });
    releaseThumb(0);
    EXPECT_EQ(
        stored(), (PropertyList { { "enabled", false }, { "new", "value" }, { "buttonColor", "#008800" } }));
}

TEST_F(ColorCellEdit, WritesIntoAnEmptyFile)
{
    writeTestFile(hostPath(), "");
    holdThumb(0);
    releaseThumb(0);
    EXPECT_EQ(stored(), (PropertyList { { "buttonColor", "#FF8800" } }));
}

TEST_F(ColorCellEdit, MakesNoFile)
{
    std::filesystem::remove(hostPath());
    holdThumb(0);
    releaseThumb(0);
    EXPECT_FALSE(std::filesystem::exists(hostPath()));
    EXPECT_EQ(events(), onlyPosted);
}

TEST_F(ColorCellEdit, LeavesAFileAloneThatItCannotRead)
{
    for (const std::string content : { "<plist><dict><key>a</key>", "bplist00", "<plist><array/></plist>" }) {
        writeTestFile(hostPath(), content);
        holdThumb(0);
        releaseThumb(0);
        EXPECT_EQ(readTestFile(hostPath()), content);
        EXPECT_EQ(events(), onlyPosted);
    }
}

TEST_F(ColorCellEdit, WritesNothingWithoutADomain)
{
    row->removePropertyForKey("defaults");
    makeCell();
    const auto before = stored();
    holdThumb(1);
    moveThumb(1, 0);
    releaseThumb(1);
    EXPECT_EQ(hex().text().substr(3, 2), "00");
    EXPECT_EQ(events(), onlyPosted);
    EXPECT_EQ(stored(), before);
}

TEST_F(ColorCellEdit, WritesNothingWithoutAKey)
{
    row->removePropertyForKey("key");
    makeCell();
    const auto before = stored();
    holdThumb(0);
    releaseThumb(0);
    EXPECT_EQ(events(), onlyPosted);
    EXPECT_EQ(stored(), before);
}

TEST_F(ColorCellEdit, TellsNobodyWithoutANotification)
{
    row->removePropertyForKey("PostNotification");
    makeCell();
    holdThumb(0);
    releaseThumb(0);
    EXPECT_EQ(events(), std::vector { writtenAndPosted[0] });
}

TEST_F(ColorCellEdit, SavesWhiteWhenThereWasNoColor)
{
    row->removePropertyForKey("default");
    store({ { "enabled", true } });
    makeCell();
    picker().saveChangesBlock()(UIColor::redColor());
    EXPECT_EQ(stored()->at("buttonColor"), "#FFFFFF");
}

TEST_F(ColorCellEdit, ReadsOpacityAndPickerOnlyOnce)
{
    auto entries = *stored();
    entries.insert_or_assign("buttonAlphaLevel", 0);
    entries.insert_or_assign("colorPickerType", 2);
    store(entries);
    holdThumb(0);
    moveThumb(0, 0);
    releaseThumb(0);
    EXPECT_EQ(sampleBackground(), "#008800FF");
    EXPECT_TRUE(dynamic_cast<VKColorPickerView_H*>(&picker()));
    EXPECT_EQ(stored()->at("buttonAlphaLevel"), 0);
    EXPECT_EQ(stored()->at("colorPickerType"), 2);
}

}
