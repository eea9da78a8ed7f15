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

class FieldReader {
public:
    explicit FieldReader(std::string_view data) : data_(data) {}

    // The end of the file: nothing is left to read.
    bool AtEnd() const { return pos_ >= data_.size(); }
    std::size_t Position() const { return pos_; }
    // What is left to read, as it stands in the file.
    std::string_view Rest() const { return data_.substr(pos_ < data_.size() ? pos_ : data_.size()); }

    // The next field: the text inside its quotes, or the bare text with the blanks around it
    // trimmed.
    std::string_view Next();

    std::string ReadText() { return std::string(Next()); }
    void ReadText(std::string& into) { into.assign(Next()); }

    std::int64_t ReadInteger(std::int64_t lo, std::int64_t hi) {
        const char* s = data_.data();
        const std::size_t n = data_.size();
        std::size_t p = pos_;
        if (p < n) {
            const bool neg = s[p] == '-';
            std::size_t q = p + (neg ? 1 : 0);
            const std::size_t first = q;
            std::int64_t v = 0;
            while (q < n && q - first < 18 && static_cast<unsigned char>(s[q] - '0') < 10)
                v = v * 10 + (s[q++] - '0');
            if (q > first && Finish(q)) {
                if (neg) v = -v;
                if (v < lo || v > hi) throw AppError(kErrOverflow);
                return v;
            }
        }
        return ReadIntegerSlow(lo, hi);
    }
    Int16 ReadInt16() { return static_cast<std::int16_t>(ReadInteger(-32768, 32767)); }
    Int32 ReadInt32() {
        return static_cast<std::int32_t>(ReadInteger(-2147483648LL, 2147483647LL));
    }

    Currency ReadCurrency() {
        const char* s = data_.data();
        const std::size_t n = data_.size();
        std::size_t p = pos_;
        if (p < n) {
            const bool neg = s[p] == '-';
            std::size_t q = p + (neg ? 1 : 0);
            const std::size_t first = q;
            std::int64_t whole = 0;
            while (q < n && q - first < 14 && static_cast<unsigned char>(s[q] - '0') < 10)
                whole = whole * 10 + (s[q++] - '0');
            bool digits = q > first;
            std::int64_t frac = 0;
            int places = 0;
            bool ok = true;
            if (q < n && s[q] == '.') {
                ++q;
                while (q < n && places < 4 && static_cast<unsigned char>(s[q] - '0') < 10) {
                    frac = frac * 10 + (s[q++] - '0');
                    ++places;
                }
                ok = places > 0;
                digits = digits || places > 0;
            }
            if (ok && digits && Finish(q)) {
                static constexpr std::int64_t kScale[] = {10000, 1000, 100, 10, 1};
                std::int64_t raw = whole * 10000 + frac * kScale[places];
                return Currency::FromRaw(neg ? -raw : raw);
            }
        }
        return ReadCurrencySlow();
    }

    Flag ReadFlag() {
        const char* s = data_.data();
        const std::size_t n = data_.size();
        const std::size_t p = pos_;
        if (p + 6 <= n && s[p] == '#') {
            if (std::memcmp(s + p, "#TRUE#", 6) == 0 && Finish(p + 6)) return true;
            if (p + 7 <= n && std::memcmp(s + p, "#FALSE#", 7) == 0 && Finish(p + 7)) return false;
        }
        return ReadFlagSlow();
    }

    float ReadSingle();
    double ReadDouble();
    DateTime ReadDate();

private:
    // Ends a field read in place at q: true, past its delimiter, when a comma, a line end or
    // the end of the file stands there.
    bool Finish(std::size_t q) {
        const std::size_t n = data_.size();
        if (q >= n) {
            pos_ = n;
            return true;
        }
        const char c = data_[q];
        if (c == ',' || c == '\n') {
            pos_ = q + 1;
            return true;
        }
        if (c == '\r') {
            pos_ = q + 1 < n && data_[q + 1] == '\n' ? q + 2 : q + 1;
            return true;
        }
        return false;
    }
    std::int64_t ReadIntegerSlow(std::int64_t lo, std::int64_t hi);
    Currency ReadCurrencySlow();
    Flag ReadFlagSlow();

    std::string_view data_;
    std::size_t pos_ = 0;
};

}  // namespace tt
