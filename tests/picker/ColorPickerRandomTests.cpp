#include "PickerFixture.h"
#include "PickerModel.h"

#include <iostream>
#include <random>
#include <sstream>

// Fingers, dialogs and the owner in any order, against the model. A difference is reported with the shortest
// script that could be found to show it.
namespace vekora::test {

namespace {

enum class Deed { Touch, Move, Lift, Cancel, Show, Commit, Ask, Resize };

struct Event {
    Deed deed;
    CGPoint point; ///< In the window.
    UIColor color = UIColor::redColor();
    CGSize size;
    long tag = 0; ///< Of the dialog asked for.
    // The answer to a dialog that the event opens.
    std::size_t typed = 0;
    bool confirms = false;
};

using Script = std::vector<Event>;

struct TypedText {
    const char* text;
    float number;
};

constexpr TypedText typedTexts[] = {
    { "", 0 },
    { "0", 0 },
    { "1", 1 },
    { "33", 33 },
    { "50", 50 },
    { "99.5", 99.5f },
    { "100", 100 },
    { "359", 359 },
    { "360", 360 },
    { "720", 720 },
    { "-20", -20 },
    { "12.3", 12.3f },
    { "abc", 0 },
    { "1e99", HUGE_VALF },
    { "99999999999", 99999999999.0f },
};

constexpr CGPoint origin { 24, 16 };

class Scripts {
public:
    explicit Scripts(std::uint64_t seed)
        : _random(seed)
    {
    }

    Script next(std::size_t length)
    {
        Script script;
        for (std::size_t i = 0; i < length; ++i)
            script.push_back(nextEvent());
        return script;
    }

private:
    long below(long limit) { return static_cast<long>(_random() % static_cast<std::uint64_t>(limit)); }
    /// On the grid of eighths, in and around a picker, and often where something begins or ends.
    double coordinate(std::initializer_list<double> edges)
    {
        if (below(4) == 0)
            return *(edges.begin() + below(static_cast<long>(edges.size())))
                + (static_cast<double>(below(5)) - 2) / 8;
        return static_cast<double>(below(4400)) / 8 - 20;
    }
    CGPoint point()
    {
        if (below(2) == 0) // Where even the narrowest picker has its field.
            return { origin.x + 10 + static_cast<double>(below(1120)) / 8,
                origin.y + 44 + static_cast<double>(below(1200)) / 8 };
        return { origin.x + coordinate({ 10, 148, 160, 266, 310, 336 }),
            origin.y + coordinate({ 10, 30, 40, 300, 310, 330, 334, 374, 70, 444 }) };
    }
    UIColor color()
    {
        const auto share = [this] { return static_cast<double>(below(257)) / 256; };
        switch (below(4)) {
        case 0:
            return UIColor::colorWithWhiteAlpha(share(), share());
        case 1:
            return UIColor::colorWithHueSaturationBrightnessAlpha(share(), share(), share(), 1);
        default:
            return UIColor::colorWithRedGreenBlueAlpha(share(), share(), share(), share());
        }
    }
    Event nextEvent()
    {
        static constexpr std::pair<Deed, int> odds[]
            = { { Deed::Touch, 200 }, { Deed::Move, 560 }, { Deed::Lift, 180 }, { Deed::Cancel, 10 },
                  { Deed::Show, 20 }, { Deed::Commit, 10 }, { Deed::Ask, 10 }, { Deed::Resize, 10 } };
        auto drawn = below(1000);
        auto deed = Deed::Touch;
        for (const auto& [candidate, share] : odds) {
            deed = candidate;
            drawn -= share;
            if (drawn < 0)
                break;
        }
        return { .deed = deed,
            .point = point(),
            .color = color(),
            .size = { static_cast<double>(160L << below(3)), 240 + static_cast<double>(below(800)) / 4 },
            .tag = 3026 + below(3),
            .typed = static_cast<std::size_t>(below(std::size(typedTexts))),
            .confirms = below(3) != 0 };
    }

