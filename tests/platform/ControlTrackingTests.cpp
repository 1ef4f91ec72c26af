#include "platform/UIControl.h"
#include "platform/UIEvent.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

#include <string>

using namespace platform;

namespace {

class Recorder : public NSObject {
public:
    void down() { log += "down "; }
    void dragInside() { log += "in "; }
    void dragOutside() { log += "out "; }
    void enter() { log += "enter "; }
    void exit() { log += "exit "; }
    void up(UIControl* sender, UIEvent* event)
    {
        log += "up ";
        lastSender = sender;
        lastLocation = event->touch().locationInView(sender);
    }
    void upOutside() { log += "up-outside "; }
    void cancel() { log += "cancel "; }

    std::string log;
    UIControl* lastSender = nullptr;
    CGPoint lastLocation;
};

const auto registration = registerClass<Recorder>("Recorder")
                              .method("down", &Recorder::down)
                              .method("dragInside", &Recorder::dragInside)
                              .method("dragOutside", &Recorder::dragOutside)
                              .method("enter", &Recorder::enter)
                              .method("exit", &Recorder::exit)
                              .method("up:event:", &Recorder::up)
                              .method("upOutside", &Recorder::upOutside)
                              .method("cancel", &Recorder::cancel);

class ControlTracking : public testing::Test {
protected:
    ControlTracking()
    {
        control->addTargetActionForControlEvents(&recorder, "down", UIControlEventTouchDown);
        control->addTargetActionForControlEvents(&recorder, "dragInside", UIControlEventTouchDragInside);
        control->addTargetActionForControlEvents(&recorder, "dragOutside", UIControlEventTouchDragOutside);
        control->addTargetActionForControlEvents(&recorder, "enter", UIControlEventTouchDragEnter);
        control->addTargetActionForControlEvents(&recorder, "exit", UIControlEventTouchDragExit);
        control->addTargetActionForControlEvents(&recorder, "up:event:", UIControlEventTouchUpInside);
        control->addTargetActionForControlEvents(&recorder, "upOutside", UIControlEventTouchUpOutside);
        control->addTargetActionForControlEvents(&recorder, "cancel", UIControlEventTouchCancel);
        window->addSubview(control);
    }

    Recorder recorder;
    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 400, 400 });
    Ref<UIControl> control = std::make_shared<UIControl>(CGRect { 100, 100, 100, 40 });
};

}

TEST_F(ControlTracking, SendsDownAndUpForATap)
{
    window->touchBegan({ 110, 110 });
    EXPECT_TRUE(control->isHighlighted());
    window->touchEnded({ 110, 110 });
    EXPECT_EQ(recorder.log, "down up ");
    EXPECT_EQ(recorder.lastSender, control.get());
    EXPECT_EQ(recorder.lastLocation, (CGPoint { 10, 10 }));
    EXPECT_FALSE(control->isTracking());
}

TEST_F(ControlTracking, BeginsWithinTheBoundsAloneHalfOpen)
{
    for (const CGPoint outside : { CGPoint { 99.99, 110 }, { 200, 110 }, { 150, 99.99 }, { 150, 140 } }) {
        window->touchBegan(outside);
        window->touchEnded(outside);
    }
    EXPECT_EQ(recorder.log, "");
    window->touchBegan({ 100, 100 });
    window->touchEnded({ 100, 100 });
    EXPECT_EQ(recorder.log, "down up ");
}

TEST_F(ControlTracking, CountsSeventyPointsBeyondTheBoundsAsInside)
{
    window->touchBegan({ 150, 120 });
    window->touchMoved({ 150, 30 }); // Exactly 70 above the top edge.
    window->touchMoved({ 150, 29.75 });
    window->touchMoved({ 269.75, 120 });
    window->touchMoved({ 270, 120 });
    window->touchEnded({ 270, 120 });
    EXPECT_EQ(recorder.log, "down in out exit in enter out exit up-outside ");
}

TEST_F(ControlTracking, DecidesTheReleaseByItsOwnPlace)
{
    window->touchBegan({ 150, 120 });
    window->touchMoved({ 150, 0 });
    window->touchEnded({ 150, 120 });
    EXPECT_EQ(recorder.log, "down out exit up ");
}

TEST_F(ControlTracking, SendsCancelAndNoUp)
{
    window->touchBegan({ 150, 120 });
    window->touchCancelled();
    window->touchEnded({ 150, 120 });
    EXPECT_EQ(recorder.log, "down cancel ");
}

TEST_F(ControlTracking, KeepsTheTouchFromWhatIsBehindADisabledControl)
{
    const auto behind = std::make_shared<UIControl>(CGRect { 0, 0, 400, 400 });
    behind->addTargetActionForControlEvents(&recorder, "upOutside", UIControlEventTouchUpInside);
    window->insertSubviewAtIndex(behind, 0);
    control->setEnabled(false);
    window->touchBegan({ 150, 120 });
    window->touchEnded({ 150, 120 });
    EXPECT_EQ(recorder.log, "");
}

TEST_F(ControlTracking, SendsOnceForSeveralBitsOfOneRegistration)
{
    const auto both = std::make_shared<UIControl>(CGRect { 0, 0, 50, 50 });
    both->addTargetActionForControlEvents(
        &recorder, "upOutside", UIControlEventTouchUpInside | UIControlEventTouchUpOutside);
    both->addTargetActionForControlEvents(&recorder, "upOutside", UIControlEventTouchUpInside);
    window->addSubview(both);
    window->touchBegan({ 10, 10 });
    window->touchEnded({ 10, 10 });
    window->touchBegan({ 10, 10 });
    window->touchEnded({ 300, 300 });
    EXPECT_EQ(recorder.log, "up-outside up-outside ");
}

TEST_F(ControlTracking, PassesOverATargetThatIsGoneAndASelectorThatIsUnknown)
{
    auto gone = std::make_unique<Recorder>();
    control->addTargetActionForControlEvents(gone.get(), "down", UIControlEventTouchDown);
    control->addTargetActionForControlEvents(&recorder, "noSuchThing", UIControlEventTouchDown);
    gone.reset();
    window->touchBegan({ 150, 120 });
    EXPECT_EQ(recorder.log, "down ");
}

TEST_F(ControlTracking, EndsTheOldTouchWhenAnotherBegins)
{
    window->touchBegan({ 150, 120 });
    window->touchBegan({ 10, 10 });
    EXPECT_EQ(recorder.log, "down up ");
}

TEST_F(ControlTracking, KeepsATouchAliveWhoseViewIsTakenAway)
{
    window->touchBegan({ 150, 120 });
    control->removeFromSuperview();
    control.reset();
    window->touchMoved({ 150, 125 });
    window->touchEnded({ 150, 125 });
    EXPECT_TRUE(recorder.log.starts_with("down "));
}

TEST_F(ControlTracking, BelongsToTheForemostViewThatTakesTouches)
{
    const auto cover = std::make_shared<UIView>(CGRect { 100, 100, 100, 40 });
    window->addSubview(cover);
    window->touchBegan({ 150, 120 });
    window->touchEnded({ 150, 120 });
    EXPECT_EQ(recorder.log, "");
    cover->setUserInteractionEnabled(false);
    window->touchBegan({ 150, 120 });
    window->touchEnded({ 150, 120 });
    EXPECT_EQ(recorder.log, "down up ");
}
