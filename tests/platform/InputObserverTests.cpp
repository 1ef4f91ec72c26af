#include "ControlTestSupport.h"
#include "platform/InputObserver.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "platform/UIEvent.h"

#include <QKeyEvent>

using namespace platform;

namespace {

/// Writes down what it is told, one word each; "(" and ")" are an input's beginning and end.
class Listener final : public InputObserver {
public:
    void inputBegins() override { told += "("; }
    void inputEnds() override { told += ")"; }
    void touchArrives(const UITouch& touch) override
    {
        constexpr const char* names[] = { "began ", "moved ", "ended ", "cancelled " };
        told += names[static_cast<int>(touch.phase())];
    }
    void keyArrives(std::string_view name) override { told += std::string(name) + " "; }
    void editingEnds() override { told += "end "; }
    void textWillChange(UITextField& field) override { told += field.text() + "->"; }
    void textChanged(UITextField& field) override { told += field.text() + " "; }

    std::string told;
};

class InputObserverTest : public ControlTest {
protected:
    InputObserverTest()
    {
        window->setInputObserver(&listener);
        log->listenTo(*field);
        // What the targets are told comes after the observer.
        log->onAction = [this] { listener.told += log->actions.back() + " "; };
    }
    ~InputObserverTest() override
    {
        window->setInputObserver(nullptr);
        log->onAction = nullptr;
    }

    bool press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        return sendKeyToWindow(*window, event);
    }

    Ref<UITextField> field = add(std::make_shared<UITextField>(), { 20, 20, 200, 30 });
    Listener listener;
};

TEST_F(InputObserverTest, TellsOfEachStepOfATouchBeforeItIsDelivered)
{
    window->touchBegan({ 100, 300 });
    window->touchMoved({ 101, 300 });
    window->touchEnded({ 101, 300 });
    EXPECT_EQ(listener.told, "(began )(moved )(ended )");
}

TEST_F(InputObserverTest, TellsNothingOfATouchThatMeetsNothing)
{
    window->touchMoved({ 101, 300 });
    window->touchEnded({ 101, 300 });
    EXPECT_EQ(listener.told, "");
}

TEST_F(InputObserverTest, TellsOfATextBeforeTheFieldsTargets)
{
    field->becomeFirstResponder();
    listener.told.clear();
    field->editor().typeText("ab");
    EXPECT_EQ(listener.told, "(->a edited )(a->ab edited )");
}

TEST_F(InputObserverTest, TellsOfTheKeyThatEndsTheEditing)
{
    field->becomeFirstResponder();
    listener.told.clear();
    press(Qt::Key_Return);
    EXPECT_EQ(listener.told, "(end editingEnded )");
}

TEST_F(InputObserverTest, TellsOfTheKeyThatAnswersAnAlert)
{
    const auto alert = UIAlertView::make({ .message = "Well?", .cancelButtonTitle = "No" });
    alert->show();
    listener.told.clear();
    press(Qt::Key_Escape);
    EXPECT_EQ(listener.told, "(Escape )");
    EXPECT_FALSE(alert->isVisible());
}

}
