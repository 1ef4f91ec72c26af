#include "Runtime.h"

#include "Demangle.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace platform {

namespace {

// Modules register while they are loaded, before or after anything else in the process has been set up.
// Of two with one name, the one that came last counts.
std::vector<Class*>& classes()
{
    static auto* const all = new std::vector<Class*>;
    return *all;
}

std::string& bundlePathOfNewClasses()
{
    static auto* const path = new std::string;
    return *path;
}

/// All objects, as a chain. A pane may make one on a thread of its own.
struct Objects {
    std::mutex mutex;
    NSObject* first = nullptr;
};

Objects& objects()
{
    static auto* const all = new Objects;
    return *all;
}

std::string plainName(const std::type_info& type)
{
    auto name = demangled(type.name());
    name.erase(std::find(name.begin(), name.end(), '<'), name.end());
    if (const auto colon = name.rfind(':'); colon != std::string::npos)
        name.erase(0, colon + 1);
    return name;
}

}

NSObject::NSObject()
{
    auto& all = objects();
    const std::lock_guard lock(all.mutex);
    _after = all.first;
    if (_after)
        _after->_before = this;
    all.first = this;
}

NSObject::~NSObject()
{
    auto& all = objects();
    const std::lock_guard lock(all.mutex);
    (_before ? _before->_after : all.first) = _after;
    if (_after)
        _after->_before = _before;
}

void NSObject::_visitAll(const std::function<void(const NSObject&)>& visit)
{
    auto& all = objects();
    const std::lock_guard lock(all.mutex);
    for (const auto* object = all.first; object; object = object->_after)
        visit(*object);
}

const Method* Class::find(const NSObject& object, std::string_view selector)
{
    if (const auto* own = ofObject(object)) {
        if (const auto* method = own->methodForSelector(selector))
            return method;
    }
    for (const auto* candidate : classes()) {
        if (const auto* method = candidate->methodForSelector(selector);
            method && candidate->_isInstance(object))
            return method;
    }
    return nullptr;
}

std::span<Class* const> Class::all()
{
    return classes();
}

const Class* Class::ofObject(const NSObject& object)
{
    const std::type_index type = typeid(object);
    const auto found
        = std::find_if(classes().rbegin(), classes().rend(), [&](auto* c) { return c->_type == type; });
    return found == classes().rend() ? nullptr : *found;
}

std::string NSObject::className() const
{
    const auto* registered = Class::ofObject(*this);
    return registered ? registered->name() : plainName(typeid(*this));
}

bool NSObject::respondsToSelector(std::string_view selector) const
{
    return Class::find(*this, selector) != nullptr;
}

Argument NSObject::performSelector(std::string_view selector, std::initializer_list<Argument> arguments)
{
    const auto* method = Class::find(*this, selector);
    return method ? (*method)(*this, Arguments(arguments.begin(), arguments.size())) : Argument();
}

WeakObject::WeakObject(NSObject* object)
    : _object(object)
{
    if (!object)
        return;
    if (!object->_life)
        object->_life = std::make_shared<char>();
    _life = object->_life;
}

const Method* Class::methodForSelector(std::string_view selector) const
{
    const auto found = _methods.find(selector);
    return found == _methods.end() ? nullptr : &found->second;
}

Argument Class::performSelector(std::string_view selector, std::initializer_list<Argument> arguments) const
{
    const auto found = _classMethods.find(selector);
    if (found == _classMethods.end())
        return {};
    NSObject nobody;
    return found->second(nobody, Arguments(arguments.begin(), arguments.size()));
}

const Class* NSClassFromString(std::string_view name)
{
    const auto found
        = std::find_if(classes().rbegin(), classes().rend(), [&](auto* c) { return c->name() == name; });
    return found == classes().rend() ? nullptr : *found;
}

void Class::setBundlePathOfNewClasses(std::string path)
{
    bundlePathOfNewClasses() = std::move(path);
}

void Class::forgetClassesOfBundle(std::string_view path)
{
    std::erase_if(classes(), [&](const auto* candidate) { return candidate->_bundlePath == path; });
}

ClassRegistration::ClassRegistration(std::unique_ptr<Class> registered)
    : _class(std::move(registered))
{
    _class->_bundlePath = bundlePathOfNewClasses();
    classes().push_back(_class.get());
}

ClassRegistration::~ClassRegistration()
{
    if (_class)
        std::erase(classes(), _class.get());
}

}
