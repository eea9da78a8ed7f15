#pragma once
// Amounts in the tests: written as decimals, and shown as such when an expectation fails.

#include <ostream>

#include "model/currency.h"

namespace tt {
inline void PrintTo(const Currency& c, std::ostream* os) {
    *os << c.Raw() / 10000.0;
}
}  // namespace tt

namespace tt::test {

inline Currency C(double v) {
    return Currency::FromDouble(v);
}

}  // namespace tt::test
