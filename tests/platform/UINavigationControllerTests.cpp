#include "platform/qt/TextEditor.h"
#include "platform/UIButton.h"
#include "platform/UILabel.h"
#include "SettingsScreen.h"

using namespace platform;

namespace {

class Page : public UIViewController {
public:
    explicit Page(std::string name, std::string* log = nullptr)
        : name(std::move(name))
        , log(log)
    {
        setTitle(this->name);
    }
    ~Page() override { note("gone"); }
    void loadView() override
    {
        UIViewController::loadView();
        note("load");
    }
    void viewWillAppear(bool animated) override { note(animated ? "appear" : "appear at once"); }
    void viewWillDisappear(bool) override { note("disappear"); }
    void note(const std::string& what)
    {
        if (log)
            *log += name + " " + what + "; ";
    }

    std::string name;
    std::string* log;
};

class NavigationTest : public SettingsScreen {
protected:
    /// The label of the bar that shows the title.
    UILabel* titleLabel()
    {
        for (const auto& view : navigation->backButton().superview()->subviews()) {
            if (auto* label = dynamic_cast<UILabel*>(view.get()))
                return label;
        }
        return nullptr;
    }
    CGRect backFrame() { return navigation->backButton().frame(); }
    Ref<Page> page(const std::string& name) { return std::make_shared<Page>(name, &log); }

    std::string log;
};

}

TEST_F(NavigationTest, ShowsThePageBelowTheBar)
{
    auto first = show(page("First"));
    EXPECT_EQ(navigation->contentSize(), (CGSize { 375, 667 - 64 }));
    EXPECT_EQ(first->view().convertPointToView({ 0, 0 }, nullptr), (CGPoint { 0, 64 }));
    EXPECT_EQ(first->view().frame().size(), navigation->contentSize());
    EXPECT_EQ(first->navigationController(), navigation.get());
    EXPECT_EQ(titleLabel()->text(), "First");
    EXPECT_EQ(titleLabel()->font().weight, UIFontWeight::Semibold);
    EXPECT_NEAR(titleLabel()->frame().midX(), 187.5, 0.5);
    EXPECT_TRUE(navigation->backButton().isHidden());
}

TEST_F(NavigationTest, TellsPagesInOrder)
{
    show(page("A"));
    EXPECT_EQ(log, "A load; A appear at once; ");
    log.clear();
    navigation->pushViewController(page("B"));
    EXPECT_EQ(log, "A disappear; B load; B appear; ");
    log.clear();
    EXPECT_TRUE(navigation->popViewController());
    EXPECT_EQ(log, "B disappear; A appear; ");
    log.clear();
    window->display();
    EXPECT_EQ(log, "B gone; ");
    EXPECT_FALSE(navigation->popViewController());
    EXPECT_EQ(log, "B gone; ");
}

TEST_F(NavigationTest, GoesBackByTheButtonInTheBar)
{
    auto first = show(page("Settings"));
    navigation->pushViewController(page("Sound"));
    window->display();
    ASSERT_FALSE(navigation->backButton().isHidden());
    EXPECT_EQ(navigation->backButton().currentTitle(), "\u2039 Settings");
    EXPECT_EQ(first->view().window(), nullptr);
    tap(navigation->backButton());
    EXPECT_EQ(navigation->topViewController(), first.get());
    EXPECT_NE(first->view().window(), nullptr);
    EXPECT_TRUE(navigation->backButton().isHidden());
}

TEST_F(NavigationTest, NamesThePageBeforeOnlyWhereThereIsRoom)
{
    show(page("A page with quite a long title"));
    navigation->pushViewController(page("Short"));
    window->display();
    EXPECT_EQ(navigation->backButton().currentTitle(), "\u2039 Back");
}

TEST_F(NavigationTest, NeverWritesTheTitleOverTheBackButton)
{
    for (const char* title :
        { "Mid", "A title of some length", "A title that has no room in any bar at all" }) {
        show(page("Settings"));
        navigation->pushViewController(page(title));
        window->display();
        EXPECT_LE(backFrame().maxX(), titleLabel()->frame().minX()) << title;
        EXPECT_LE(titleLabel()->frame().maxX(), 375 - 8) << title;
        EXPECT_GT(titleLabel()->frame().width, 30) << title;
    }
}