    std::mt19937_64 _random;
};

/// A picker in a window, and its model beside it.
template <typename Picker> class Stage {
    using Its = Kind<Picker>;

public:
    Stage()
        : _window({ 700, 560 })
    {
        constexpr CGSize size { 320, 380 };
        _window.makeKey();
        _picker = std::make_shared<Picker>(
            CGRect { origin.x, origin.y, size.width, size.height }, UIColor::redColor(),
            [this](const UIColor& color) { _changed.push_back(color); },
            [this](const UIColor& color) { _saved.push_back(color); });
        _window.addSubview(_picker);
        _window.layoutIfNeeded();
        _model.start(size, _picker->labelHeight, UIColor::redColor());
    }

    /// The first difference.
    std::string play(const Script& script)
    {
        for (std::size_t i = 0; i < script.size(); ++i) {
            if (const auto wrong = play(script[i]); !wrong.empty())
                return "after event " + std::to_string(i) + ": " + wrong;
        }
        return {};
    }

    std::size_t dialogs() const { return _dialogs; }
    std::size_t commits() const { return _commits; }

private:
    std::string play(const Event& event)
    {
        _changed.clear();
        _saved.clear();
        _model.changed.clear();
        _model.saved.clear();
        _opened = 0;
        perform(event);
        if (const auto wrong = answer(event); !wrong.empty())
            return wrong;
        _commits += _changed.size();
        if (_changed != _model.changed)
            return "told " + testing::PrintToString(_changed) + ", should be "
                + testing::PrintToString(_model.changed);
        if (_saved != _model.saved)
            return "saved " + testing::PrintToString(_saved) + ", should be "
                + testing::PrintToString(_model.saved);
        return difference(*_picker, _model);
    }

    void perform(const Event& event)
    {
        switch (event.deed) {
        case Deed::Touch:
            _window.touchBegan(event.point);
            liftInModel(_last);
            if (_opened)
                return cancel(); // The new finger is on the dialog that the old one has opened.
            _finger = viewUnder(event.point);
            _last = event.point;
            return;
        case Deed::Move:
            _window.touchMoved(event.point);
            if (_finger)
                _last = event.point;
            if (isEater(_finger) && isWithinReach(event.point))
                route(event.point);
            return;
        case Deed::Lift:
            _window.touchEnded(event.point);
            return liftInModel(event.point);
        case Deed::Cancel:
            return cancel();
        case Deed::Show:
            _picker->setColor(event.color);
            return _model.setColor(event.color);
        case Deed::Commit:
            _picker->_setColor(event.color);
            return _model.commit(event.color);
        case Deed::Ask:
            cancel();
            ask(event.tag);
            _opened = event.tag;
            return;
        case Deed::Resize:
            return resize(event.size);
        }
    }

    void cancel()
    {
        _window.touchCancelled();
        _finger = nullptr;
    }

    void ask(long tag)
    {
        if (tag == 3026)
            _picker->askUserForHue();
        else if (tag == 3027)
            _picker->askUserForBrightness();
        else
            _picker->askUserForSaturation();
    }

    void resize(CGSize size)
    {
        const auto isNew = _picker->frame().size() != size;
        _picker->setFrame({ origin.x, origin.y, size.width, size.height });
        _window.layoutIfNeeded();
        _window.layoutIfNeeded(); // What the first has changed is settled too.
        if (isNew)
            _model.layOut(size, _picker->labelHeight);
    }

    std::string answer(const Event& event)
    {
        auto* const alert = shownAlert(_window);
        if (!alert)
            return _opened ? "no dialog is shown" : "";
        if (!_opened)
            return "a dialog is shown";
        if (alert->tag() != _opened)
            return "the wrong dialog is shown: " + std::to_string(alert->tag());
        if (alert->message() != _model.message(_opened))
            return "the dialog says " + alert->message();
        ++_dialogs;
        const auto& typed = typedTexts[event.typed];
        alert->textFieldAtIndex(0)->setText(typed.text);
        tapAlertButton(_window, *alert, event.confirms ? "OK" : "Cancel");
        if (event.confirms)
            _model.confirm(_opened, typed.number);
        return shownAlert(_window) ? "the dialog stays" : "";
    }

    // The finger, as controls track it: a view is touched within its bounds, and then reaches 70 further.

    const UIView* viewUnder(CGPoint point) const
    {
        if (!contains(_picker->frame(), point))
            return _picker.get(); // Or the window: nothing that answers.
        const auto& views = _picker->subviews();
        for (const std::size_t place : { 12, 11, 10, 9, 8 }) {
            if (contains(views[place]->frame(), inPicker(point)))
                return views[place].get();
        }
        return _picker.get();
    }
    bool isEater(const UIView* view) const
    {
        return view == &Its::fieldEater(*_picker) || view == &Its::barEater(*_picker);
    }
    bool isWithinReach(CGPoint point) const
    {
        const auto frame = _finger->frame();
        return contains(
            { frame.x - 70, frame.y - 70, frame.width + 140, frame.height + 140 }, inPicker(point));
    }
    void liftInModel(CGPoint point)
    {
        const auto& views = _picker->subviews();
        if (isEater(_finger)) {
            route(point);
            _model.save();
        } else if (_finger && _finger != _picker.get() && isWithinReach(point)) {
            _opened = _finger == views[12].get() ? Its::captionTag
                : _finger == views[11].get()     ? Its::topLeftTag
                                                 : Its::topRightTag;
        }
        _finger = nullptr;
    }
    void route(CGPoint point)
    {
        _model.route(inPicker(point), Its::topLeft(*_picker).frame().y + _picker->labelHeight,
            Its::caption(*_picker).frame().y);
    }
    static bool contains(CGRect rect, CGPoint point)
    {
        return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y
            && point.y < rect.y + rect.height;
    }
    static CGPoint inPicker(CGPoint point) { return { point.x - origin.x, point.y - origin.y }; }

    UIWindow _window;
    Ref<Picker> _picker;
    PickerModel<Picker> _model;
    std::vector<UIColor> _changed;
    std::vector<UIColor> _saved;
    const UIView* _finger = nullptr;
    CGPoint _last;
    long _opened = 0;
    std::size_t _dialogs = 0;
    std::size_t _commits = 0;
};

std::string written(const Event& event)
{
    std::ostringstream out;
    const auto at = [&](const char* deed) { out << deed << " " << testing::PrintToString(event.point); };
    switch (event.deed) {
    case Deed::Touch:
        at("touch");
        break;
    case Deed::Move:
        at("move");
        break;
    case Deed::Lift:
        at("lift");
        break;
    case Deed::Cancel:
        out << "cancel";
        break;
    case Deed::Show:
        out << "show " << testing::PrintToString(event.color);
        break;
    case Deed::Commit:
        out << "commit " << testing::PrintToString(event.color);
        break;
    case Deed::Ask:
        out << "ask " << event.tag;
        break;
    case Deed::Resize:
        out << "resize to " << event.size.width << " x " << event.size.height;
        break;
    }
    out << "  (a dialog gets \"" << typedTexts[event.typed].text << "\", "
        << (event.confirms ? "OK" : "Cancel") << ")";
    return out.str();
}

/// Leaves out whatever the difference does not need: halves, quarters, and so on to single events.
template <typename Picker> Script shrunk(Script script)
{
    for (auto length = script.size() / 2; length > 0; length /= 2) {
        for (std::size_t start = 0; start < script.size();) {
            auto shorter = script;
            const auto first = shorter.begin() + static_cast<std::ptrdiff_t>(start);
            shorter.erase(
                first, first + static_cast<std::ptrdiff_t>(std::min(length, script.size() - start)));
            if (Stage<Picker>().play(shorter).empty())
                start += length;
            else
                script = std::move(shorter);
        }
    }
    return script;
}

}

template <typename Picker> class EveryColorPickerAtRandom : public testing::Test {
};

TYPED_TEST_SUITE(EveryColorPickerAtRandom, Kinds, KindNames);

TYPED_TEST(EveryColorPickerAtRandom, DoesAsItsModel)
{
    constexpr int scripts = 200;
    constexpr std::size_t length = 500;
    std::size_t dialogs = 0;
    std::size_t commits = 0;
    for (const std::uint64_t seed : { 20140105u, 7u }) {
        std::cout << "seed " << seed << ", " << scripts * length << " events\n";
        Scripts source(seed);
        for (int number = 0; number < scripts; ++number) {
            const auto script = source.next(length);
            Stage<TypeParam> stage;
            if (const auto wrong = stage.play(script); !wrong.empty()) {
                const auto shortest = shrunk<TypeParam>(script);
                std::string lines;
                for (const auto& event : shortest)
                    lines += "  " + written(event) + "\n";
                FAIL() << "seed " << seed << ", script " << number << ": " << wrong
                       << "\nshrunk: " << Stage<TypeParam>().play(shortest) << "\n"
                       << lines;
            }
            dialogs += stage.dialogs();
            commits += stage.commits();
        }
    }
    EXPECT_GT(dialogs, 1000u);
    EXPECT_GT(commits, 20000u);
}

}
