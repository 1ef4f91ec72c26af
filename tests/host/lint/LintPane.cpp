#include "platform/PSListController.h"

#include <cstdlib>

// What the linter's tests load: pages and cells of every kind that can go wrong.

namespace lintpane {

using namespace platform;

/// Shows the rows of "Root".
class LintPage : public PSListController {
public:
    using PSListController::PSListController;

    const Specifiers& specifiers() override
    {
        if (!_specifiers) {
            _specifiers = loadSpecifiersFromPlistNameTarget("Root", this);
            giveInCode();
        }
        return *_specifiers;
    }

    void go() { }

private:
    void giveInCode()
    {
        if (auto* row = specifierForID("actionInCode"))
            row->setButtonAction("go");
        if (auto* row = specifierForID("detailInCode"))
            row->setDetailControllerClass(NSClassFromString("SecondPage"));
        if (auto* row = specifierForID("valuesInCode"))
            row->setValuesTitles({ 1, 2 }, { "One", "Two" });
    }
};

/// Shows the rows of "Second".
class SecondPage final : public PSListController {
public:
    using PSListController::PSListController;

    const Specifiers& specifiers() override
    {
        if (!_specifiers)
            _specifiers = loadSpecifiersFromPlistNameTarget("Second", this);
        return *_specifiers;
    }

    void second() { }
};

/// The same as the first, but stores its rows itself.
class StoringPage final : public LintPage {
public:
    using LintPage::LintPage;
    void setPreferenceValueSpecifier(std::optional<PropertyValue>, PSSpecifier*) override { }
};

class CrashingPage final : public PSListController {
public:
    explicit CrashingPage(CGSize size)
        : PSListController(size)
    {
        std::abort();
    }
};

class CrashingCell final : public PSTableCell {
public:
    CrashingCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
        : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
    {
        std::abort();
    }
};

class LintCell final : public PSTableCell {
public:
    using PSTableCell::PSTableCell;
};

class NoPage final : public NSObject { };

const auto lintPage = registerClass<LintPage>("LintPage").initialiser<CGSize>().method("go", &LintPage::go);
const auto secondPage
    = registerClass<SecondPage>("SecondPage").initialiser<CGSize>().method("second", &SecondPage::second);
const auto storingPage = registerClass<StoringPage>("StoringPage").initialiser<CGSize>();
const auto crashingPage = registerClass<CrashingPage>("CrashingPage").initialiser<CGSize>();
const auto crashingCell
    = registerClass<CrashingCell>("CrashingCell").initialiser<long, std::string, Ref<PSSpecifier>>();
const auto lintCell = registerClass<LintCell>("LintCell").initialiser<long, std::string, Ref<PSSpecifier>>();
const auto noPage = registerClass<NoPage>("NoPage").initialiser<>();

}
