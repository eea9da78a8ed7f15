#include "model/date_time.h"

#include <cstdio>

namespace tt {

namespace {
// Days from 1970-01-01 to the civil date (proleptic Gregorian).
std::int64_t DaysFromCivil(std::int64_t y, unsigned m, unsigned d) {
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

void CivilFromDays(std::int64_t z, int& y, int& m, int& d) {
    z += 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t yy = static_cast<std::int64_t>(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    y = static_cast<int>(yy + (m <= 2));
}

bool Digits(std::string_view s, std::size_t pos, std::size_t n, int& out) {
    if (pos + n > s.size()) return false;
    int v = 0;
    for (std::size_t i = pos; i < pos + n; ++i) {
        if (s[i] < '0' || s[i] > '9') return false;
        v = v * 10 + (s[i] - '0');
    }
    out = v;
    return true;
}

int DaysInMonth(int y, int m) {
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (m == 2 && ((y % 4 == 0 && y % 100 != 0) || y % 400 == 0)) return 29;
    return kDays[m - 1];
}
}  // namespace

std::int64_t DateTime::SecondsSinceEpoch() const {
    return DaysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) * 86400 +
           hour * 3600 + minute * 60 + second;
}

DateTime DateTime::FromSecondsSinceEpoch(std::int64_t s) {
    std::int64_t days = s >= 0 ? s / 86400 : -((-s + 86399) / 86400);
    std::int64_t rem = s - days * 86400;
    DateTime t;
    CivilFromDays(days, t.year, t.month, t.day);
    t.hour = static_cast<int>(rem / 3600);
    t.minute = static_cast<int>(rem / 60 % 60);
    t.second = static_cast<int>(rem % 60);
    return t;
}

double DateTime::Serial() const {
    static const std::int64_t kBase = DaysFromCivil(1899, 12, 30);
    std::int64_t days =
        DaysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) - kBase;
    return static_cast<double>(days) + (hour * 3600 + minute * 60 + second) / 86400.0;
}

std::string DateTime::Text() const {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", year, month, day, hour, minute,
                  second);
    return buf;
}

std::optional<DateTime> DateTime::Parse(std::string_view s) {
    DateTime t;
    if (!Digits(s, 0, 4, t.year) || s.size() < 10 || s[4] != '-' || !Digits(s, 5, 2, t.month) ||
        s[7] != '-' || !Digits(s, 8, 2, t.day))
        return std::nullopt;
    if (t.month < 1 || t.month > 12 || t.day < 1 || t.day > DaysInMonth(t.year, t.month))
        return std::nullopt;
    t.hour = t.minute = t.second = 0;
    if (s.size() == 10) return t;
    if (s.size() != 19 || s[10] != ' ' || !Digits(s, 11, 2, t.hour) || s[13] != ':' ||
        !Digits(s, 14, 2, t.minute) || s[16] != ':' || !Digits(s, 17, 2, t.second))
        return std::nullopt;
    if (t.hour > 23 || t.minute > 59 || t.second > 59) return std::nullopt;
    return t;
}

}  // namespace tt
