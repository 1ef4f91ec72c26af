#pragma once

#include "host/access/Screen.h"
#include "tests/host/PhoneFixture.h"

#include <algorithm>
#include <string>
#include <vector>

/// A phone and what can be reached on its screen.
class AccessTest : public PhoneTest {
protected:
    host::PhoneOptions optionsWithGallery() const
    {
        auto result = options();
        result.bundle = GALLERY_BUNDLE;
        return result;
    }
    host::Screen& openScreen(const host::PhoneOptions& options)
    {
        screen.reset();
        open(options);
        screen = std::make_unique<host::Screen>(*phone);
        return *screen;
    }
    ~AccessTest() override { screen.reset(); }

    /// As of now.
    const host::Element& root() const
    {
        screen->invalidate();
        return screen->root();
    }
    std::vector<std::string> stops() const
    {
        std::vector<std::string> names;
        for (const auto* element : host::focusableElements(root()))
            names.push_back(element->name);
        return names;
    }
    /// The first of this name, and of this role where one is given. A failure, and an empty one, without any.
    host::Element element(std::string_view name, std::optional<host::ElementRole> role = {}) const
    {
        const auto* const found = find(root(), name, role);
        EXPECT_TRUE(found) << name;
        return found ? *found : host::Element {};
    }
    bool has(std::string_view name) const { return find(root(), name, {}); }
    void openColorPage() const
    {
        ASSERT_TRUE(screen->actions().press(element("Button Color")));
        ASSERT_EQ(depth(), 2U);
    }

    std::unique_ptr<host::Screen> screen;

private:
    static const host::Element* find(
        const host::Element& element, std::string_view name, std::optional<host::ElementRole> role)
    {
        if (element.name == name && (!role || element.id.role == *role))
            return &element;
        for (const auto& child : element.children) {
            if (const auto* found = find(child, name, role))
                return found;
        }
        return nullptr;
    }
};
