#pragma once
// Money: a signed 64-bit count of 1/10,000. Addition, subtraction and comparison are exact;
// every conversion is named, and an overflow raises an error.

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace tt {

class Currency {
  public:
    static constexpr std::int64_t kScale = 10000;

    constexpr Currency() = default;
    static constexpr Currency FromRaw(std::int64_t raw) { return Currency(raw); }
    // Whole units, such as dollars.
    static Currency FromInt(std::int64_t units);
    // The nearest 1/10,000, exact halves to the even neighbour.
    static Currency FromDouble(double v);

    constexpr std::int64_t Raw() const { return raw_; }
    double ToDouble() const { return static_cast<double>(raw_) / kScale; }
    constexpr bool IsZero() const { return raw_ == 0; }

    friend Currency operator+(Currency a, Currency b);
    friend Currency operator-(Currency a, Currency b);
    Currency operator-() const;
    // A product with a whole number stays exact.
    friend Currency operator*(Currency a, std::int64_t n);
    friend Currency operator*(std::int64_t n, Currency a) { return a * n; }
    Currency& operator+=(Currency b) { return *this = *this + b; }
    Currency& operator-=(Currency b) { return *this = *this - b; }

    constexpr friend auto operator<=>(Currency a, Currency b) = default;
    constexpr friend bool operator==(Currency a, Currency b) = default;

  private:
    constexpr explicit Currency(std::int64_t raw) : raw_(raw) {}
    std::int64_t raw_ = 0;
};

Currency Abs(Currency c);

}  // namespace tt
