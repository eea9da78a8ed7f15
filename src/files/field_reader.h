#pragma once
// Reads the comma-separated fields of a race file or recovery file, one at a time, from the
// whole file held in memory. Text is taken between double quotes; numbers, flags ("#TRUE#",
// "#FALSE#") and dates ("#yyyy-mm-dd hh:mm:ss#") are read into their types, and a field that
// is not of the type expected raises the type mismatch error.
//
// The rules: blanks and tabs before a field are skipped, and after an unquoted one; text after
// a closing quote up to the next comma or line end is ignored; an unclosed quote takes the rest
// of the file; CR LF, LF or CR alone end a line. An empty field reads as 0. A number too large
// for its field is an overflow. Reading past the end raises "Input past end of file".
//
// The numbers and flags the writer produces (a sign, digits, at most four decimals, then the
// delimiter) are read in place; anything else goes the general way through Next().

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "model/app_error.h"
#include "model/checked_int.h"
#include "model/currency.h"
#include "model/date_time.h"
#include "model/flag.h"

namespace tt {

// The plain forms the writer produces, read in place: a field is taken only when it stands
// whole in that form, and pos is then moved past its delimiter. Anything else (blanks, quotes,
// exponents, more digits) is left to the general readers.
namespace field_detail {

// Ends a field at q: true, with pos past the delimiter, when a comma, a line end or the end of
// the file stands there.
inline bool Finish(const char* s, std::size_t n, std::size_t q, std::size_t& pos) {
    if (q >= n) {
        pos = n;
        return true;
    }
    const char c = s[q];
    if (c == ',' || c == '\n') {
        pos = q + 1;
        return true;
    }
    if (c == '\r') {
        pos = q + 1 < n && s[q + 1] == '\n' ? q + 2 : q + 1;
        return true;
    }
    return false;
}

// An optional minus sign and up to 18 digits.
inline bool Integer(const char* s, std::size_t n, std::size_t& pos, std::int64_t& value) {
    std::size_t q = pos;
    if (q >= n) return false;
    const bool neg = s[q] == '-';
    if (neg) ++q;
    const std::size_t first = q;
    std::int64_t v = 0;
    while (q < n && q - first < 18 && static_cast<unsigned char>(s[q] - '0') < 10)
        v = v * 10 + (s[q++] - '0');
    if (q == first || !Finish(s, n, q, pos)) return false;
    value = neg ? -v : v;
    return true;
}

// An optional minus sign, up to 14 digits, and a point with one to four decimals; a digit at
// least.
inline bool Money(const char* s, std::size_t n, std::size_t& pos, std::int64_t& raw) {
    std::size_t q = pos;
    if (q >= n) return false;
    const bool neg = s[q] == '-';
    if (neg) ++q;
    const std::size_t first = q;
    std::int64_t whole = 0;
    while (q < n && q - first < 14 && static_cast<unsigned char>(s[q] - '0') < 10)
        whole = whole * 10 + (s[q++] - '0');
    bool digits = q > first;
    std::int64_t frac = 0;
    int places = 0;
    if (q < n && s[q] == '.') {
        ++q;
        while (q < n && places < 4 && static_cast<unsigned char>(s[q] - '0') < 10) {
            frac = frac * 10 + (s[q++] - '0');
            ++places;
        }
        if (places == 0) return false;
        digits = true;
    }
    if (!digits || !Finish(s, n, q, pos)) return false;
    static constexpr std::int64_t kScale[] = {10000, 1000, 100, 10, 1};
    const std::int64_t v = whole * 10000 + frac * kScale[places];
    raw = neg ? -v : v;
    return true;
}

inline bool TrueFalse(const char* s, std::size_t n, std::size_t& pos, bool& value) {
    const std::size_t p = pos;
    if (p + 6 > n || s[p] != '#') return false;
    if (std::memcmp(s + p, "#TRUE#", 6) == 0 && Finish(s, n, p + 6, pos)) {
        value = true;
        return true;
    }
    if (p + 7 <= n && std::memcmp(s + p, "#FALSE#", 7) == 0 && Finish(s, n, p + 7, pos)) {
        value = false;
        return true;
    }
    return false;
}

}  // namespace field_detail

class FieldCursor;

class FieldReader {
  public:
    explicit FieldReader(std::string_view data) : data_(data) {}

