#include "files/field_reader.h"

#include <cmath>
#include <cstring>

#include "model/app_error.h"
#include "model/number_text.h"

namespace tt {

namespace {
inline bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// A flag or date field is written between number signs.
bool Unwrap(std::string_view& s) {
    if (s.size() >= 2 && s.front() == '#' && s.back() == '#') {
        s = s.substr(1, s.size() - 2);
        return true;
    }
    return false;
}
}  // namespace

std::string_view FieldReader::Next() {
    const std::size_t n = data_.size();
    if (pos_ >= n) throw AppError(kErrInputPastEnd);
    std::size_t p = pos_;
    while (p < n && IsBlank(data_[p])) ++p;
    std::string_view value;
    if (p < n && data_[p] == '"') {
        std::size_t start = p + 1;
        const void* q = std::memchr(data_.data() + start, '"', n - start);
        std::size_t end =
            q ? static_cast<std::size_t>(static_cast<const char*>(q) - data_.data()) : n;
        value = data_.substr(start, end - start);
        p = end < n ? end + 1 : n;
        // Whatever stands between the closing quote and the delimiter is ignored.
        while (p < n && data_[p] != ',' && data_[p] != '\r' && data_[p] != '\n') ++p;
    } else {
        std::size_t start = p;
        while (p < n && data_[p] != ',' && data_[p] != '\r' && data_[p] != '\n') ++p;
        std::size_t end = p;
        while (end > start && IsBlank(data_[end - 1])) --end;
        value = data_.substr(start, end - start);
    }
    if (p < n) {
        if (data_[p] == ',') {
            ++p;
        } else if (data_[p] == '\r') {
            ++p;
            if (p < n && data_[p] == '\n') ++p;
        } else {
            ++p;  // '\n'
        }
    }
    pos_ = p;
    return value;
}

std::int64_t FieldReader::ReadIntegerSlow(std::int64_t lo, std::int64_t hi) {
    std::string_view s = Next();
    // The common case: an optional minus sign and a few digits.
    std::size_t i = 0;
    bool neg = false;
    if (!s.empty() && s[0] == '-') {
        neg = true;
        i = 1;
    }
    if (i < s.size() && s.size() - i <= 12) {
        std::int64_t v = 0;
        std::size_t j = i;
        for (; j < s.size(); ++j) {
            char c = s[j];
            if (c < '0' || c > '9') break;
            v = v * 10 + (c - '0');
        }
        if (j == s.size()) {
            if (neg) v = -v;
            if (v < lo || v > hi) throw AppError(kErrOverflow);
            return v;
        }
    }
    if (Unwrap(s)) {
        if (s == "TRUE") return -1;
        if (s == "FALSE") return 0;
        throw AppError(kErrTypeMismatch);
    }
    auto d = ParseDoubleField(s);
    if (!d) throw AppError(kErrTypeMismatch);
    double r = std::nearbyint(*d);
    if (!(r >= static_cast<double>(lo) && r <= static_cast<double>(hi)))
        throw AppError(kErrOverflow);
    return static_cast<std::int64_t>(r);
}

Currency FieldReader::ReadCurrencySlow() {
    auto c = ParseCurrencyField(Next());
    if (!c) throw AppError(kErrTypeMismatch);
    return *c;
}

float FieldReader::ReadSingle() {
    auto f = ParseSingleField(Next());
    if (!f) throw AppError(kErrTypeMismatch);
    return *f;
}

double FieldReader::ReadDouble() {
    auto d = ParseDoubleField(Next());
    if (!d) throw AppError(kErrTypeMismatch);
    return *d;
}

Flag FieldReader::ReadFlagSlow() {
    std::string_view s = Next();
    if (s == "#TRUE#") return true;
    if (s == "#FALSE#") return false;
    auto d = ParseDoubleField(s);
    if (!d) throw AppError(kErrTypeMismatch);
    return *d != 0;
}

DateTime FieldReader::ReadDate() {
    std::string_view s = Next();
    Unwrap(s);
    auto d = DateTime::Parse(s);
    if (!d) throw AppError(kErrTypeMismatch);
    return *d;
}

}  // namespace tt
