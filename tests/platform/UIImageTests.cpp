#include "platform/Bitmap.h"
#include "platform/Device.h"
#include "platform/UIImage.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace platform;

namespace {

class Images : public testing::Test {
protected:
    Images()
    {
        Device::current().root = folder.path().string();
        Device::current().scale = 2;
    }
    ~Images() override { Device::current() = {}; }

    void write(const char* name, int width, int height)
    {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(QColor(255, 0, 0, 128));
        ASSERT_TRUE(image.save(QString::fromStdString((folder.path() / name).string())));
    }

    TemporaryFolder folder;
};

}

TEST_F(Images, TakesTheFileForTheScreensScale)
{
    write("a.png", 16, 48);
    write("a@2x.png", 32, 96);
    const auto image = UIImage::imageNamed("/a.png");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize { 16, 48 }));
    EXPECT_EQ(image->scale(), 2);
    EXPECT_EQ(image->bitmap()->width, 32);
    EXPECT_EQ(image->bitmap()->at(0, 0), 0x80800000U);
    EXPECT_TRUE(UIImage::imageNamed("/a"));
}

TEST_F(Images, TakesAnotherScaleWhereItsOwnIsMissing)
{
    write("a.png", 16, 48);
    const auto image = UIImage::imageNamed("/a.png");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize { 16, 48 }));
    EXPECT_EQ(image->scale(), 1);
}

TEST_F(Images, FindsNothingWhereThereIsNoImage)
{
    EXPECT_FALSE(UIImage::imageNamed("/none.png"));
    EXPECT_FALSE(UIImage::imageNamed(""));
    writeTestFile(folder.path() / "text.png", "no picture");
    EXPECT_FALSE(UIImage::imageNamed("/text.png"));
}