    // The end of the file: nothing is left to read.
    bool AtEnd() const { return pos_ >= data_.size(); }
    std::size_t Position() const { return pos_; }

    // The next field: the text inside its quotes, or the bare text with the blanks around it
    // trimmed.
    std::string_view Next();

    std::string ReadText() { return std::string(Next()); }
    void ReadText(std::string& into) { into.assign(Next()); }

    std::int64_t ReadInteger(std::int64_t lo, std::int64_t hi) {
        std::int64_t v;
        if (!field_detail::Integer(data_.data(), data_.size(), pos_, v))
            return ReadIntegerSlow(lo, hi);
        if (v < lo || v > hi) throw AppError(kErrOverflow);
        return v;
    }
    Int16 ReadInt16() { return static_cast<std::int16_t>(ReadInteger(-32768, 32767)); }
    Int32 ReadInt32() {
        return static_cast<std::int32_t>(ReadInteger(-2147483648LL, 2147483647LL));
    }
    Currency ReadCurrency() {
        std::int64_t raw;
        if (!field_detail::Money(data_.data(), data_.size(), pos_, raw)) return ReadCurrencySlow();
        return Currency::FromRaw(raw);
    }
    Flag ReadFlag() {
        bool f;
        if (!field_detail::TrueFalse(data_.data(), data_.size(), pos_, f)) return ReadFlagSlow();
        return f;
    }
    float ReadSingle();
    double ReadDouble();
    DateTime ReadDate();

  private:
    friend class FieldCursor;
    std::int64_t ReadIntegerSlow(std::int64_t lo, std::int64_t hi);
    Currency ReadCurrencySlow();
    Flag ReadFlagSlow();

    std::string_view data_;
    std::size_t pos_ = 0;
};

// Reads the numbers and flags of one record through a position of its own, which the compiler
// can keep at hand, and hands the position back to the reader when it goes. A field in any but
// the plain form is read by the reader itself.
class FieldCursor {
  public:
    explicit FieldCursor(FieldReader& in)
        : in_(in), s_(in.data_.data()), n_(in.data_.size()), pos_(in.pos_) {}
    ~FieldCursor() { in_.pos_ = pos_; }
    FieldCursor(const FieldCursor&) = delete;
    FieldCursor& operator=(const FieldCursor&) = delete;

    [[gnu::always_inline]] std::int64_t Integer(std::int64_t lo, std::int64_t hi) {
        std::int64_t v;
        if (!field_detail::Integer(s_, n_, pos_, v))
            return Slow([&] { return in_.ReadIntegerSlow(lo, hi); });
        if (v < lo || v > hi) throw AppError(kErrOverflow);
        return v;
    }
    Int16 Int16Field() { return static_cast<std::int16_t>(Integer(-32768, 32767)); }
    Int32 Int32Field() { return static_cast<std::int32_t>(Integer(-2147483648LL, 2147483647LL)); }
    Currency Money() {
        std::int64_t raw;
        if (!field_detail::Money(s_, n_, pos_, raw))
            return Slow([&] { return in_.ReadCurrencySlow(); });
        return Currency::FromRaw(raw);
    }
    Flag TrueFalse() {
        bool f;
        if (!field_detail::TrueFalse(s_, n_, pos_, f))
            return Slow([&] { return in_.ReadFlagSlow(); });
        return f;
    }

  private:
    template <class Read>
    auto Slow(Read read) -> decltype(read()) {
        in_.pos_ = pos_;
        auto v = read();
        pos_ = in_.pos_;
        return v;
    }
    FieldReader& in_;
    const char* s_;
    std::size_t n_;
    std::size_t pos_;
};

}  // namespace tt
