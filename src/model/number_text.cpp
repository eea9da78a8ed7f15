#include "model/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "model/app_error.h"

namespace tt {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

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

double ParsePlain(std::string_view s) {
    // from_chars takes no leading plus sign.
    bool neg = false;
    if (!s.empty() && (s[0] == '+' || s[0] == '-')) {
        neg = s[0] == '-';
        s.remove_prefix(1);
    }
    std::string tmp;
    if (!s.empty() && s[0] == '.') {
        tmp = "0";
        tmp.append(s);
        s = tmp;
    }
    if (!s.empty() && s.back() == '.') {
        if (tmp.empty()) tmp.assign(s);
        tmp.push_back('0');
        s = tmp;
    }
    double v = 0;
    auto r = std::from_chars(s.data(), s.data() + s.size(), v);
    if (r.ec == std::errc::result_out_of_range) v = HUGE_VAL;
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
    return ParsePlain(text.substr(0, n));
}

std::string NumText(double v) {
    if (v == 0) return "0";
    return Shorten15(v);
}

std::string NumText(std::int64_t v) { return std::to_string(v); }

std::string Str(double v) {
    std::string t = NumText(v);
    return t[0] == '-' ? t : " " + t;
}

std::string Str(std::int64_t v) { return v < 0 ? std::to_string(v) : " " + std::to_string(v); }

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
        char f[5] = {char('0' + frac / 1000), char('0' + frac / 100 % 10), char('0' + frac / 10 % 10),
                     char('0' + frac % 10), 0};
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

double ParseWithExponent(std::string_view s) {
    std::string t(s);
    for (char& c : t)
        if (c == 'd' || c == 'D') c = 'e';
    if (t[0] == '+') t.erase(0, 1);
    double v = 0;
    auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    if (r.ec == std::errc::result_out_of_range) return HUGE_VAL;
    return v;
}
}  // namespace

std::optional<double> ParseDoubleField(std::string_view s) {
    if (s.empty()) return 0.0;
    bool ex = false;
    if (!IsNumberText(s, ex)) return std::nullopt;
    double v = ex ? ParseWithExponent(s) : ParsePlain(s);
    if (!std::isfinite(v)) Raise(kErrOverflow);
    return v;
}

std::optional<float> ParseSingleField(std::string_view s) {
    if (s.empty()) return 0.0f;
    bool ex = false;
    if (!IsNumberText(s, ex)) return std::nullopt;
    std::string t(s);
    for (char& c : t)
        if (c == 'd' || c == 'D') c = 'e';
    bool neg = false;
    if (t[0] == '+' || t[0] == '-') {
        neg = t[0] == '-';
        t.erase(0, 1);
    }
    if (t[0] == '.') t.insert(t.begin(), '0');
    float v = 0;
    auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    if (r.ec == std::errc::result_out_of_range || !std::isfinite(v)) Raise(kErrOverflow);
    return neg ? -v : v;
}

std::optional<Currency> ParseCurrencyField(std::string_view s) {
    if (s.empty()) return Currency();
    bool ex = false;
    if (!IsNumberText(s, ex)) return std::nullopt;
    if (ex) return Currency::FromDouble(ParseWithExponent(s));
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
        for (; i < s.size() && fracDigits < 4; ++i, ++fracDigits) frac = frac * 10 + unsigned(s[i] - '0');
        if (i < s.size()) {
            // Beyond four decimals: half to even on what is dropped.
            char first = s[i];
            bool restNonZero = s.find_first_not_of('0', i + 1) != std::string_view::npos;
            if (first > '5' || (first == '5' && restNonZero)) roundUp = true;
            else if (first == '5') roundUp = (frac & 1) != 0;
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
