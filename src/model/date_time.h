#pragma once
// A date and time of day to the second, as the race file and the recovery file stamp them.

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tt {

struct DateTime {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;

    // Days since 1899-12-30 with the time of day as the fraction, so that two stamps can be
    // subtracted in days.
    double Serial() const;
    std::int64_t SecondsSinceEpoch() const;  // 1970-01-01, no time zone
    static DateTime FromSecondsSinceEpoch(std::int64_t s);

    // "yyyy-mm-dd hh:mm:ss"
    std::string Text() const;
    // Reads "yyyy-mm-dd hh:mm:ss" or "yyyy-mm-dd"; nothing when the text is no date.
    static std::optional<DateTime> Parse(std::string_view text);

    friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

}  // namespace tt
