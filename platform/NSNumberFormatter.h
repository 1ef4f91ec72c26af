#pragma once

#include <memory>
#include <string>

namespace platform {

enum class NSNumberFormatterStyle { None = 0, Decimal = 1 };

/// Numbers with the digits and separators of the user's locale, as it was when the formatter was made.
class NSNumberFormatter {
public:
    NSNumberFormatter();
    ~NSNumberFormatter();
    NSNumberFormatter(NSNumberFormatter&&) noexcept;
    NSNumberFormatter& operator=(NSNumberFormatter&&) noexcept;

    void setNumberStyle(NSNumberFormatterStyle);
    void setMaximumFractionDigits(int);

    std::string stringFromNumber(long) const;

private:
    struct Impl;
    std::unique_ptr<Impl> _impl;
};

}
