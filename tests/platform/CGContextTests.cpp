#include "DrawingTesting.h"

using namespace drawingtests;

TEST(CurrentContext, IsNoneOutsideOfDrawingAndTheInnermostWithin)
{
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    CGContext outer({ 1, 1 }, 1);
    CGContext inner({ 1, 1 }, 1);
    {
        CurrentContext outside(outer);
        EXPECT_EQ(UIGraphicsGetCurrentContext(), &outer);
        {
            CurrentContext inside(inner);
            EXPECT_EQ(UIGraphicsGetCurrentContext(), &inner);
        }
        EXPECT_EQ(UIGraphicsGetCurrentContext(), &outer);
    }
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST(CGContext, HasWholePixelsToTheNearest)
{
    EXPECT_EQ(pixelLength(10, 3), 30);
    EXPECT_EQ(pixelLength(10.4, 1), 10);
    EXPECT_EQ(pixelLength(10.5, 1), 11);
    EXPECT_EQ(pixelLength(10.25, 2), 21);
    EXPECT_EQ(pixelLength(0, 3), 0);
    EXPECT_EQ(pixelLength(-5, 3), 0);
    EXPECT_EQ(pixelLength(notANumber, 3), 0);
    EXPECT_GT(pixelLength(infinity, 3), 1 << 20);
    EXPECT_GT(pixelLength(1e300, 3), 1 << 20);

    const CGContext context({ 10.25, 3 }, 2);
    EXPECT_EQ(context.width(), 21);
    EXPECT_EQ(context.height(), 6);
    EXPECT_EQ(context.scale(), 2);
}

TEST(CGContext, LeavesNothingWhenNothingIsDrawn)
{
    CGContext context({ 4, 4 }, 1);
    EXPECT_FALSE(context.hasDrawn());
    EXPECT_EQ(context.finish(), nullptr);
}

TEST(CGContext, CountsWhatIsDrawnOutOfSight)
{
    CGContext context({ 2, 1 }, 1);
    CGContextClipToRect(context, {});
    fill(context, UIColor::redColor());
    EXPECT_TRUE(context.hasDrawn());
    EXPECT_EQ(pixelsOf(context), (Pixels { clear, clear }));
}

TEST(CGContext, LeavesNothingOfNoSize)
{
    for (const auto size :
        { CGSize { 0, 4 }, { 4, 0 }, { -3, 4 }, { notANumber, 4 }, { infinity, 0 }, { 0.3, 4 } }) {
        CGContext context(size, 1);
        fill(context, UIColor::redColor());
        CGContextDrawLinearGradient(context, plain(UIColor::redColor()), { 0, 0 }, { 0, 4 }, 0);
        EXPECT_EQ(context.finish(), nullptr);
    }
}

TEST(CGContext, BearsHugeSizes)
{
    CGContext context({ 1e300, 1e300 }, 3);
    CGContextDrawLinearGradient(
        context, gradient({ UIColor::redColor(), UIColor::blueColor() }), { 0, 0 }, { 1e300, 0 }, 0);
    const auto contents = context.finish();
    std::uint32_t pixel = 0;
    contents->read({ contents->width() - 1, contents->height() - 1, 1, 1 }, &pixel, 1);
    EXPECT_EQ(pixel, blue);
    contents->read({ 0, 0, 1, 1 }, &pixel, 1);
    EXPECT_EQ(pixel, red);

    CGContext large({ 1e6, 1e6 }, 3);
    EXPECT_TRUE(large.bitmap().isEmpty()) << "more than memory holds";
}

TEST(CGContext, UndoesClipsOnlyByRestoring)
{
    CGContext context({ 4, 1 }, 1);
    CGContextSaveGState(context);
    CGContextClipToRect(context, { 0, 0, 3, 1 });
    CGContextSaveGState(context);
    CGContextClipToRect(context, { 1, 0, 3, 1 });
    CGContextClipToRect(context, { -10, -10, 100, 100 });
    fill(context, UIColor::redColor());
    CGContextRestoreGState(context);
    CGContextClipToRect(context, { 0, 0, 1, 1 });
    fill(context, UIColor::blueColor());
    CGContextRestoreGState(context);
    CGContextRestoreGState(context); // One too many.
    CGContextClipToRect(context, { 3, 0, 1, 1 });
    fill(context, UIColor::whiteColor());
    EXPECT_EQ(pixelsOf(context), (Pixels { blue, red, red, 0xFFFFFFFF }));
}

TEST(CGContext, ClipsToThePixelsWhoseCentresAreInside)
{
    struct {
        CGRect clip;
        Pixels pixels;
    } const cases[] {
        { { 0, 0, 4, 1 }, { red, red, red, red } },
        { { 0.5, 0, 2, 1 }, { red, red, clear, clear } },
        { { 0.51, 0, 2, 1 }, { clear, red, red, clear } },
        { { 1, 0.5, 1, 0.1 }, { clear, red, clear, clear } },
        { { 1, 0.51, 1, 1 }, { clear, clear, clear, clear } },
        { { 2, -1, 0, 5 }, { clear, clear, clear, clear } },
        { { 3, 0, -2, 1 }, { clear, clear, clear, clear } },
        { { 9, 0, 2, 1 }, { clear, clear, clear, clear } },
        { { -9, 0, 2, 1 }, { clear, clear, clear, clear } },
        { { notANumber, 0, 2, 1 }, { clear, clear, clear, clear } },
        { { 0, 0, notANumber, 1 }, { clear, clear, clear, clear } },
        { { 0, 0, infinity, infinity }, { red, red, red, red } },
        { { -1e300, -1e300, 1.5e300, 1.5e300 }, { red, red, red, red } },
    };
    for (const auto& [clip, pixels] : cases) {
        CGContext context({ 4, 1 }, 1);
        CGContextClipToRect(context, clip);
        fill(context, UIColor::redColor());
        EXPECT_EQ(pixelsOf(context), pixels)
            << clip.x << ", " << clip.y << ", " << clip.width << ", " << clip.height;
    }
}

TEST(CGGradient, SpacesItsColorsEvenly)
{
    CGContext context({ 8, 1 }, 1);
    const auto colors = gradient({ UIColor::redColor(), UIColor::blueColor(), UIColor::blueColor(),
        UIColor::redColor(), UIColor::redColor() });
    CGContextDrawLinearGradient(context, colors, { 0, 0 }, { 8, 0 }, 0);
    EXPECT_EQ(
        pixelsOf(context), (Pixels { 0xFFBF0040, 0xFF4000BF, blue, blue, 0xFF4000BF, 0xFFBF0040, red, red }));
}

TEST(CGGradient, TakesGreyColors)
{
    const auto colors = gradient({ UIColor::colorWithWhiteAlpha(0.25, 0.5), UIColor::clearColor() });
    ASSERT_EQ(colors.stops.size(), 2U);
    EXPECT_EQ(colors.stops[0], (std::array<CGFloat, 4> { 0.25, 0.25, 0.25, 0.5 }));
    EXPECT_EQ(colors.stops[1], (std::array<CGFloat, 4> { 0, 0, 0, 0 }));
}

TEST(CGGradient, DrawsNothingWithoutColors)
{
    CGContext context({ 2, 1 }, 1);
    CGContextDrawLinearGradient(context, gradient({}), { 0, 0 }, { 2, 0 }, bothEnds);
    EXPECT_EQ(pixelsOf(context), (Pixels { clear, clear }));
}

TEST(CGGradient, IsUniformWithOneColor)
{
    CGContext context({ 2, 1 }, 1);
    CGContextDrawLinearGradient(context, gradient({ UIColor::redColor() }), { 0, 0 }, { 2, 0 }, 0);
    EXPECT_EQ(pixelsOf(context), (Pixels { red, red }));
}

TEST(CGGradient, BringsItsStopsIntoRange)
{
    CGContext context({ 2, 1 }, 1);
    const CGGradient wild { { { 7, -1, notANumber, infinity }, { infinity, -infinity, -0.0, 2 } } };
    CGContextDrawLinearGradient(context, wild, { 0, 0 }, { 2, 0 }, 0);
    EXPECT_EQ(pixelsOf(context), (Pixels { red, red }));
}

TEST(CGContextDrawLinearGradient, PaintsOnlyTheBandUnlessAskedFor)
{
    struct {
        unsigned options;
        Pixels pixels;
    } const cases[] {
        { 0, { clear, clear, 0xFFBF0040, 0xFF4000BF, clear, clear } },
        { kCGGradientDrawsBeforeStartLocation, { red, red, 0xFFBF0040, 0xFF4000BF, clear, clear } },
        { kCGGradientDrawsAfterEndLocation, { clear, clear, 0xFFBF0040, 0xFF4000BF, blue, blue } },
        { bothEnds, { red, red, 0xFFBF0040, 0xFF4000BF, blue, blue } },
    };
    for (const auto& [options, pixels] : cases) {
        CGContext context({ 6, 1 }, 1);
        const auto colors = gradient({ UIColor::redColor(), UIColor::blueColor() });
        CGContextDrawLinearGradient(context, colors, { 2, 0 }, { 4, 0 }, options);
        EXPECT_EQ(pixelsOf(context), pixels) << options;
    }
}

TEST(CGContextDrawLinearGradient, PaintsPixelsAtTheVeryEnds)
{
    CGContext context({ 3, 1 }, 1);
    const auto colors = gradient({ UIColor::redColor(), UIColor::blueColor() });
    CGContextDrawLinearGradient(context, colors, { 0.5, 0 }, { 2.5, 0 }, 0);
    EXPECT_EQ(pixelsOf(context), (Pixels { red, 0xFF800080, blue }));
}

TEST(CGContextDrawLinearGradient, DrawsNothingBetweenEqualOrUndefinedPoints)
{
    const auto colors = gradient({ UIColor::redColor(), UIColor::blueColor() });
    const std::pair<CGPoint, CGPoint> cases[] { { { 1, 1 }, { 1, 1 } }, { { notANumber, 0 }, { 2, 0 } },
        { { 0, 0 }, { 2, notANumber } }, { { 0, 0 }, { infinity, 0 } }, { { -infinity, 0 }, { 2, 0 } } };
    for (const auto& [start, end] : cases) {
        CGContext context({ 2, 1 }, 1);
        CGContextDrawLinearGradient(context, colors, start, end, bothEnds);
        EXPECT_EQ(pixelsOf(context), (Pixels { clear, clear }));
    }
}

TEST(CGContextDrawLinearGradient, InterpolatesStraightColors)
{
    CGContext context({ 1, 1 }, 1);
    CGContextDrawLinearGradient(context,
        gradient({ UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 0),
            UIColor::colorWithRedGreenBlueAlpha(1, 1, 1, 1) }),
        { 0, 0 }, { 1, 0 }, 0);
    // Half white at half opacity, premultiplied: a quarter, and 63.75 rounded.
    EXPECT_EQ(pixelsOf(context), (Pixels { 0x80404040 }));
}

TEST(CGContextDrawLinearGradient, RoundsOnlyOnce)
{
    // Ten veils of a thousandth of white over black: each alone would round to nothing.
    CGContext context({ 1, 1 }, 1);
    fill(context, UIColor::blackColor());
    for (int i = 0; i < 10; ++i)
        fill(context, UIColor::colorWithWhiteAlpha(1, 0.001));
    // 255 · (1 - 0.999^10) = 2.54
    EXPECT_EQ(pixelsOf(context), (Pixels { 0xFF030303 }));
}
