#include "DrawingTesting.h"

using namespace drawingtests;

TEST(CGContextBitmap, LiesOnTopOfWhatIsDrawn)
{
    CGContext context({ 3, 1 }, 1);
    fill(context, UIColor::redColor());
    auto& bitmap = context.bitmap();
    ASSERT_EQ(bitmap.width, 3);
    EXPECT_EQ(bitmap.at(1, 0), red);
    bitmap.row(0)[1] = blue;
    EXPECT_EQ(&context.bitmap(), &bitmap);
    EXPECT_EQ(pixelsOf(context), (Pixels { red, blue, red }));
}

TEST(CGContextBitmap, IsClearAtFirst)
{
    CGContext context({ 2, 2 }, 1);
    EXPECT_EQ(context.bitmap().at(1, 1), clear);
    EXPECT_TRUE(context.hasDrawn());
    EXPECT_EQ(pixelsOf(context), Pixels(4, clear));
}

TEST(CGContextBitmap, LiesBelowWhatIsDrawnThen)
{
    CGContext context({ 4, 1 }, 1);
    auto* row = context.bitmap().row(0);
    row[0] = red;
    row[1] = 0x80400000;
    row[2] = 0x01010101;
    CGContextClipToRect(context, { 0, 0, 2, 1 });
    fill(context, UIColor::colorWithRedGreenBlueAlpha(0, 0, 1, 0.5));
    const auto contents = context.finish();
    EXPECT_FALSE(contents->isOpaque());
    // 0x80/255 · 1/2 + 1/2 is 191.5 of 255, half up; 0x40 · 1/2 is 32; 255 · 1/2 is 127.5.
    EXPECT_EQ(pixelsOf(*contents), (Pixels { 0xFF800080, 0xC0200080, 0x01010101, clear }));
}

TEST(CGContextBitmap, MayBeTakenAgainAfterDrawing)
{
    CGContext context({ 2, 1 }, 1);
    context.bitmap().row(0)[0] = red;
    CGContextClipToRect(context, { 1, 0, 1, 1 });
    fill(context, UIColor::blueColor());
    auto& bitmap = context.bitmap();
    EXPECT_EQ(bitmap.at(0, 0), red);
    EXPECT_EQ(bitmap.at(1, 0), blue);
}

TEST(LayerContents, KnowWhetherTheyAreOpaque)
{
    CGContext covered({ 2, 1 }, 1);
    fill(covered, UIColor::redColor());
    EXPECT_TRUE(covered.finish()->isOpaque());

    CGContext veiled({ 2, 1 }, 1);
    fill(veiled, UIColor::colorWithWhiteAlpha(1, 0.99));
    EXPECT_FALSE(veiled.finish()->isOpaque());

    CGContext clipped({ 2, 1 }, 1);
    CGContextClipToRect(clipped, { 0, 0, 1, 1 });
    fill(clipped, UIColor::redColor());
    EXPECT_FALSE(clipped.finish()->isOpaque());

    CGContext band({ 2, 1 }, 1);
    CGContextDrawLinearGradient(band, plain(UIColor::redColor()), { 0, 0 }, { 1, 0 }, 0);
    EXPECT_FALSE(band.finish()->isOpaque());

    auto bitmap = std::make_shared<Bitmap>(Bitmap::cleared(2, 1));
    EXPECT_FALSE(contentsFromBitmap(bitmap)->isOpaque());
    std::fill_n(bitmap->pixels.get(), 2, red);
    EXPECT_TRUE(contentsFromBitmap(bitmap)->isOpaque());
}

TEST(LayerContents, OfABitmapAreReadInParts)
{
    auto bitmap = std::make_shared<Bitmap>(3, 3);
    for (std::uint32_t i = 0; i < 9; ++i)
        bitmap->pixels[i] = i;
    Pixels target(8, 99);
    contentsFromBitmap(bitmap)->read({ 1, 1, 2, 2 }, target.data() + 1, 4);
    EXPECT_EQ(target, (Pixels { 99, 4, 5, 99, 99, 7, 8, 99 }));
}
