#pragma once
// 16- and 32-bit integers of the document. Arithmetic on them is checked: a result out of
// range raises the overflow error instead of wrapping.

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "model/app_error.h"

namespace tt {

namespace detail {
// An integer of any type as a 64-bit one; past that range the result cannot fit anyway.
template <std::integral U>
constexpr std::int64_t Wide(U v) {
    if constexpr (std::is_unsigned_v<U> && sizeof(U) >= sizeof(std::int64_t)) {
        if (v > static_cast<U>(std::numeric_limits<std::int64_t>::max())) Raise(kErrOverflow);
    }
    return static_cast<std::int64_t>(v);
}
inline std::int64_t Add(std::int64_t a, std::int64_t b) {
    std::int64_t r;
    if (__builtin_add_overflow(a, b, &r)) Raise(kErrOverflow);
    return r;
}
inline std::int64_t Sub(std::int64_t a, std::int64_t b) {
    std::int64_t r;
    if (__builtin_sub_overflow(a, b, &r)) Raise(kErrOverflow);
    return r;
}
inline std::int64_t Mul(std::int64_t a, std::int64_t b) {
    std::int64_t r;
    if (__builtin_mul_overflow(a, b, &r)) Raise(kErrOverflow);
    return r;
}
}  // namespace detail

template <std::integral T>
class Checked {
  public:
    using value_type = T;

    constexpr Checked() = default;
    template <std::integral U>
    constexpr Checked(U v) : v_(Narrow(detail::Wide(v))) {}  // NOLINT: implicit by design
    template <std::integral U>
    constexpr Checked(Checked<U> v) : v_(Narrow(static_cast<std::int64_t>(U(v)))) {}  // NOLINT

    constexpr operator T() const { return v_; }  // NOLINT: reads like the plain integer
    constexpr T Value() const { return v_; }

    static constexpr T Narrow(std::int64_t v) {
        if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max())
            Raise(kErrOverflow);
        return static_cast<T>(v);
    }

    Checked& operator+=(std::int64_t b) { return *this = Narrow(detail::Add(v_, b)); }
    Checked& operator-=(std::int64_t b) { return *this = Narrow(detail::Sub(v_, b)); }
    Checked& operator*=(std::int64_t b) { return *this = Narrow(detail::Mul(v_, b)); }
    Checked& operator++() { return *this += 1; }
    Checked& operator--() { return *this -= 1; }
    Checked operator++(int) {
        Checked old = *this;
        *this += 1;
        return old;
    }
    Checked operator--(int) {
        Checked old = *this;
        *this -= 1;
        return old;
    }
    Checked operator-() const { return Checked(Narrow(-std::int64_t{v_})); }

    friend Checked operator+(Checked a, Checked b) { return Narrow(std::int64_t{a.v_} + b.v_); }
    friend Checked operator-(Checked a, Checked b) { return Narrow(std::int64_t{a.v_} - b.v_); }
    friend Checked operator*(Checked a, Checked b) { return Narrow(std::int64_t{a.v_} * b.v_); }
    template <std::integral U>
    friend Checked operator+(Checked a, U b) {
        return Narrow(detail::Add(a.v_, detail::Wide(b)));
    }
    template <std::integral U>
    friend Checked operator+(U a, Checked b) {
        return Narrow(detail::Add(detail::Wide(a), b.v_));
    }
    template <std::integral U>
    friend Checked operator-(Checked a, U b) {
        return Narrow(detail::Sub(a.v_, detail::Wide(b)));
    }
    template <std::integral U>
    friend Checked operator-(U a, Checked b) {
        return Narrow(detail::Sub(detail::Wide(a), b.v_));
    }
    template <std::integral U>
    friend Checked operator*(Checked a, U b) {
        return Narrow(detail::Mul(a.v_, detail::Wide(b)));
    }
    template <std::integral U>
    friend Checked operator*(U a, Checked b) {
        return Narrow(detail::Mul(detail::Wide(a), b.v_));
    }

  private:
    T v_ = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

// Mixed widths widen to the larger type, as the language of the document does.
template <std::integral A, std::integral B>
requires(!std::same_as<A, B>) auto operator+(Checked<A> a, Checked<B> b) {
    using R = Checked<std::conditional_t<(sizeof(A) > sizeof(B)), A, B>>;
    return R(std::int64_t(A(a)) + std::int64_t(B(b)));
}
template <std::integral A, std::integral B>
requires(!std::same_as<A, B>) auto operator-(Checked<A> a, Checked<B> b) {
    using R = Checked<std::conditional_t<(sizeof(A) > sizeof(B)), A, B>>;
    return R(std::int64_t(A(a)) - std::int64_t(B(b)));
}
template <std::integral A, std::integral B>
requires(!std::same_as<A, B>) auto operator*(Checked<A> a, Checked<B> b) {
    using R = Checked<std::conditional_t<(sizeof(A) > sizeof(B)), A, B>>;
    return R(std::int64_t(A(a)) * std::int64_t(B(b)));
}

// A 64-bit float rounded to a checked integer, exact halves to the even neighbour.
Int16 RoundToInt16(double v);
Int32 RoundToInt32(double v);

}  // namespace tt
