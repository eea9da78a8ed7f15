#include "model/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "model/app_error.h"

namespace tt {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Length of a plain decimal number at the start of s: optional sign, digits with at most one
// point. Returns 0 when no digit is found.
std::size_t PlainNumberLength(std::string_view s, bool& anyDigit) {
    std::size_t i = 0;
    anyDigit = false;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    bool point = false;
    for (; i < s.size(); ++i) {
        if (IsDigit(s[i])) {
            anyDigit = true;
        } else if (s[i] == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    return i;
}

// Decimal exponent of the leading digit of a number text that is known to be valid: 2 for
// "123.4", -3 for "0.00123", plus any exponent written after it.
std::int64_t LeadingExponent(std::string_view s) {
    std::int64_t e = 0;
    std::size_t i = 0;
    std::int64_t whole = 0;
    bool seenNonZero = false;
    for (; i < s.size() && IsDigit(s[i]); ++i) {
        if (s[i] != '0') seenNonZero = true;
        if (seenNonZero) ++whole;
    }
    if (seenNonZero) {
        e = whole - 1;
    } else if (i < s.size() && s[i] == '.') {
        ++i;
        std::int64_t zeros = 0;
        while (i < s.size() && s[i] == '0') ++zeros, ++i;
        e = -(zeros + 1);
    }
    while (i < s.size() && (IsDigit(s[i]) || s[i] == '.')) ++i;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        ++i;
        bool neg = false;
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) neg = s[i++] == '-';
        std::int64_t x = 0;
        for (; i < s.size() && IsDigit(s[i]); ++i)
            x = std::min<std::int64_t>(x * 10 + (s[i] - '0'), 1000000);
        e += neg ? -x : x;
    }
    return e;
}

// Reads a number text already checked to be one: an optional sign, digits with at most one
// point (".5" and "5." included), and for the file fields an exponent marked e, E, d or D.
// A value too large for the type is an overflow; one too small to hold reads as 0.
template <class T>
T ParseDecimal(std::string_view s) {
    bool neg = false;
    if (!s.empty() && (s[0] == '+' || s[0] == '-')) {
        neg = s[0] == '-';
        s.remove_prefix(1);
    }
    std::string copy;
    if (s.find_first_of("dD") != std::string_view::npos) {
        copy.assign(s);
        for (char& c : copy)
            if (c == 'd' || c == 'D') c = 'e';
        s = copy;
    }
    T v = 0;
    auto r = std::from_chars(s.data(), s.data() + s.size(), v);
    if (r.ec == std::errc::result_out_of_range) {
        if (LeadingExponent(s) >= 0) Raise(kErrOverflow);
        v = 0;
    }
    if (!std::isfinite(v)) Raise(kErrOverflow);
    return neg ? -v : v;
}

// Inserts thousands separators into a run of digits.
std::string Group(std::string_view digits) {
    std::string out;
    out.reserve(digits.size() + digits.size() / 3);
    std::size_t n = digits.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) out.push_back(',');
        out.push_back(digits[i]);
    }
    return out;
}

std::string Compose(bool negative, std::string cents, MoneyPattern p) {
    // cents: decimal digits of the amount in hundredths, without leading zeros except "0".
    std::size_t first = cents.find_first_not_of('0');
    if (first == std::string::npos) {
        cents = "0";
        negative = false;
    } else {
        cents.erase(0, first);
    }
    while (cents.size() < 3) cents.insert(cents.begin(), '0');
    std::string whole = cents.substr(0, cents.size() - 2);
    std::string dec = cents.substr(cents.size() - 2);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    bool zeroLead = p == MoneyPattern::kPlainZero || p == MoneyPattern::kDollarZero;
    if (whole.empty() && zeroLead) whole = "0";
    std::string out;
    if (negative) out.push_back('-');
    if (p == MoneyPattern::kDollar || p == MoneyPattern::kDollarZero) out.push_back('$');
    out += Group(whole);
    out.push_back('.');
    out += dec;
    return out;
}

