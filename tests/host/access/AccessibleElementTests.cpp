#include "AccessFixture.h"
#include "host/access/AccessibleScreen.h"
#include "host/PhoneView.h"
#include "platform/UITextField.h"

#include <QApplication>

// What is told on the bus is tested there: without a display the toolkit has none.

namespace host {

using namespace platform;

namespace {

/// The phone's view and what an assistive technology makes of it.
class AccessibleElementTest : public PhoneTest {
protected:
    ~AccessibleElementTest() override { view.reset(); }

    void openView(const PhoneOptions& options)
    {
        open(options);
        view = std::make_unique<PhoneView>(*phone);
        view->resize(static_cast<int>(options.size.width) * options.scale,
            static_cast<int>(options.size.height) * options.scale);
        QApplication::processEvents();
    }
    QAccessibleInterface* find(const QString& name, QAccessible::Role role) const
    {
        return findIn(QAccessible::queryAccessibleInterface(view.get()), name, role);
    }
    /// Everything that can be asked and told, by one that asks and tells wildly.
    static void pester(QAccessibleInterface& interface)
    {
        interface.parent();
        interface.child(0);
        interface.child(99);
        interface.childAt(10, 10);
        interface.focusChild();
        interface.relations();
        interface.rect();
        interface.state();
        interface.window();
        interface.text(QAccessible::Description);
        interface.setText(QAccessible::Value, QStringLiteral("x"));
        if (auto* const actions = interface.actionInterface()) {
            for (const auto& name : actions->actionNames())
                actions->doAction(name);
            actions->doAction(QStringLiteral("nothing"));
        }
        if (auto* const value = interface.valueInterface()) {
            value->setCurrentValue(QStringLiteral("much"));
            value->setCurrentValue(1e300);
            value->currentValue();
        }
        if (auto* const text = interface.textInterface()) {
            int begin = 0;
            int end = 0;
            text->selection(3, &begin, &end);
            text->setSelection(0, -5, 1000);
            text->setCursorPosition(-1);
            text->text(5, 2);
            text->characterRect(1000);
            text->offsetAtPoint({ -1, -1 });
            text->removeSelection(0);
        }
        if (auto* const text = interface.editableTextInterface()) {
            text->deleteText(7, 3);
            text->insertText(-4, QStringLiteral("a"));
            text->replaceText(0, 1000, QStringLiteral("b"));
        }
    }

    std::unique_ptr<PhoneView> view;

private:
    static QAccessibleInterface* findIn(
        QAccessibleInterface* around, const QString& name, QAccessible::Role role)
    {
        for (int index = 0; around && index < around->childCount(); ++index) {
            auto* const child = around->child(index);
            if (child && child->text(QAccessible::Name) == name && child->role() == role)
                return child;
            if (auto* const found = findIn(child, name, role))
                return found;
        }
        return nullptr;
    }
};

}

TEST_F(AccessibleElementTest, IsTheSameWheneverItIsAskedFor)
{
    openView(options());
    auto* const row = find(QStringLiteral("Enabled"), QAccessible::CheckBox);
    ASSERT_TRUE(row);
    EXPECT_EQ(find(QStringLiteral("Enabled"), QAccessible::CheckBox), row);
    EXPECT_EQ(row->parent()->child(row->parent()->indexOfChild(row)), row);
}

TEST_F(AccessibleElementTest, IsInvalidOnceItsViewHasGone)
{
    openView(options());
    find(QStringLiteral("Button Color"), QAccessible::ListItem)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    auto* const slider = find(QStringLiteral("Green"), QAccessible::Slider);
    ASSERT_TRUE(slider);
    EXPECT_TRUE(slider->isValid());
    phone->goBack();
    phone->settle(); // The page has gone, and nobody has been told yet.
    EXPECT_FALSE(slider->isValid());
    EXPECT_TRUE(slider->state().invalid);
    pester(*slider);
    EXPECT_EQ(slider->text(QAccessible::Name), QString());
    EXPECT_EQ(slider->childCount(), 0);
}

TEST_F(AccessibleElementTest, IsTakenBackWhenTheChangeIsTold)
{
    openView(options());
    const auto number = QAccessible::uniqueId(find(QStringLiteral("Enabled"), QAccessible::CheckBox));
    find(QStringLiteral("Button Color"), QAccessible::ListItem)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    phone->navigation().setRoot(nullptr);
    view->accessibleScreen().tellChanges();
    EXPECT_EQ(QAccessible::accessibleInterface(number), nullptr);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(view.get())->isValid());
}

TEST_F(AccessibleElementTest, EditsATextThatNobodyEditsAsAWhole)
{
    openView(options());
    auto* const field = find(QStringLiteral("Button Text:"), QAccessible::EditableText);
    ASSERT_TRUE(field);
    EXPECT_EQ(field->textInterface()->text(0, -1), QStringLiteral("Vekora"));
    field->editableTextInterface()->insertText(3, QStringLiteral("-"));
    EXPECT_EQ(field->text(QAccessible::Value), QStringLiteral("Vek-ora"));
    EXPECT_FALSE(phone->window().firstResponder());
    EXPECT_NE(readTestFile(preferenceFile()).find("Vek-ora"), std::string::npos);
}

TEST_F(AccessibleElementTest, LeavesATextThatIsEditedOpen)
{
    openView(options());
    auto* const field = find(QStringLiteral("Button Text:"), QAccessible::EditableText);
    field->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(phone->window().firstResponder());
    field->textInterface()->setSelection(0, 0, 3);
    EXPECT_EQ(field->textInterface()->selectionCount(), 1);
    field->editableTextInterface()->deleteText(0, 3);
    EXPECT_EQ(phone->window().firstResponder()->text(), "ora");
    EXPECT_EQ(field->textInterface()->cursorPosition(), 0);
}

TEST_F(AccessibleElementTest, HidesASecret)
{
    openView(optionsWithTestBundle());
    auto* const field = find(QStringLiteral("Secret"), QAccessible::EditableText);
    ASSERT_TRUE(field);
    field->editableTextInterface()->insertText(0, QStringLiteral("ab"));
    EXPECT_EQ(field->textInterface()->text(0, -1), QStringLiteral("••"));
    EXPECT_TRUE(field->state().passwordEdit);
}

TEST_F(AccessibleElementTest, BearsWhateverIsAsked)
{
    openView(optionsWithTestBundle());
    // Each may change what there is: pages, alerts, all of it.
    for (int time = 0; time < 60; ++time) {
        std::vector<QAccessible::Id> numbers;
        const auto collect = [&](auto& self, QAccessibleInterface* around) -> void {
            for (int index = 0; index < around->childCount(); ++index) {
                if (auto* const child = around->child(index)) {
                    numbers.push_back(QAccessible::uniqueId(child));
                    self(self, child);
                }
            }
        };
        collect(collect, QAccessible::queryAccessibleInterface(view.get()));
        ASSERT_FALSE(numbers.empty());
        const auto chosen = numbers[static_cast<std::size_t>(time * 7) % numbers.size()];
        if (auto* const interface = QAccessible::accessibleInterface(chosen))
            pester(*interface);
        if (time % 3 == 0)
            view->accessibleScreen().tellChanges();
        QApplication::processEvents();
    }
}

TEST_F(AccessibleElementTest, GoesWithItsView)
{
    openView(options());
    const auto number = QAccessible::uniqueId(find(QStringLiteral("Enabled"), QAccessible::CheckBox));
    view.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(number), nullptr);
}

}
