#pragma once

#include "PropertyValue.h"

#include <any>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeindex>
#include <unordered_map>

/// Classes and methods that are reached by name: rows name their actions, setters and classes as text,
/// controls send actions by selector, and the Settings application finds a bundle's principal class by its
/// name. Each class registers itself once, in its source file:
///
///     const auto registration = platform::registerClass<VekoraListController>("VekoraListController")
///                                   .initialiser<platform::CGSize>()
///                                   .method("vekoraNow", &VekoraListController::vekoraNow);
///
/// An unknown name gives nothing, and nothing happens.
namespace platform {

template <typename T> using Ref = std::shared_ptr<T>;

class NSObject;

/// What a message carries and gives back: nothing, a value, or an object (not owned; null is nothing).
using Argument = std::variant<std::monostate, PropertyValue, NSObject*>;
using Arguments = std::span<const Argument>;
using Method = std::function<Argument(NSObject&, Arguments)>;

class NSObject : public std::enable_shared_from_this<NSObject> {
public:
    NSObject();
    virtual ~NSObject();
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;

    /// The registered name, else the C++ class's own without its namespace.
    std::string className() const;

    bool respondsToSelector(std::string_view selector) const;
    /// Superfluous arguments are dropped and missing ones are nothing, as actions with no, one or two
    /// arguments are called alike. Nothing when there is no such method.
    Argument performSelector(std::string_view selector, std::initializer_list<Argument> = {});

    // Internal: every object there is, for whoever takes code away and for tests that look for
    // leaks. The visit must make and drop none.
    static void _visitAll(const std::function<void(const NSObject&)>&);

private:
    friend class WeakObject;
    std::shared_ptr<void> _life; ///< Ends with the object; made when somebody first looks.
    NSObject *_before = nullptr, *_after = nullptr; ///< In the list of all.
};

/// A look at an object without ownership, which knows when the object has gone. Unlike a weak pointer it can
/// be taken inside the object's own constructor.
class WeakObject {
public:
    explicit WeakObject(NSObject* = nullptr);
    NSObject* get() const { return _life.expired() ? nullptr : _object; }

private:
    NSObject* _object;
    std::weak_ptr<void> _life;
};

/// A registered class. Lives as long as the module that registered it.
class Class {
public:
    const std::string& name() const { return _name; }

    /// A new object made by the initialiser that takes these arguments; null when the class has none such, or
    /// is no `Base`.
    template <typename Base, typename... Arguments_> Ref<Base> make(const Arguments_&... arguments) const;

    /// Sends a message to the class itself.
    Argument performSelector(std::string_view selector, std::initializer_list<Argument> = {}) const;

    /// Null when the class itself has registered none.
    const Method* methodForSelector(std::string_view selector) const;

    /// The device's path of the bundle whose module registered the class; empty for the layer's own.
    const std::string& bundlePath() const { return _bundlePath; }
    static void setBundlePathOfNewClasses(std::string devicePath);
    /// Takes back what the bundle's module has registered, should it stay in memory after all.
    static void forgetClassesOfBundle(std::string_view devicePath);

    /// Every registered class, those of the layer among them.
    static std::span<Class* const> all();
    /// The object's own class; null when it is not registered.
    static const Class* ofObject(const NSObject&);
    /// The method that the object's class or one of its superclasses has registered; null for none.
    static const Method* find(const NSObject&, std::string_view selector);

private:
    friend class ClassRegistration;
    template <typename T> friend class TypedClassRegistration;

    struct NameHash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    using Methods = std::unordered_map<std::string, Method, NameHash, std::equal_to<>>;

