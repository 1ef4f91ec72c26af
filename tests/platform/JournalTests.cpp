#include "platform/Journal.h"

#include "platform/PSSpecifier.h"
#include "platform/UILabel.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

using Kind = JournalEntry::Kind;

class JournalOfAWindow : public testing::Test {
protected:
    JournalOfAWindow()
    {
        window->display();
        _listener = Journal::shared().listen([this](const JournalEntry& entry) { heard.push_back(entry); });
    }
    ~JournalOfAWindow() override { Journal::shared().stop(_listener); }

    std::vector<Kind> kinds() const
    {
        std::vector<Kind> result;
        for (const auto& entry : heard)
            result.push_back(entry.kind);
        return result;
    }

    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 100, 100 });
    std::vector<JournalEntry> heard;

private:
    int _listener;
};

Ref<UILabel> label(CGRect frame)
{
    auto result = std::make_shared<UILabel>(frame);
    result->setText("Text");
    return result;
}

class Target : public NSObject { };

}

TEST_F(JournalOfAWindow, EndsADisplayPassAfterItsPaints)
{
    const auto painted = label({ 0, 0, 10, 10 });
    window->addSubview(painted);
    window->display();
    EXPECT_EQ(kinds(), (std::vector { Kind::Paint, Kind::Display }));
    heard.clear();
    window->display();
    EXPECT_TRUE(heard.empty());
    painted->setFrame({ 5, 5, 10, 10 });
    window->display();
    EXPECT_EQ(kinds(), std::vector { Kind::Display });
}

TEST_F(JournalOfAWindow, EndsAPassThatPaintedOnlyWhatIsOutOfSight)
{
    window->addSubview(label({ 200, 0, 10, 10 }));
    window->display();
    EXPECT_EQ(kinds(), (std::vector { Kind::Paint, Kind::Display }));
}

TEST_F(JournalOfAWindow, TellsWhereATouchIs)
{
    window->touchBegan({ 10, 20.5 });
    window->touchMoved({ -30, 40 });
    window->touchEnded({ 50, 60 });
    ASSERT_EQ(kinds(), (std::vector { Kind::Touch, Kind::Touch, Kind::Touch }));
    EXPECT_EQ(heard[0].place, (CGPoint { 10, 20.5 }));
    EXPECT_EQ(heard[1].place, (CGPoint { -30, 40 }));
    EXPECT_EQ(heard[2].place, (CGPoint { 50, 60 }));
    EXPECT_EQ(heard[2].name, "ended");
    EXPECT_EQ(heard[2].detail, "UIWindow");
}

TEST_F(JournalOfAWindow, NamesWhatARowSendsAndToWhom)
{
    Target target;
    const auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Row", &target, "store:row:", "read:", nullptr, PSCellType::Button, nullptr);
    row->setButtonAction("act");
    row->performSetterWithValue(true);
    static_cast<void>(row->performGetter());
    row->performAction();
    ASSERT_EQ(kinds(), (std::vector { Kind::Action, Kind::Action }));
    EXPECT_EQ(heard[0].name, "store:row:");
    EXPECT_EQ(heard[0].detail, "Target");
    EXPECT_EQ(heard[1].name, "act");
}
