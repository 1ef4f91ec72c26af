#include "ErrorPage.h"

#include "platform/Style.h"
#include "platform/UIButton.h"
#include "platform/UIScrollView.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

const auto registration = registerClass<ErrorPage>("ErrorPage").method("_tryAgain", &ErrorPage::_tryAgain);

constexpr double reasonFontSize = 15;
constexpr double placeFontSize = 12;
constexpr CGFloat gapBetweenPlaces = 6;
constexpr CGFloat buttonHeight = 44; // A finger's.

/// Texts one below the other: in the middle of the page, whatever its size, or scrolling when they are
/// longer.
class ErrorView final : public UIScrollView {
public:
    explicit ErrorView(ErrorPage& page)
        : UIScrollView(CGRect {})
    {
        const auto& content = page.content();
        setBackgroundColor(style::pageBackground());
        addLabel(content.heading, { labelFontSize, UIFontWeight::Semibold }, 0);
        addLabel(content.reason, UIFont::systemFontOfSize(reasonFontSize), style::margin)
            .setTextColor(style::secondaryText());
        for (std::size_t index = 0; index < content.places.size(); ++index) {
            auto& place = addLabel(content.places[index], UIFont::systemFontOfSize(placeFontSize),
                index == 0 ? style::margin : gapBetweenPlaces);
            place.setTextAlignment(NSTextAlignment::Left);
            place.setTextColor(style::secondaryText());
        }
        if (content.tryAgain) {
            _tryAgain = UIButton::buttonWithType(UIButtonType::RoundedRect);
            _tryAgain->setTitleForState("Try Again", UIControlState::Normal);
            _tryAgain->addTargetActionForControlEvents(&page, "_tryAgain", UIControlEventTouchUpInside);
            addSubview(_tryAgain);
        }
    }

    void layoutSubviews() override
    {
        const auto width = bounds().width - 4 * style::margin;
        CGFloat height = 0;
        for (const auto& text : _texts)
            height += text.gap + text.label->sizeThatFits({ width, 0 }).height;
        if (_tryAgain)
            height += style::margin + buttonHeight;
        setContentSize({ bounds().width, height + 2 * style::margin });

        auto y = std::max(style::margin, (bounds().height - height) / 2);
        for (const auto& text : _texts) {
            const auto textHeight = text.label->sizeThatFits({ width, 0 }).height;
            text.label->setFrame({ 2 * style::margin, y + text.gap, width, textHeight });
            y += text.gap + textHeight;
        }
        if (_tryAgain)
            _tryAgain->setFrame({ 2 * style::margin, y + style::margin, width, buttonHeight });
    }

private:
    struct Text {
        Ref<UILabel> label;
        CGFloat gap; ///< Above it, in points.
    };

    UILabel& addLabel(const std::string& text, const UIFont& font, CGFloat gap)
    {
        auto label = std::make_shared<UILabel>();
        label->setText(text);
        label->setFont(font);
        label->setNumberOfLines(0);
        label->setTextAlignment(NSTextAlignment::Center);
        addSubview(label);
        _texts.push_back({ label, gap });
        return *label;
    }

    std::vector<Text> _texts;
    Ref<UIButton> _tryAgain;
};

}

ErrorPage::ErrorPage(Content content)
    : _content(std::move(content))
{
    setTitle("Error");
}

ErrorPage::~ErrorPage() = default;

void ErrorPage::loadView()
{
    setView(std::make_shared<ErrorView>(*this));
}

void ErrorPage::_tryAgain()
{
    // The page may go while it is being tried.
    const auto tryAgain = _content.tryAgain;
    if (tryAgain)
        tryAgain();
}

}
