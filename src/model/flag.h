#pragma once
// The truth value of the document: -1 for true, 0 for false; any other value counts as true,
// but only -1 and 0 are ever stored.

#include <cstdint>

namespace tt {

class Flag {
  public:
    constexpr Flag() = default;
    constexpr Flag(bool b) : v_(b ? -1 : 0) {}  // NOLINT: implicit by design
    constexpr explicit operator bool() const { return v_ != 0; }
    constexpr std::int16_t Raw() const { return v_; }
    constexpr friend bool operator==(Flag a, Flag b) { return bool(a) == bool(b); }

  private:
    std::int16_t v_ = 0;
};

}  // namespace tt