// Adds one to a string of decimal digits.
void Increment(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] == '9') {
            digits[i] = '0';
        } else {
            ++digits[i];
            return;
        }
    }
    digits.insert(digits.begin(), '1');
}

std::string Shorten15(double v) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    std::string s = buf;
    auto e = s.find('e');
    if (e != std::string::npos) {
        // Exponent form: "1E+20", "1E-06".
        std::string mant = s.substr(0, e);
        std::string ex = s.substr(e + 1);
        char sign = ex[0];
        std::string digits = ex.substr(1);
        digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
        if (digits.size() < 2) digits.insert(digits.begin(), '0');
        s = mant + "E" + sign + digits;
    }
    return s;
}

}  // namespace

double Val(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    text.remove_prefix(i);
    bool anyDigit = false;
    std::size_t n = PlainNumberLength(text, anyDigit);
    if (!anyDigit) return 0.0;
    return ParseDecimal<double>(text.substr(0, n));
}

std::string NumText(double v) {
    if (v == 0) return "0";
    return Shorten15(v);
}

std::string NumText(std::int64_t v) {
    return std::to_string(v);
}

std::string Str(double v) {
    std::string t = NumText(v);
    return t[0] == '-' ? t : " " + t;
}

std::string Str(std::int64_t v) {
    return v < 0 ? std::to_string(v) : " " + std::to_string(v);
}

std::string FormatMoney(Currency c, MoneyPattern p) {
    std::int64_t raw = c.Raw();
    bool neg = raw < 0;
    std::uint64_t a = neg ? ~static_cast<std::uint64_t>(raw) + 1 : static_cast<std::uint64_t>(raw);
    std::uint64_t cents = a / 100;
    if (a % 100 >= 50) ++cents;
    return Compose(neg, std::to_string(cents), p);
}

std::string FormatMoney(double v, MoneyPattern p) {
    if (!std::isfinite(v)) Raise(kErrOverflow);
    if (v == 0) return Compose(false, "0", p);
    bool neg = v < 0;
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", std::fabs(v));
    // buf: d.dddddddddddddde+XX
    std::string md;
    md.push_back(buf[0]);
    md.append(buf + 2, 14);
    int exp = std::atoi(std::strchr(buf, 'e') + 1);
    std::string cents;
    int shift = 12 - exp;  // digits of md below one cent
    if (shift <= 0) {
        cents = md + std::string(static_cast<std::size_t>(-shift), '0');
    } else {
        int keep = 15 - shift;
        if (keep < 0) {
            cents = "0";
        } else {
            cents = keep > 0 ? md.substr(0, static_cast<std::size_t>(keep)) : "0";
            if (md[static_cast<std::size_t>(keep)] >= '5') Increment(cents);
        }
    }
    return Compose(neg, cents, p);
}

std::string PlainDecimal(Currency c) {
    std::string out;
    AppendFileNumber(out, c);
    return out;
}

void AppendFileNumber(std::string& out, Currency c) {
    std::int64_t raw = c.Raw();
    bool neg = raw < 0;
    std::uint64_t a = neg ? ~static_cast<std::uint64_t>(raw) + 1 : static_cast<std::uint64_t>(raw);
    std::uint64_t whole = a / 10000;
    unsigned frac = static_cast<unsigned>(a % 10000);
    if (neg) out.push_back('-');
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, whole);
    out.append(buf, r.ptr);
    if (frac != 0) {
        char f[5] = {char('0' + frac / 1000), char('0' + frac / 100 % 10),
                     char('0' + frac / 10 % 10), char('0' + frac % 10), 0};
        int len = 4;
        while (f[len - 1] == '0') --len;
        out.push_back('.');
        out.append(f, static_cast<std::size_t>(len));
    }
}

void AppendFileNumber(std::string& out, double d) {
    if (d == 0) {  // also -0
        out.push_back('0');
        return;
    }
    char buf[400];
    auto r = std::to_chars(buf, buf + sizeof buf, d, std::chars_format::fixed);
    out.append(buf, r.ptr);
}

