#pragma once

#include <optional>
#include <string>

namespace platform {
class UIWindow;
}

namespace host {

/// What a phone stores and shows, in short: two are equal when nobody could tell their phones apart.
struct Digest {
    std::optional<std::string> preferences; ///< Of the file's bytes; nothing without a file.
    std::string tree;
    std::string picture;

    bool operator==(const Digest&) const = default;
};

/// Of a window that is settled. Each part is a SHA-256 in hexadecimal.
Digest digestOf(platform::UIWindow&);

}
