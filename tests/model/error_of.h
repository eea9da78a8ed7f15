#pragma once
// The number of the error a piece of code raises, or 0 when it raises none.

#include "model/app_error.h"

namespace tt::test {

template <class F>
int ErrorOf(F&& f) {
    try {
        f();
    } catch (const AppError& e) {
        return e.Number();
    }
    return 0;
}

}  // namespace tt::test
