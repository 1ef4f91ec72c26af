#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// A bar on standard error, when somebody looks at it; otherwise nothing. It has gone when this goes.
class SheetProgress {
public:
    SheetProgress();
    ~SheetProgress();
    SheetProgress(const SheetProgress&) = delete;
    SheetProgress& operator=(const SheetProgress&) = delete;

    /// `deed` is a word, as "Rendering". Of nothing to do all is done.
    void show(std::string_view deed, std::size_t done, std::size_t all);
    /// A line of its own, above the bar, whether somebody looks or not.
    void say(const std::string& line);

private:
    void draw() const;
    void clear() const;

    bool _isSeen;
    std::string _text; ///< As it stands on the terminal.
};

}
