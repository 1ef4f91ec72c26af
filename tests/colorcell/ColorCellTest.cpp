#include "ColorCellTest.h"

#include "platform/Journal.h"
#include "platform/NSMutableDictionary.h"

namespace vekora::tests {

using namespace platform;

ColorCellTest::ColorCellTest()
    : row(std::make_shared<PSSpecifier>("", nullptr, "", "", nullptr, PSCellType::StaticText))
    , window(std::make_shared<UIWindow>(CGSize { 320, 860 }))
    , _deviceBefore(Device::current())
    , _listener(Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Write)
            _events.push_back((entry.succeeded ? "write " : "failed write ") + entry.name);
        else if (entry.kind == JournalEntry::Kind::Notification)
            _events.push_back(
                "post " + entry.name + (entry.detail == "immediately" ? "" : " with [" + entry.detail + "]"));
    }))
{
    Device::current() = Device();
    Device::current().root = _root.path();
    std::filesystem::create_directories(_root.path() / "private/var/mobile/Library/Preferences");
    std::filesystem::create_directory_symlink("private/var", _root.path() / "var");
    window->makeKey();

    row->setPropertyForKey("buttonColor", "key");
    row->setPropertyForKey("net.morvane.vekora", "defaults");
    row->setPropertyForKey("net.morvane.vekora/preferences", "PostNotification");
    row->setPropertyForKey("#FF0000", "default");
    row->setPropertyForKey(0, "min");
    row->setPropertyForKey(255, "max");
}

ColorCellTest::~ColorCellTest()
{
    _cell = nullptr;
    window = nullptr;
    Journal::shared().stop(_listener);
    Device::current() = _deviceBefore;
}

std::filesystem::path ColorCellTest::hostPath(std::string_view devicePath) const
{
    return _root.path() / devicePath.substr(1);
}

void ColorCellTest::store(PropertyList entries)
{
    ASSERT_TRUE(NSMutableDictionary(std::move(entries)).writeToFileAtomically(preferences, true));
    _events.clear();
}

std::optional<PropertyList> ColorCellTest::stored() const
{
    const auto dictionary = NSMutableDictionary::dictionaryWithContentsOfFile(preferences);
    return dictionary ? std::optional(dictionary->entries()) : std::nullopt;
}

VKColorCell& ColorCellTest::makeCell()
{
    _cell = std::make_shared<VKColorCell>(0L, "cell", row);
    _cell->setFrame({ 0, 0, _cell->frame().width, 860 });
    window->addSubview(_cell);
    window->layoutIfNeeded();
    return *_cell;
}

std::vector<float> ColorCellTest::sliderValues()
{
    return { slider(0).value(), slider(1).value(), slider(2).value() };
}

std::vector<std::string> ColorCellTest::valueTexts()
{
    return { value(0).text(), value(1).text(), value(2).text() };
}

std::string ColorCellTest::sampleBackground()
{
    const auto& color = sample().layer().backgroundColor();
    return color ? hexDescription(*color) : "none";
}

bool ColorCellTest::sampleTextIsWhite()
{
    const auto& color = sample().textColor();
    EXPECT_TRUE(color == UIColor::whiteColor() || color == UIColor::blackColor());
    return color == UIColor::whiteColor();
}

void ColorCellTest::press(const UIView& view, CGPoint point)
{
    window->touchBegan(view.convertPointToView(point, nullptr));
}

void ColorCellTest::move(const UIView& view, CGPoint point)
{
    window->touchMoved(view.convertPointToView(point, nullptr));
    window->layoutIfNeeded();
}

void ColorCellTest::release(const UIView& view, CGPoint point)
{
    window->touchEnded(view.convertPointToView(point, nullptr));
    window->layoutIfNeeded();
}

void ColorCellTest::tap(const UIView& view)
{
    press(view, middle(view));
    release(view, middle(view));
}

CGPoint ColorCellTest::middle(const UIView& view)
{
    return { view.bounds().width / 2, view.bounds().height / 2 };
}

CGPoint ColorCellTest::thumbAt(UISlider& slider, float value)
{
    const auto range = slider.maximumValue() - slider.minimumValue();
    const auto travel = slider.bounds().width - UISlider::thumbSize;
    return { UISlider::thumbSize / 2 + (value - slider.minimumValue()) / range * travel,
        slider.bounds().height / 2 };
}

UIAlertView& ColorCellTest::alert()
{
    auto* const shown = UIAlertView::topmost();
    if (!shown)
        throw std::runtime_error("no alert is shown");
    return *shown;
}

void ColorCellTest::answer(std::string_view title, std::optional<std::string> text)
{
    if (text)
        alert().textFieldAtIndex(0)->setText(*text);
    window->layoutIfNeeded();
    const std::function<const UIView*(const UIView&)> find = [&](const UIView& view) -> const UIView* {
        if (const auto* button = dynamic_cast<const UIButton*>(&view);
            button && button->currentTitle() == title)
            return button;
        for (const auto& subview : view.subviews()) {
            if (const auto* found = find(*subview))
                return found;
        }
        return nullptr;
    };
    const auto* button = find(alert());
    if (!button)
        throw std::runtime_error("the alert has no such button");
    tap(*button);
}

std::vector<std::string> ColorCellTest::events()
{
    return std::exchange(_events, {});
}

}