TEST_F(NavigationTest, PutsTheBackButtonOnTheRightWhereReadingBeginsThere)
{
    Device::current().rightToLeft = true;
    show(page("Settings"));
    navigation->pushViewController(page("A title of some length"));
    window->display();
    EXPECT_EQ(backFrame().maxX(), 375);
    EXPECT_LE(titleLabel()->frame().maxX(), backFrame().minX());
    EXPECT_NE(navigation->backButton().currentTitle(), "\u2039 Settings");
}

TEST_F(NavigationTest, FollowsTitlesThatChange)
{
    auto first = show(page("Before"));
    first->setTitle("After");
    EXPECT_EQ(titleLabel()->text(), "After");
    navigation->pushViewController(page("Top"));
    first->setTitle("Later");
    EXPECT_EQ(navigation->backButton().currentTitle(), "\u2039 Later");
    EXPECT_EQ(titleLabel()->text(), "Top");
}

TEST_F(NavigationTest, ResizesItsPages)
{
    auto first = show(page("A"));
    navigation->setSize({ 667, 375 });
    window->display();
    EXPECT_EQ(first->view().frame().size(), (CGSize { 667, 375 - 64 }));
    EXPECT_NEAR(titleLabel()->frame().midX(), 667 / 2.0, 0.5);
}

TEST_F(NavigationTest, DropsEveryPageForANewRoot)
{
    show(page("A"));
    navigation->pushViewController(page("B"));
    navigation->setRoot(page("C"));
    window->display();
    EXPECT_EQ(navigation->viewControllers().size(), 1u);
    EXPECT_NE(log.find("A gone"), std::string::npos);
    EXPECT_NE(log.find("B gone"), std::string::npos);
    navigation->setRoot(nullptr);
    window->display();
    EXPECT_EQ(navigation->topViewController(), nullptr);
    EXPECT_EQ(titleLabel()->text(), "");
}

TEST_F(NavigationTest, PushesNoPageTwice)
{
    auto first = show(page("A"));
    navigation->pushViewController(first);
    navigation->pushViewController(nullptr);
    EXPECT_EQ(navigation->viewControllers().size(), 1u);
}

TEST_F(NavigationTest, LeavesPagesThatOutliveIt)
{
    auto first = show(page("A"));
    navigation.reset();
    EXPECT_EQ(first->navigationController(), nullptr);
    first->setTitle("Still there");
}

namespace {

/// Ends its editing by going back, as a setter may.
class FieldPage : public Page {
public:
    using Page::Page;
    void loadView() override
    {
        Page::loadView();
        field = std::make_shared<UITextField>(CGRect { 10, 10, 200, 40 });
        field->addTargetActionForControlEvents(this, "_ended", UIControlEventEditingDidEnd);
        view().addSubview(field);
    }
    void _ended()
    {
        note("ended with " + field->text());
        if (goesBack)
            navigationController()->popViewController();
    }

    Ref<UITextField> field;
    bool goesBack = false;
};

const auto registration = registerClass<FieldPage>("FieldPage").method("_ended", &FieldPage::_ended);

}

TEST_F(NavigationTest, EndsTheEditingBeforeAPageIsLeft)
{
    show(page("A"));
    auto edited = std::make_shared<FieldPage>("B", &log);
    navigation->pushViewController(edited);
    window->display();
    tap(*edited->field);
    ASSERT_TRUE(edited->field->editor().typeText("text"));
    log.clear();
    tap(navigation->backButton());
    EXPECT_EQ(log, "B ended with text; B disappear; A appear; ");
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(NavigationTest, GoesBackOnceWhenTheEndOfTheEditingGoesBackToo)
{
    show(page("A"));
    navigation->pushViewController(page("B"));
    auto edited = std::make_shared<FieldPage>("C", &log);
    edited->goesBack = true;
    navigation->pushViewController(edited);
    window->display();
    tap(*edited->field);
    tap(navigation->backButton());
    EXPECT_EQ(navigation->viewControllers().size(), 2u);
}

TEST_F(NavigationTest, EndsTheEditingWhenItIsClosed)
{
    auto edited = std::make_shared<FieldPage>("B", &log);
    show(edited);
    tap(*edited->field);
    log.clear();
    navigation.reset();
    EXPECT_EQ(log, "B ended with ; B disappear; ");
}
