#include "platform/NSBundle.h"
#include "DeviceFiles.h"
#include "ModuleFile.h"
#include "platform/Demangle.h"
#include "platform/NSMutableDictionary.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
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

/// Of bundles that nobody holds any more, but some of whose objects are alive.
struct KeptModule {
    void* module;
    NSBundle::CodeRange code;
};
std::vector<KeptModule>& keptModules()
{
    static auto* const modules = new std::vector<KeptModule>;
    return *modules;
}

std::vector<std::string> classesOfObjectsIn(NSBundle::CodeRange code)
{
    std::vector<std::string> names;
    NSObject::_visitAll([&](const NSObject& object) {
        // An object begins with the place of its class's functions.
        std::uintptr_t functions = 0;
        std::memcpy(&functions, static_cast<const void*>(&object), sizeof functions);
        if (functions >= code.begin && functions < code.end)
            names.push_back(object.className());
    });
    return names;
}

}

/// What the bundle was loaded from.
struct NSBundle::Files {
    Files(std::string modulePath, std::string infoPath)
        : module(std::move(modulePath))
        , info(std::move(infoPath))
        , moduleState(stateOfFile(module))
        , infoState(stateOfFile(info))
    {
    }
    bool operator==(const Files&) const = default;

    std::string module, info; ///< On this machine.
    FileState moduleState, infoState;
};

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
    bundle->_files = std::make_unique<Files>(*module, *folder + "/Info.plist");
    const ModuleFile file(*module);
    if (const auto problem = file.problem(); !problem.empty()) {
        error = modulePath + " is not a loadable module (it " + problem + ").";
        return nullptr;
    }
    {
        const RegistrationScope scope(path);
        // Everything is resolved now, so that what is missing is known here and not in the middle of a touch.
        bundle->_module = file.load();
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

NSBundle::NSBundle() = default;

NSBundle::~NSBundle()
{
    if (!_module)
        return;
    Class::forgetClassesOfBundle(_path);
    auto& modules = keptModules();
    modules.push_back({ _module, codeRange() });
    std::erase_if(modules, [](const auto& kept) {
        const auto canGo = classesOfObjectsIn(kept.code).empty();
        if (canGo)
            ::dlclose(kept.module);
        return canGo;
    });
}

bool NSBundle::isUpToDate() const
{
    return *_files == Files(_files->module, _files->info);
}

const std::string& NSBundle::modulePath() const
{
    return _files->module;
}

NSBundle::CodeRange NSBundle::codeRange() const
{
    struct link_map* map = nullptr;
    if (!_module || ::dlinfo(_module, RTLD_DI_LINKMAP, &map) != 0)
        return {};
    std::pair<const link_map*, CodeRange> sought { map, {} };
    ::dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) {
            auto& [module, range] = *static_cast<std::pair<const link_map*, CodeRange>*>(data);
            if (info->dlpi_addr != module->l_addr)
                return 0;
            range.begin = info->dlpi_addr;
            for (const auto& segment : std::span(info->dlpi_phdr, info->dlpi_phnum)) {
                if (segment.p_type == PT_LOAD)
                    range.end = std::max(range.end, info->dlpi_addr + segment.p_vaddr + segment.p_memsz);
            }
            return 1;
        },
        &sought);
    return sought.second;
}

std::vector<std::string> NSBundle::classesOfLiveObjects() const
{
    return classesOfObjectsIn(codeRange());
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
