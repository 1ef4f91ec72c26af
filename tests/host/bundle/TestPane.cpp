#include "platform/CGContext.h"
#include "platform/FSSwitchPanel.h"
#include "platform/NSMutableDictionary.h"
#include "platform/PSListController.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"

// A pane of its own for the driver's tests: every kind of row, alerts with and without a field, a page that
// scrolls, a page without rows, and a view that counts on being painted.

namespace testpane {

using namespace platform;

class TestPage final : public PSListController, public UIAlertViewDelegate {
public:
    using PSListController::PSListController;
    ~TestPage() override { UIAlertView::delegateIsGone(this); }

    const Specifiers& specifiers() override
    {
        if (!_specifiers)
            _specifiers = loadSpecifiersFromPlistNameTarget("TestPage", this);
        return *_specifiers;
    }

    void ask()
    {
        const auto alert = UIAlertView::make({ .title = "Question",
            .message = "How many?",
            .delegate = this,
            .cancelButtonTitle = "Cancel",
            .otherButtonTitles = { "OK" } });
        alert->setTag(7);
        alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
        alert->textFieldAtIndex(0)->setKeyboardType(UIKeyboardType::NumberPad);
        alert->textFieldAtIndex(0)->setText("12");
        alert->show();
    }

    void tell() { UIAlertView::make({ .message = "Flag", .cancelButtonTitle = "Close" })->show(); }

    void tellTwice()
    {
        tell();
        UIAlertView::make({ .message = "Second", .cancelButtonTitle = "Close it" })->show();
    }

    void storeEverything()
    {
        const NSMutableDictionary values(PropertyList {
            { "array", PropertyArray { 1, "two" } },
            { "bool", true },
            { "data", PropertyData { 0, 255, 16 } },
            { "date", NSDate(410955420) },
            { "dictionary", PropertyList { { "inner", 2.5 } } },
            { "integer", 9007199254740993 },
            { "real", 0.1 },
            { "string", "Grüße" },
        });
        static_cast<void>(values.writeToFileAtomically(
            "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist", true));
        static_cast<void>(values.writeToFileAtomically("/private/var/no/such/folder/file.plist", true));
    }

    void flip()
    {
        const auto* panelClass = NSClassFromString("FSSwitchPanel");
        const auto shared = panelClass ? panelClass->performSelector("sharedPanel") : Argument();
        if (auto* const* panel = std::get_if<NSObject*>(&shared); panel && *panel)
            (*panel)->performSelector("setState:forSwitchIdentifier:", { 1, "net.morvane.vekorafs" });
    }

    void alertViewClickedButtonAtIndex(UIAlertView& alert, long index) override
    {
        auto* row = specifierForID("written");
        row->setName("Button " + std::to_string(index) + " with " + alert.textFieldAtIndex(0)->text());
        reload();
    }
};

class TestLongPage final : public PSListController {
public:
    using PSListController::PSListController;

    const Specifiers& specifiers() override
    {
        constexpr int rows = 200;
        if (_specifiers)
            return *_specifiers;
        _specifiers.emplace();
        for (int i = 0; i < rows; ++i) {
            auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
                "Row " + std::to_string(i), this, {}, {}, nullptr, PSCellType::Button, nullptr);
            row->setButtonAction("rowTapped:");
            _specifiers->push_back(row);
        }
        return *_specifiers;
    }

    void rowTapped(PSSpecifier* row) { setTitle(row->name() + " tapped"); }
};

class TestBarePage final : public UIViewController { };

/// Red, and blue once it was touched.
class TestBlot final : public UIView {
public:
    using UIView::UIView;

    void drawRect(CGRect) override
    {
        const auto color = _touched ? UIColor::blueColor() : UIColor::redColor();
        const auto gradient = CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), { &color, 1 });
        CGContextDrawLinearGradient(*UIGraphicsGetCurrentContext(), gradient, {}, { 0, bounds().height }, 0);
    }

    void touch()
    {
        _touched = true;
        setNeedsDisplay();
    }

private:
    bool _touched = false;
};

/// The blot with a clear button on it, and labels that can be seen, or cannot.
class TestBlotCell final : public PSTableCell {
public:
    TestBlotCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
        : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
    {
        _blot->setTag(9);
        _blot->setAutoresizingMask(36);
        _blot->layer().setBorderWidth(1.5);
        _blot->layer().setBorderColor(UIColor::blueColor().cgColor());
        _blot->layer().setCornerRadius(4);
        contentView().addSubview(_blot);
        addLabel("Under glass", { 20, 20, 100, 20 });
        addLabel("Hidden", { 20, 40, 100, 20 })->setHidden(true);
        addLabel("Clear", { 20, 60, 100, 20 })->setAlpha(0);
        addLabel("Under a plate", { 200, 20, 100, 20 });

        const auto glass = UIButton::buttonWithType(UIButtonType::Custom);
        glass->setFrame({ 10, 10, 150, 100 });
        glass->setBackgroundColor(UIColor::colorWithWhiteAlpha(0, 0.04));
        glass->addTargetActionForControlEvents(this, "glassTouched:", UIControlEventTouchUpInside);
        contentView().addSubview(glass);
        const auto plate = UIButton::buttonWithType(UIButtonType::Custom);
        plate->setFrame({ 190, 10, 150, 100 });
        plate->setBackgroundColor(UIColor::whiteColor());
        contentView().addSubview(plate);
    }

    void glassTouched(NSObject*) { _blot->touch(); }

private:
    Ref<UILabel> addLabel(const char* text, CGRect frame)
    {
        auto label = std::make_shared<UILabel>(frame);
        label->setText(text);
        contentView().addSubview(label);
        return label;
    }

    Ref<TestBlot> _blot = std::make_shared<TestBlot>(CGRect { 10, 120, 100.25, 50.5 });
};

namespace {

const auto page = registerClass<TestPage>("TestPage")
                      .initialiser<CGSize>()
                      .method("ask", &TestPage::ask)
                      .method("tell", &TestPage::tell)
                      .method("tellTwice", &TestPage::tellTwice)
                      .method("storeEverything", &TestPage::storeEverything)
                      .method("flip", &TestPage::flip);
const auto longPage = registerClass<TestLongPage>("TestLongPage")
                          .initialiser<CGSize>()
                          .method("rowTapped:", &TestLongPage::rowTapped);
const auto barePage = registerClass<TestBarePage>("TestBarePage").initialiser<>();
const auto blot = registerClass<TestBlot>("TestBlot");
const auto blotCell = registerClass<TestBlotCell>("TestBlotCell")
                          .initialiser<long, std::string, Ref<PSSpecifier>>()
                          .method("glassTouched:", &TestBlotCell::glassTouched);

}

}
