#pragma once

namespace platform {

enum class NSComparisonResult { Ascending = -1, Same = 0, Descending = 1 };

/// An instant: seconds since 2001-01-01 00:00:00 UTC, with their fraction.
class NSDate {
public:
    NSDate() = default;
    explicit NSDate(double timeIntervalSinceReferenceDate)
        : _seconds(timeIntervalSinceReferenceDate)
    {
    }

    /// The device's clock, which a host may have stopped (see Device.h).
    static NSDate date();
    static NSDate dateWithTimeIntervalSince1970(double seconds);

    double timeIntervalSinceReferenceDate() const { return _seconds; }
    double timeIntervalSince1970() const;
    NSDate dateByAddingTimeInterval(double seconds) const;

    /// Ascending when this date is earlier than the other. Fractions count.
    NSComparisonResult compare(const NSDate& other) const;

    bool operator==(const NSDate&) const = default;

private:
    double _seconds = 0;
};

}
