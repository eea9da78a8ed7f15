#pragma once
// 16- and 32-bit integers of the document. Arithmetic on them is checked: a result out of
// range raises the overflow error instead of wrapping.

#include <concepts>
#include <cstdint>
#include <limits>

#include "model/app_error.h"

namespace tt {

template <std::integral T>
class Checked {
public:
    using value_type = T;

    constexpr Checked() = default;
    template <std::integral U>
    constexpr Checked(U v) : v_(Narrow(static_cast<std::int64_t>(v))) {}  // NOLINT: implicit by design
    template <std::integral U>
    constexpr Checked(Checked<U> v) : v_(Narrow(static_cast<std::int64_t>(U(v)))) {}  // NOLINT

    constexpr operator T() const { return v_; }  // NOLINT: reads like the plain integer
    constexpr T Value() const { return v_; }

    static constexpr T Narrow(std::int64_t v) {
        if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max())
            Raise(kErrOverflow);
        return static_cast<T>(v);
    }

    Checked& operator+=(std::int64_t b) { return *this = Narrow(std::int64_t{v_} + b); }
    Checked& operator-=(std::int64_t b) { return *this = Narrow(std::int64_t{v_} - b); }
    Checked& operator*=(std::int64_t b) { return *this = Narrow(std::int64_t{v_} * b); }
    Checked& operator++() { return *this += 1; }
    Checked& operator--() { return *this -= 1; }
    Checked operator++(int) { Checked old = *this; *this += 1; return old; }
    Checked operator--(int) { Checked old = *this; *this -= 1; return old; }
    Checked operator-() const { return Checked(Narrow(-std::int64_t{v_})); }

    friend Checked operator+(Checked a, Checked b) { return Narrow(std::int64_t{a.v_} + b.v_); }
    friend Checked operator-(Checked a, Checked b) { return Narrow(std::int64_t{a.v_} - b.v_); }
    friend Checked operator*(Checked a, Checked b) { return Narrow(std::int64_t{a.v_} * b.v_); }
    template <std::integral U>
    friend Checked operator+(Checked a, U b) { return Narrow(std::int64_t{a.v_} + std::int64_t(b)); }
    template <std::integral U>
    friend Checked operator+(U a, Checked b) { return Narrow(std::int64_t(a) + b.v_); }
    template <std::integral U>
    friend Checked operator-(Checked a, U b) { return Narrow(std::int64_t{a.v_} - std::int64_t(b)); }
    template <std::integral U>
    friend Checked operator-(U a, Checked b) { return Narrow(std::int64_t(a) - b.v_); }
    template <std::integral U>
    friend Checked operator*(Checked a, U b) { return Narrow(std::int64_t{a.v_} * std::int64_t(b)); }
    template <std::integral U>
    friend Checked operator*(U a, Checked b) { return Narrow(std::int64_t(a) * b.v_); }

private:
    T v_ = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

// Mixed widths widen to the larger type, as the language of the document does.
template <std::integral A, std::integral B>
    requires(!std::same_as<A, B>)
auto operator+(Checked<A> a, Checked<B> b) {
    using R = Checked<std::conditional_t<(sizeof(A) > sizeof(B)), A, B>>;
    return R(std::int64_t(A(a)) + std::int64_t(B(b)));
}
template <std::integral A, std::integral B>
    requires(!std::same_as<A, B>)
auto operator-(Checked<A> a, Checked<B> b) {
    using R = Checked<std::conditional_t<(sizeof(A) > sizeof(B)), A, B>>;
    return R(std::int64_t(A(a)) - std::int64_t(B(b)));
}
template <std::integral A, std::integral B>
    requires(!std::same_as<A, B>)
auto operator*(Checked<A> a, Checked<B> b) {
    using R = Checked<std::conditional_t<(sizeof(A) > sizeof(B)), A, B>>;
    return R(std::int64_t(A(a)) * std::int64_t(B(b)));
}

// A 64-bit float rounded to a checked integer, exact halves to the even neighbour.
Int16 RoundToInt16(double v);
Int32 RoundToInt32(double v);

}  // namespace tt