    std::string _name;
    std::string _bundlePath;
    std::type_index _type = typeid(void);
    bool (*_isInstance)(const NSObject&) = nullptr;
    Methods _methods;
    Methods _classMethods;
    std::unordered_map<std::type_index, std::any> _initialisers;
};

/// Null when no class of this name is registered.
const Class* NSClassFromString(std::string_view name);

/// Takes the class back when the module that registered it is unloaded.
class ClassRegistration {
public:
    ClassRegistration(ClassRegistration&&) noexcept = default;
    ~ClassRegistration();

protected:
    explicit ClassRegistration(std::unique_ptr<Class>);
    Class& registeredClass() { return *_class; }

private:
    std::unique_ptr<Class> _class;
};

namespace detail {

/// One parameter of a method from what the message carries.
template <typename T> struct FromArgument {
    static_assert(
        std::is_pointer_v<T>, "a method reached by name takes objects, property values or plain values");
    static T convert(const Argument& argument)
    {
        const auto* object = std::get_if<NSObject*>(&argument);
        return object ? dynamic_cast<T>(*object) : nullptr;
    }
};
template <> struct FromArgument<std::optional<PropertyValue>> {
    static std::optional<PropertyValue> convert(const Argument& argument)
    {
        const auto* value = std::get_if<PropertyValue>(&argument);
        return value ? std::optional(*value) : std::nullopt;
    }
};
template <> struct FromArgument<PropertyValue> {
    static PropertyValue convert(const Argument& argument)
    {
        const auto* value = std::get_if<PropertyValue>(&argument);
        return value ? *value : PropertyValue(false);
    }
};
template <> struct FromArgument<long> {
    static long convert(const Argument& argument)
    {
        return FromArgument<PropertyValue>::convert(argument).intValue();
    }
};
template <> struct FromArgument<std::int32_t> {
    static std::int32_t convert(const Argument& argument)
    {
        return FromArgument<PropertyValue>::convert(argument).intValue();
    }
};
template <> struct FromArgument<float> {
    static float convert(const Argument& argument)
    {
        return FromArgument<PropertyValue>::convert(argument).floatValue();
    }
};
template <> struct FromArgument<bool> {
    static bool convert(const Argument& argument)
    {
        return FromArgument<PropertyValue>::convert(argument).boolValue();
    }
};
template <> struct FromArgument<std::string> {
    static std::string convert(const Argument& argument)
    {
        const auto value = FromArgument<PropertyValue>::convert(argument);
        return value.string() ? *value.string() : std::string();
    }
};

template <typename Result> Argument toArgument(Result&& result)
{
    using Plain = std::remove_cvref_t<Result>;
    if constexpr (std::is_same_v<Plain, std::optional<PropertyValue>>)
        return result ? Argument(std::move(*result)) : Argument();
    else if constexpr (std::is_pointer_v<Plain>)
        return static_cast<NSObject*>(result);
    else
        return PropertyValue(std::forward<Result>(result));
}

inline const Argument& argumentAt(Arguments arguments, std::size_t index)
{
    static const Argument nothing;
    return index < arguments.size() ? arguments[index] : nothing;
}

template <typename Function, typename... Parameters, std::size_t... Index>
Argument call(const Function& function, Arguments arguments, std::index_sequence<Index...>,
    std::type_identity<void(Parameters...)>)
{
    const auto invoke = [&] {
        return function(
            FromArgument<std::remove_cvref_t<Parameters>>::convert(argumentAt(arguments, Index))...);
    };
    if constexpr (std::is_void_v<decltype(invoke())>) {
        invoke();
        return {};
    } else {
        return toArgument(invoke());
    }
}

}

/// Fills in a class while it registers; see the top of this file.
template <typename T> class TypedClassRegistration final : public ClassRegistration {
public:
    using ClassRegistration::ClassRegistration;

    template <typename... Arguments_> TypedClassRegistration&& initialiser() &&
    {
        using Initialiser = std::function<Ref<NSObject>(const Arguments_&...)>;
        registeredClass()._initialisers[typeid(void(Arguments_...))]
            = Initialiser([](const Arguments_&... arguments) { return std::make_shared<T>(arguments...); });
        return std::move(*this);
    }

    template <typename Owner, typename Result, typename... Parameters>
    TypedClassRegistration&& method(std::string_view selector, Result (Owner::*function)(Parameters...)) &&
    {
        return std::move(*this).template add<Parameters...>(selector, function);
    }

    template <typename Owner, typename Result, typename... Parameters>
    TypedClassRegistration&& method(
        std::string_view selector, Result (Owner::*function)(Parameters...) const) &&
    {
        return std::move(*this).template add<Parameters...>(selector, function);
    }

    template <typename Result, typename... Parameters>
    TypedClassRegistration&& classMethod(std::string_view selector, Result (*function)(Parameters...)) &&
    {
        registeredClass()._classMethods[std::string(selector)] = [function](NSObject&, Arguments arguments) {
            return detail::call(function, arguments, std::index_sequence_for<Parameters...> {},
                std::type_identity<void(Parameters...)> {});
        };
        return std::move(*this);
    }

private:
    template <typename... Parameters, typename Function>
    TypedClassRegistration&& add(std::string_view selector, Function function) &&
    {
        registeredClass()._methods[std::string(selector)]
            = [function](NSObject& object, Arguments arguments) -> Argument {
            auto* self = dynamic_cast<T*>(&object);
            if (!self)
                return {};
            return detail::call(
                [&](auto&&... values) {
                    return (self->*function)(std::forward<decltype(values)>(values)...);
                },
                arguments, std::index_sequence_for<Parameters...> {},
                std::type_identity<void(Parameters...)> {});
        };
        return std::move(*this);
    }

    template <typename U> friend TypedClassRegistration<U> registerClass(std::string_view name);
    static std::unique_ptr<Class> makeClass(std::string_view name)
    {
        auto result = std::make_unique<Class>();
        result->_name = name;
        result->_type = typeid(T);
        result->_isInstance
            = [](const NSObject& object) { return dynamic_cast<const T*>(&object) != nullptr; };
        return result;
    }
};

template <typename T> TypedClassRegistration<T> registerClass(std::string_view name)
{
    return TypedClassRegistration<T>(TypedClassRegistration<T>::makeClass(name));
}

template <typename Base, typename... Arguments_> Ref<Base> Class::make(const Arguments_&... arguments) const
{
    using Initialiser = std::function<Ref<NSObject>(const Arguments_&...)>;
    const auto found = _initialisers.find(typeid(void(Arguments_...)));
    if (found == _initialisers.end())
        return nullptr;
    return std::dynamic_pointer_cast<Base>(std::any_cast<const Initialiser&>(found->second)(arguments...));
}

}
