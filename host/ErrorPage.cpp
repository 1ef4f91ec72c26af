#include "ErrorPage.h"

#include "platform/Style.h"
#include "platform/UILabel.h"

namespace host {

using namespace platform;

namespace {

/// Two labels, one below the other in the middle of the page, whatever its size.
class ErrorView final : public UIView {
public:
    explicit ErrorView(const std::string& reason)
    {
        setBackgroundColor(style::pageBackground());
        _heading->setText("This page can’t be shown");
        _heading->setFont({ labelFontSize, UIFontWeight::Semibold });
        _reason->setText(reason);
        _reason->setFont(UIFont::systemFontOfSize(15));
        _reason->setTextColor(style::secondaryText());
        for (const auto& label : { _heading, _reason }) {
            label->setNumberOfLines(0);
            label->setTextAlignment(NSTextAlignment::Center);
            addSubview(label);
        }
    }

    void layoutSubviews() override
    {
        const auto width = bounds().width - 4 * style::margin;
        const auto heading = _heading->sizeThatFits({ width, 0 });
        const auto reason = _reason->sizeThatFits({ width, 0 });
        const auto top = (bounds().height - heading.height - style::margin - reason.height) / 2;
        _heading->setFrame({ 2 * style::margin, top, width, heading.height });
        _reason->setFrame({ 2 * style::margin, top + heading.height + style::margin, width, reason.height });
    }

private:
    Ref<UILabel> _heading = std::make_shared<UILabel>();
    Ref<UILabel> _reason = std::make_shared<UILabel>();
};

}

ErrorPage::ErrorPage(std::string reason)
    : _reason(std::move(reason))
{
    setTitle("Error");
}

void ErrorPage::loadView()
{
    setView(std::make_shared<ErrorView>(_reason));
}

}
