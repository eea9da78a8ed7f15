#pragma once
// The general error path of every event handler.

#include <string>

#include "model/app_error.h"

namespace tt {

// "The system has detected an unexpected error." CR LF "Error # 13:  Type mismatch, Source:  ..."
std::string UnexpectedErrorText(const AppError& err);
// Normal pointer, three beeps, the box with an OK button, normal pointer.
void ShowUnexpectedError(const AppError& err);

}  // namespace tt
