#include "PageWalk.h"

#include "BundleFacts.h"
#include "host/Installation.h"
#include "host/Phone.h"
#include "host/WithoutDisplay.h"
#include "ModuleCheck.h"
#include "PageRows.h"
#include "platform/Demangle.h"
#include "platform/NSBundle.h"
#include "platform/PSListController.h"

#include <algorithm>
#include <dlfcn.h>

namespace host {

using namespace platform;

namespace {

constexpr std::size_t deepest = 8; // Pages below one another; a page may lead back to itself.
constexpr int mostPages = 100;

/// Symbols that neither this program nor the module's libraries have; empty as well when a library cannot be
/// looked into.
std::string missingSymbols(const std::filesystem::path& module)
{
    std::vector<void*> handles { RTLD_DEFAULT };
    for (const auto& library : neededLibraries(module)) {
        handles.push_back(::dlopen(library.c_str(), RTLD_LAZY | RTLD_LOCAL));
        if (!handles.back())
            return {};
    }
    std::set<std::string> missing;
    for (const auto& symbol : neededSymbols(module)) {
        const auto has = [&](void* handle) { return ::dlsym(handle, symbol.c_str()) != nullptr; };
        if (std::none_of(handles.begin(), handles.end(), has))
            missing.insert(demangled(symbol));
    }
    std::string names;
    for (const auto& name : missing)
        names += (names.empty() ? "" : ", ") + name;
    return names;
}

class Walk {
public:
    Walk(const BundleContents& contents, const std::filesystem::path& root,
        const std::set<std::string>& skipped, const RecordWriter& tell)
        : _contents(contents)
        , _root(root)
        , _skipped(skipped)
        , _tell(tell)
        , _executable(contents.infoText("CFBundleExecutable"))
    {
    }

    void run()
    {
        const auto application = applicationWithoutDisplay(_root);
        PhoneOptions options;
        options.root = _root;
        options.locale = "en_US";
        options.timeZone = "UTC";
        options.bundle = _contents.folder;
        Phone phone(options);
        _phone = &phone;
        std::string error;
        const auto path = Installation(_root).installBundle(_contents.folder);
        step({ "load", _executable, {}, "the module was loaded" });
        const auto bundle = NSBundle::loadBundleAtPath(path, error);
        if (!bundle) {
            tellWhyNotLoaded(error, path);
            return;
        }
        _tell({ "loaded" });
        tellWhatIsThere();
        const auto principal = _contents.infoText("NSPrincipalClass");
        step({ "first", _executable, {}, principal + " was opened" });
        if (phone.openBundle()) {
            _tell({ "finding", "Info.plist", {},
                "names the principal class \"" + principal + "\", which is no page" });
            return;
        }
        phone.settle();
        visit({});
        step({ "end", _executable, {}, "it was closed" });
    }

private:
    bool step(const WalkStep& step)
    {
        if (_skipped.contains(step.name))
            return false;
        _tell({ "step", step.name, step.file, step.place, step.doing });
        return true;
    }

    void tellWhyNotLoaded(const std::string& error, const std::string& path)
    {
        if (error.starts_with("There is no such principal class")) {
            _tell({ "finding", "Info.plist", {},
                "names the principal class \"" + _contents.infoText("NSPrincipalClass")
                    + "\", which the module does not have" });
            return;
        }
        const auto symbols
            = missingSymbols(_contents.folder / std::filesystem::path(_executable).relative_path());
        const auto module = path + '/' + _executable + ' ';
        auto reason = error.starts_with(module) ? error.substr(module.size()) : "cannot be loaded: " + error;
        if (reason.ends_with('.'))
            reason.pop_back();
        if (symbols.find(", ") != std::string::npos)
            reason = "has the unresolved symbols " + symbols;
        _tell({ "finding", _executable, {}, reason });
    }

    void tellWhatIsThere()
    {
        for (const auto& resource : _contents.resources) {
            for (std::size_t index = 0; index < resource.size(); ++index) {
                if (const auto* row = resource.row(index))
                    tellWhatIsThere(*row);
            }
        }
    }

    void tellWhatIsThere(const PropertyList& row)
    {
        for (const auto key : classKeys) {
            if (const auto* name = textUnder(row, key); name && NSClassFromString(*name))
                _tell({ "class", *name });
        }
        for (const auto key : selectorKeys) {
            const auto* selector = textUnder(row, key);
            const auto classes = Class::all();
            if (selector && std::any_of(classes.begin(), classes.end(), [&](const auto* known) {
                    return known->methodForSelector(*selector) != nullptr;
                }))
                _tell({ "selector", *selector });
        }
    }

    PSListController* top() const
    {
        return dynamic_cast<PSListController*>(_phone->navigation().topViewController());
    }

    /// `trail` names the page by the rows that led to it.
    void visit(const std::string& trail)
    {
        auto* const page = top();
        if (!page || ++_pages > mostPages)
            return;
        const PageRows rows(_contents, *page);
        rows.tell(_tell, [&](const std::string& name, std::size_t index, const std::string& doing) {
            return step({ trail + '/' + std::to_string(index) + ' ' + name, rows.file(index, _executable),
                rows.place(index), doing });
        });
        if (_phone->navigation().viewControllers().size() >= deepest)
            return;
        for (std::size_t index = 0; index < rows.size(); ++index)
            follow(*page, rows, index, trail + '/' + std::to_string(index));
    }

    void follow(PSListController& page, const PageRows& rows, std::size_t index, const std::string& trail)
    {
        const auto specifier = rows.specifier(index);
        const auto place = page.indexPathForSpecifier(specifier.get());
        const auto kind = specifier->cellType();
        const bool leadsOn = kind == PSCellType::Link
            || (kind == PSCellType::LinkList && !specifier->textForKey("detail").empty()
                && specifier->textForKey("detail") != "PSListItemsController");
        if (!place || !leadsOn || !specifier->isEnabled())
            return;
        if (!step(
                { trail + " open", rows.file(index, _executable), rows.place(index), "its page was opened" }))
            return;
        const auto pages = _phone->navigation().viewControllers().size();
        page.tableViewDidSelectRowAtIndexPath(page.table(), *place);
        _phone->settle();
        if (_phone->navigation().viewControllers().size() <= pages) {
            if (!rows.item(index))
                return;
            const auto detail = specifier->textForKey("detail");
            if (!detail.empty() && NSClassFromString(detail))
                _tell({ "finding", rows.file(index, _executable), rows.place(index),
                    "names the detail class \"" + detail + "\", which is no page" });
            return;
        }
        visit(trail);
        step({ trail + " close", rows.file(index, _executable), rows.place(index), "its page was closed" });
        _phone->navigation().popViewController();
        _phone->settle();
    }

    const BundleContents& _contents;
    std::filesystem::path _root;
    const std::set<std::string>& _skipped;
    const RecordWriter& _tell;
    std::string _executable;
    Phone* _phone = nullptr;
    int _pages = 0;
};

}

void walkPages(const BundleContents& contents, const std::filesystem::path& root,
    const std::set<std::string>& skipped, const RecordWriter& tell)
{
    Walk(contents, root, skipped, tell).run();
}

}
