#include "../NSNumberFormatter.h"

#include "Icu.h"

#include <algorithm>
#include <unicode/numberformatter.h>

namespace platform {

struct NSNumberFormatter::Impl {
    icu::Locale locale = deviceLocale();
    NSNumberFormatterStyle style = NSNumberFormatterStyle::None;
    int maximumFractionDigits = 0;
    icu::number::LocalizedNumberFormatter formatter = makeFormatter();

    icu::number::LocalizedNumberFormatter makeFormatter() const
    {
        const auto grouping
            = style == NSNumberFormatterStyle::Decimal ? UNUM_GROUPING_AUTO : UNUM_GROUPING_OFF;
        return icu::number::NumberFormatter::withLocale(locale)
            .grouping(grouping)
            .precision(icu::number::Precision::maxFraction(maximumFractionDigits))
            .roundingMode(UNUM_ROUND_HALFEVEN);
    }
};

NSNumberFormatter::NSNumberFormatter()
    : _impl(std::make_unique<Impl>())
{
}

NSNumberFormatter::~NSNumberFormatter() = default;
NSNumberFormatter::NSNumberFormatter(NSNumberFormatter&&) noexcept = default;
NSNumberFormatter& NSNumberFormatter::operator=(NSNumberFormatter&&) noexcept = default;

void NSNumberFormatter::setNumberStyle(NSNumberFormatterStyle style)
{
    constexpr int decimalFractionDigits = 3;
    _impl->style = style;
    setMaximumFractionDigits(style == NSNumberFormatterStyle::Decimal ? decimalFractionDigits : 0);
}

void NSNumberFormatter::setMaximumFractionDigits(int digits)
{
    constexpr int mostDigits = 999; // ICU's own limit.
    _impl->maximumFractionDigits = std::clamp(digits, 0, mostDigits);
    _impl->formatter = _impl->makeFormatter();
}

std::string NSNumberFormatter::stringFromNumber(long number) const
{
    UErrorCode status = U_ZERO_ERROR;
    return toUtf8(_impl->formatter.formatInt(number, status).toString(status));
}

}
