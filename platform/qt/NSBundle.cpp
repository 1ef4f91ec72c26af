#include "platform/NSBundle.h"
#include "DeviceFiles.h"
#include "platform/NSMutableDictionary.h"

#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <map>

namespace platform {

namespace {

/// While it lasts, classes that register belong to the bundle.
class RegistrationScope {
public:
    explicit RegistrationScope(std::string bundlePath)
    {
        Class::setBundlePathOfNewClasses(std::move(bundlePath));
    }
    ~RegistrationScope() { Class::setBundlePathOfNewClasses({}); }
    RegistrationScope(const RegistrationScope&) = delete;
    RegistrationScope& operator=(const RegistrationScope&) = delete;
};

std::string demangled(const std::string& symbol)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? name.get() : symbol;
}

std::string lastLoadError()
{
    const char* message = ::dlerror();
    return message ? message : "";
}

/// What the loader says, without the path on this machine.
std::string reasonFrom(const std::string& message, const std::string& file)
{
    static constexpr std::string_view undefined = "undefined symbol: ";
    if (const auto at = message.find(undefined); at != std::string::npos) {
        auto symbol = message.substr(at + undefined.size());
        symbol.erase(std::min(symbol.find_first_of(", \n"), symbol.size()));
        return file + " has the unresolved symbol " + demangled(symbol) + ".";
    }
    static constexpr std::string_view missing = ": cannot open shared object file";
    if (const auto at = message.find(missing);
        at != std::string::npos && message.find('/') > at) // Else it is the module that cannot be opened.
        return file + " needs the library " + message.substr(0, at) + ", which is not there.";
    const auto colon = message.find(": ");
    return file + " is not a loadable module ("
        + (colon == std::string::npos ? message : message.substr(colon + 2)) + ").";
}

const std::string* textAt(const PropertyList& info, std::string_view key)
{
    const auto found = info.find(key);
    const auto* text = found == info.end() ? nullptr : found->second.string();
    return text && !text->empty() ? text : nullptr;
}

/// By the folder on this machine.
std::map<std::string, std::weak_ptr<NSBundle>>& loadedBundles()
{
    static std::map<std::string, std::weak_ptr<NSBundle>> bundles;
    return bundles;
}

}

std::shared_ptr<NSBundle> NSBundle::loadBundleAtPath(std::string_view devicePath, std::string& error)
{
    std::string path(devicePath);
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();

    const auto folder = hostPath(path);
    if (!folder || !fileExists(path)) {
        error = "There is no such file as " + path + ".";
        return nullptr;
    }
    auto& known = loadedBundles()[*folder];
    if (auto bundle = known.lock())
        return bundle;

    const auto infoPath = path + "/Info.plist";
    if (!fileExists(infoPath)) {
        error = "There is no Info.plist in " + path + ".";
        return nullptr;
    }
    const auto info = NSMutableDictionary::dictionaryWithContentsOfFile(infoPath);
    if (!info) {
        error = infoPath + " cannot be read as a property list.";
        return nullptr;
    }
    for (const char* key : { "CFBundleExecutable", "NSPrincipalClass" }) {
        if (!textAt(info->entries(), key)) {
            error = infoPath + " has no " + key + ".";
            return nullptr;
        }
    }
    const auto modulePath = path + "/" + *textAt(info->entries(), "CFBundleExecutable");
    const auto module = hostPath(modulePath);
    if (!module || !fileExists(modulePath)) {
        error = "There is no such file as " + modulePath + ".";
        return nullptr;
    }

    const std::shared_ptr<NSBundle> bundle(new NSBundle);
    bundle->_path = path;
    bundle->_info = info->entries();
    {
        const RegistrationScope scope(path);
        // Everything is resolved now, so that what is missing is known here and not in the middle of a touch.
        bundle->_module = ::dlopen(module->c_str(), RTLD_NOW | RTLD_LOCAL);
    }
    if (!bundle->_module) {
        error = reasonFrom(lastLoadError(), modulePath);
        return nullptr;
    }
    const auto& name = *textAt(info->entries(), "NSPrincipalClass");
    const auto* principal = NSClassFromString(name);
    if (!principal || principal->bundlePath() != path) {
        error = "There is no such principal class as " + name + " in " + modulePath + ".";
        return nullptr;
    }
    bundle->_principalClass = principal;
    known = bundle;
    return bundle;
}

NSBundle::~NSBundle()
{
    if (_module)
        ::dlclose(_module);
}

bool loadPlugIn(std::string_view devicePath)
{
    static std::map<std::string, void*, std::less<>> plugIns;
    if (const auto loaded = plugIns.find(devicePath); loaded != plugIns.end()) {
        ::dlclose(loaded->second);
        plugIns.erase(loaded);
    }
    const auto library = hostPath(devicePath);
    auto* const handle = library ? ::dlopen(library->c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (handle)
        plugIns.emplace(devicePath, handle);
    return handle != nullptr;
}

}
