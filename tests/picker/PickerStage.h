#pragma once

#include "PickerFixture.h"
#include "PickerModel.h"
#include "PickerScript.h"

namespace vekora::test {

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
            CGRect { scriptedPickerOrigin.x, scriptedPickerOrigin.y, size.width, size.height },
            UIColor::redColor(), [this](const UIColor& color) { _changed.push_back(color); },
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
        _picker->setFrame({ scriptedPickerOrigin.x, scriptedPickerOrigin.y, size.width, size.height });
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
        const auto& typed = typedTexts().at(event.typed);
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
    static CGPoint inPicker(CGPoint point)
    {
        return { point.x - scriptedPickerOrigin.x, point.y - scriptedPickerOrigin.y };
    }

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

}
