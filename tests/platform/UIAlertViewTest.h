#pragma once

#include "ControlTestSupport.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"

#include <QKeyEvent>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform::tests {

/// Keeps the answers; may go at any time.
struct AlertDelegate final : UIAlertViewDelegate {
    ~AlertDelegate() override { UIAlertView::delegateIsGone(this); }
    void alertViewClickedButtonAtIndex(UIAlertView& alert, long index) override
    {
        answers.push_back(index);
        if (onAnswer)
            onAnswer(alert);
    }

    std::vector<long> answers;
    std::function<void(UIAlertView&)> onAnswer;
};

/// Alerts over an empty window, and their delegate.
class UIAlertViewTest : public ControlTest {
protected:
    std::unique_ptr<AlertDelegate> delegate = std::make_unique<AlertDelegate>();

    Ref<UIAlertView> makeAlert(
        std::vector<std::string> others = { "Save" }, std::string message = "How much?")
    {
        return UIAlertView::make({ .message = std::move(message),
            .delegate = delegate.get(),
            .cancelButtonTitle = "Cancel",
            .otherButtonTitles = std::move(others) });
    }
    Ref<UIAlertView> showWithField(UIAlertViewStyle style = UIAlertViewStyle::PlainTextInput)
    {
        const auto alert = makeAlert();
        alert->setAlertViewStyle(style);
        alert->show();
        return alert;
    }

    /// The foremost view that shows exactly this text; null without one.
    static UILabel* find(const UIView& view, const std::string& text)
    {
        for (auto subview = view.subviews().rbegin(); subview != view.subviews().rend(); ++subview) {
            if ((*subview)->isHidden())
                continue;
            if (auto* const found = find(**subview, text))
                return found;
            auto* const label = dynamic_cast<UILabel*>(subview->get());
            if (label && label->text() == text)
                return label;
        }
        return nullptr;
    }
    void tapText(const std::string& text)
    {
        window->display();
        const auto* const label = find(*window, text);
        ASSERT_NE(label, nullptr) << text;
        tap(*label);
    }
    bool pressKey(int key, bool repeated = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeated);
        return sendKeyToWindow(*window, event);
    }
};

}