void AppendFileNumber(std::string& out, float f) {
    if (f == 0) {
        out.push_back('0');
        return;
    }
    char buf[80];
    auto r = std::to_chars(buf, buf + sizeof buf, f, std::chars_format::fixed);
    out.append(buf, r.ptr);
}

void AppendFileNumber(std::int64_t v, std::string& out) {
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, r.ptr);
}

namespace {
// A whole-field number: sign, digits with one point, an optional exponent; at least one digit.
bool IsNumberText(std::string_view s, bool& hasExponent) {
    hasExponent = false;
    bool anyDigit = false;
    std::size_t n = PlainNumberLength(s, anyDigit);
    if (!anyDigit) return false;
    if (n == s.size()) return true;
    if (s[n] != 'e' && s[n] != 'E' && s[n] != 'd' && s[n] != 'D') return false;
    std::size_t i = n + 1;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    if (i >= s.size()) return false;
    for (; i < s.size(); ++i)
        if (!IsDigit(s[i])) return false;
    hasExponent = true;
    return true;
}

}  // namespace

std::optional<double> ParseDoubleField(std::string_view s) {
    if (s.empty()) return 0.0;
    bool ex = false;
    if (!IsNumberText(s, ex)) return std::nullopt;
    return ParseDecimal<double>(s);
}

std::optional<float> ParseSingleField(std::string_view s) {
    if (s.empty()) return 0.0f;
    bool ex = false;
    if (!IsNumberText(s, ex)) return std::nullopt;
    return ParseDecimal<float>(s);
}

std::optional<Currency> ParseCurrencyField(std::string_view s) {
    if (s.empty()) return Currency();
    bool ex = false;
    if (!IsNumberText(s, ex)) return std::nullopt;
    if (ex) return Currency::FromDouble(ParseDecimal<double>(s));
    bool neg = false;
    if (s[0] == '+' || s[0] == '-') {
        neg = s[0] == '-';
        s.remove_prefix(1);
    }
    // Exact decimal: whole part, then four decimals, rounded half to even beyond them.
    std::uint64_t whole = 0;
    std::size_t i = 0;
    for (; i < s.size() && IsDigit(s[i]); ++i) {
        if (__builtin_mul_overflow(whole, 10u, &whole) ||
            __builtin_add_overflow(whole, static_cast<unsigned>(s[i] - '0'), &whole))
            Raise(kErrOverflow);
    }
    std::uint64_t frac = 0;
    int fracDigits = 0;
    bool roundUp = false;
    if (i < s.size() && s[i] == '.') {
        ++i;
        for (; i < s.size() && fracDigits < 4; ++i, ++fracDigits)
            frac = frac * 10 + unsigned(s[i] - '0');
        if (i < s.size()) {
            // Beyond four decimals: half to even on what is dropped.
            char first = s[i];
            bool restNonZero = s.find_first_not_of('0', i + 1) != std::string_view::npos;
            if (first > '5' || (first == '5' && restNonZero))
                roundUp = true;
            else if (first == '5')
                roundUp = (frac & 1) != 0;
        }
    }
    while (fracDigits < 4) {
        frac *= 10;
        ++fracDigits;
    }
    std::uint64_t raw;
    if (__builtin_mul_overflow(whole, 10000u, &raw) || __builtin_add_overflow(raw, frac, &raw))
        Raise(kErrOverflow);
    if (roundUp && __builtin_add_overflow(raw, 1u, &raw)) Raise(kErrOverflow);
    if (neg) {
        if (raw > 9223372036854775808ull) Raise(kErrOverflow);
        return Currency::FromRaw(static_cast<std::int64_t>(0 - raw));
    }
    if (raw > 9223372036854775807ull) Raise(kErrOverflow);
    return Currency::FromRaw(static_cast<std::int64_t>(raw));
}

}  // namespace tt
