// What a picture of each gradient view costs beside filling the same memory, the same gradients through
// QPainter and through Cairo, and the usual way of a colour dialog: a conversion from HSV and a call for each
// pixel. All in one run, taking turns, the shortest time of each.

#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueBrightnessView.h"
#include "gradients/VKHueSaturationView.h"
#include "gradients/VKHueSliderView.h"
#include "gradients/VKSaturationSliderView.h"

#include "platform/CGContextImpl.h"

#include <cairo.h>
#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

using namespace platform;
using namespace vekora;

namespace {

constexpr double hue = 0.41;
constexpr double saturation = 0.63;
constexpr double brightness = 0.79;

struct Stop {
    double red, green, blue, alpha;
};

enum class Run { LeftToRight, RightToLeft, TopToBottom };

// A gradient as the peers are given it.
struct Layer {
    std::vector<Stop> stops;
    Run run;
};

// The colour of a pixel in the per-pixel way, at 0..1 from the left and from the top.
using PixelColor = QColor (*)(double x, double y);

struct Case {
    const char* name;
    UIView* view;
    std::vector<Layer> layers;
    PixelColor pixelColor;
    bool isField;
};

struct Times {
    double memory = 1e9;
    double view = 1e9;
    double qpainter = 1e9;
    double cairo = 1e9;
    double pixels = 1e9;
};

// The shortest of a number of runs, in seconds.
double shortest(int runs, const std::function<void()>& work)
{
    using Clock = std::chrono::steady_clock;
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        const auto start = Clock::now();
        work();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

void paintView(UIView& view, double scale, std::vector<std::uint32_t>& pixels)
{
    CGContext context(view.bounds().size(), scale);
    {
        CurrentContext current(context);
        view.drawRect(view.bounds());
    }
    const auto contents = context.finish();
    contents->read({ 0, 0, contents->width(), contents->height() }, pixels.data(), contents->width());
}

void paintQt(const std::vector<Layer>& layers, QImage& image)
{
    QPainter painter(&image);
    for (const auto& [stops, run] : layers) {
        const QPointF left(0, 0);
        const QPointF right(image.width(), 0);
        QLinearGradient gradient(run == Run::RightToLeft ? right : left,
            run == Run::LeftToRight       ? right
                : run == Run::RightToLeft ? left
                                          : QPointF(0, image.height()));
        for (std::size_t i = 0; i < stops.size(); ++i)
            gradient.setColorAt(static_cast<double>(i) / static_cast<double>(stops.size() - 1),
                QColor::fromRgbF(static_cast<float>(stops[i].red), static_cast<float>(stops[i].green),
                    static_cast<float>(stops[i].blue), static_cast<float>(stops[i].alpha)));
        painter.fillRect(image.rect(), gradient);
    }
}

void paintCairo(const std::vector<Layer>& layers, cairo_surface_t* surface, double width, double height)
{
    auto* cairo = cairo_create(surface);
    for (const auto& [stops, run] : layers) {
        auto* pattern = run == Run::TopToBottom ? cairo_pattern_create_linear(0, 0, 0, height)
            : run == Run::LeftToRight           ? cairo_pattern_create_linear(0, 0, width, 0)
                                                : cairo_pattern_create_linear(width, 0, 0, 0);
        for (std::size_t i = 0; i < stops.size(); ++i)
            cairo_pattern_add_color_stop_rgba(pattern,
                static_cast<double>(i) / static_cast<double>(stops.size() - 1), stops[i].red, stops[i].green,
                stops[i].blue, stops[i].alpha);
        cairo_set_source(cairo, pattern);
        cairo_rectangle(cairo, 0, 0, width, height);
        cairo_fill(cairo);
        cairo_pattern_destroy(pattern);
    }
    cairo_destroy(cairo);
    cairo_surface_flush(surface);
}

void paintPixels(PixelColor color, QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, color((x + 0.5) / image.width(), (y + 0.5) / image.height()));
    }
}

Times measure(const Case& measured, int width, int height, double scale)
{
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<std::uint32_t> pixels(size);
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    QImage dialog(width, height, QImage::Format_RGB32);
    auto* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    Times times;
    const auto take = [](double& best, int runs, const std::function<void()>& work) {
        best = std::min(best, shortest(runs, work));
    };
    for (int round = 0; round < 8; ++round) {
        take(times.memory, 200, [&] {
            std::memset(pixels.data(), round, size * sizeof pixels[0]);
            asm volatile("" : : "r"(pixels.data()) : "memory");
        });
        take(times.view, 200, [&] { paintView(*measured.view, scale, pixels); });
        take(times.qpainter, 5, [&] { paintQt(measured.layers, image); });
        take(times.cairo, 5, [&] { paintCairo(measured.layers, surface, width, height); });
        if (round % 4 == 0)
            take(times.pixels, 1, [&] { paintPixels(measured.pixelColor, dialog); });
    }
    cairo_surface_destroy(surface);
    return times;
}

