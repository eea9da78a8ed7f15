#include "model/currency.h"

#include <cmath>

#include "model/app_error.h"
#include "model/checked_int.h"

namespace tt {

namespace {
// 2^63 as a double; every product at or beyond it overflows.
constexpr double kLimit = 9223372036854775808.0;

// To the nearest whole number, exact halves to the even neighbour, whatever rounding mode
// the floating point unit was left in.
double RoundHalfEven(double v) {
    double r = std::floor(v);
    double diff = v - r;
    if (diff > 0.5 || (diff == 0.5 && std::fmod(r, 2.0) != 0.0)) r += 1.0;
    return r;
}
}  // namespace

Currency Currency::FromInt(std::int64_t units) {
    std::int64_t raw;
    if (__builtin_mul_overflow(units, kScale, &raw)) Raise(kErrOverflow);
    return Currency(raw);
}

Currency Currency::FromDouble(double v) {
    // NaN and the infinities fail the range test too.
    double scaled = RoundHalfEven(v * static_cast<double>(kScale));
    if (!(scaled >= -kLimit && scaled < kLimit)) Raise(kErrOverflow);
    return Currency(static_cast<std::int64_t>(scaled));
}

Currency operator+(Currency a, Currency b) {
    std::int64_t r;
    if (__builtin_add_overflow(a.raw_, b.raw_, &r)) Raise(kErrOverflow);
    return Currency(r);
}

Currency operator-(Currency a, Currency b) {
    std::int64_t r;
    if (__builtin_sub_overflow(a.raw_, b.raw_, &r)) Raise(kErrOverflow);
    return Currency(r);
}

Currency Currency::operator-() const {
    return Currency() - *this;
}

Currency operator*(Currency a, std::int64_t n) {
    std::int64_t r;
    if (__builtin_mul_overflow(a.raw_, n, &r)) Raise(kErrOverflow);
    return Currency(r);
}

Currency Abs(Currency c) {
    return c < Currency() ? -c : c;
}

Int16 RoundToInt16(double v) {
    double r = RoundHalfEven(v);
    if (!(r >= -32768.0 && r <= 32767.0)) Raise(kErrOverflow);
    return Int16(static_cast<std::int16_t>(r));
}

Int32 RoundToInt32(double v) {
    double r = RoundHalfEven(v);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) Raise(kErrOverflow);
    return Int32(static_cast<std::int32_t>(r));
}

}  // namespace tt
