#pragma once
// How numbers are read from and written to text: the leading-number rule of typed amounts,
// the number text of messages and grids, the money patterns, and the number fields of the
// race file.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/currency.h"

namespace tt {

// The leading-number rule: blanks are skipped, then an optional sign and digits with at most
// one point; the first other character ends the number. Nothing read gives 0. So "1,000.00"
// reads as 1.
double Val(std::string_view text);

// Number text with the blank reserved for the sign: " 12", "-3", " 0.5". At most 15
// significant digits.
std::string Str(double v);
std::string Str(std::int64_t v);
inline std::string Str(int v) {
    return Str(static_cast<std::int64_t>(v));
}
inline std::string Str(std::int16_t v) {
    return Str(static_cast<std::int64_t>(v));
}
// The same without the sign blank: "12".
std::string NumText(double v);
std::string NumText(std::int64_t v);
inline std::string NumText(int v) {
    return NumText(static_cast<std::int64_t>(v));
}
inline std::string NumText(std::int16_t v) {
    return NumText(static_cast<std::int64_t>(v));
}

// The money patterns. Two decimals, exact halves away from zero; a Currency is taken at its
// exact value, a float first at 15 significant digits. A negative amount that rounds to zero
// shows no minus sign.
enum class MoneyPattern {
    kPlain,       // "#,#.00": nothing before the point when the whole part is 0
    kDollar,      // "$#,#.00"
    kPlainZero,   // "#,###,##0.00": a zero before the point
    kDollarZero,  // "$#,###,##0.00"
};
std::string FormatMoney(Currency c, MoneyPattern p);
std::string FormatMoney(double v, MoneyPattern p);

// The plain decimal text of an amount, as a message prints it: "2", "-1.5", "0.25".
std::string PlainDecimal(Currency c);

// Number fields of the race file: the shortest text that reads back to the same value,
// positional, with a zero before the point of a fraction below 1.
void AppendFileNumber(std::string& out, Currency c);
void AppendFileNumber(std::string& out, double d);
void AppendFileNumber(std::string& out, float f);
void AppendFileNumber(std::int64_t v, std::string& out);

// Whole-field number readers for the race file. Each returns nothing when the text is not a
// number (a type mismatch); an empty text reads as 0.
std::optional<double> ParseDoubleField(std::string_view text);
std::optional<float> ParseSingleField(std::string_view text);
// Raises the overflow error when the value does not fit.
std::optional<Currency> ParseCurrencyField(std::string_view text);

}  // namespace tt