void print(const Case& measured, const Times& times, int width, int height)
{
    const auto toMemory = times.view / times.memory;
    const auto isEnough = toMemory <= (measured.isField ? 2.5 : 3)
        && (!measured.isField
            || (times.qpainter / times.view >= 4 && times.cairo / times.view >= 4
                && times.pixels / times.view >= 50));
    std::printf("%-28s %4d x %-4d %9.1f us %8.2f x %9.1f x %7.1f x %9.0f x  %s\n", measured.name, width,
        height, times.view * 1e6, toMemory, times.qpainter / times.view, times.cairo / times.view,
        times.pixels / times.view, isEnough ? "good" : "SLOW");
}

std::vector<Stop> sweep(bool falling)
{
    std::vector<Stop> stops { { 1, 0, 0, 1 }, { 1, 1, 0, 1 }, { 0, 1, 0, 1 }, { 0, 1, 1, 1 }, { 0, 0, 1, 1 },
        { 1, 0, 1, 1 }, { 1, 0, 0, 1 } };
    if (falling)
        std::reverse(stops.begin(), stops.end());
    return stops;
}

Stop hsb(double h, double s, double b)
{
    const auto rgba = UIColor::colorWithHueSaturationBrightnessAlpha(h, s, b, 1).cgColor().rgba();
    return { rgba[0], rgba[1], rgba[2], rgba[3] };
}

QColor hsv(double h, double s, double v)
{
    return QColor::fromHsvF(static_cast<float>(h), static_cast<float>(s), static_cast<float>(v));
}

}

int main()
{
    VKHueSaturationView hueSaturation;
    hueSaturation.setHueAndSaturationAndBrightness(hue, saturation, brightness);
    VKHueBrightnessView hueBrightness;
    hueBrightness.setHueAndSaturationAndBrightness(hue, saturation, brightness);
    VKBrightnessSaturationView brightnessSaturation;
    brightnessSaturation.setHue(hue);
    VKBrightnessSliderView brightnessSlider;
    brightnessSlider.setHueAndSaturation(hue, saturation);
    VKHueSliderView hueSlider;
    VKSaturationSliderView saturationSlider;
    saturationSlider.setHueAndBrightness(hue, brightness);

    const Layer shade { { { 0, 0, 0, 0 }, { 0, 0, 0, 1 } }, Run::TopToBottom };
    const auto uniform = [](Stop top, Stop bottom) { return Layer { { top, bottom }, Run::TopToBottom }; };
    const Case cases[] {
        { "VKHueSaturationView", &hueSaturation,
            { { sweep(true), Run::RightToLeft }, uniform({ 0, 0, 0, 0 }, { 1, 1, 1, 1 }),
                uniform({ 0, 0, 0, 1 - brightness }, { 0, 0, 0, 1 - brightness }) },
            [](double x, double y) { return hsv(x, 1 - y, brightness); }, true },
        { "VKHueBrightnessView", &hueBrightness,
            { { sweep(true), Run::RightToLeft }, shade,
                uniform({ 1, 1, 1, 1 - saturation }, { 0, 0, 0, 1 - saturation }) },
            [](double x, double y) { return hsv(x, saturation, 1 - y); }, true },
        { "VKBrightnessSaturationView", &brightnessSaturation,
            { { { hsb(hue, 1, 1), { 1, 1, 1, 1 } }, Run::RightToLeft }, shade },
            [](double x, double y) { return hsv(hue, x, 1 - y); }, true },
        { "VKBrightnessSliderView", &brightnessSlider,
            { { { hsb(hue, saturation, 1), { 0, 0, 0, 1 } }, Run::LeftToRight } },
            [](double x, double) { return hsv(hue, saturation, 1 - x); }, false },
        { "VKHueSliderView", &hueSlider, { { sweep(false), Run::LeftToRight } },
            [](double x, double) { return hsv(x, 1, 1); }, false },
        { "VKSaturationSliderView", &saturationSlider,
            { { { hsb(hue, 1, brightness), hsb(0, 0, brightness) }, Run::LeftToRight } },
            [](double x, double) { return hsv(hue, 1 - x, brightness); }, false },
    };

    std::printf(
        "A whole paint of a view, and how many times that is of a memset of the same bytes (fields at most\n"
        "2.5, bars at most 3) and goes into the peers' time (at least 4, 4 and 50 for the fields).\n\n");
    std::printf("%-28s %11s %12s %10s %11s %9s %11s\n", "", "pixels", "paint", "of memset", "QPainter",
        "Cairo", "per pixel");
    const struct {
        CGSize size;
        double scale;
    } fields[] { { { 300, 260 }, 1 }, { { 300, 260 }, 2 }, { { 355, 260 }, 3 } };
    for (const auto& measured : cases) {
        const auto run = [&](CGSize size, double scale) {
            measured.view->setFrame({ 0, 0, size.width, size.height });
            const auto width = pixelLength(size.width, scale);
            const auto height = pixelLength(size.height, scale);
            print(measured, measure(measured, width, height, scale), width, height);
        };
        if (!measured.isField)
            run({ 355, 40 }, 3);
        else
            for (const auto& [size, scale] : fields)
                run(size, scale);
    }
}
