#pragma once
// The run-time errors of the program: a number and a text, as the general error path
// and the file messages print them.

#include <stdexcept>
#include <string>

namespace tt {

// Error numbers the program raises and reports.
enum ErrorNumber : int {
    kErrInvalidCall = 5,
    kErrOverflow = 6,
    kErrOutOfMemory = 7,
    kErrSubscript = 9,
    kErrDivisionByZero = 11,
    kErrTypeMismatch = 13,
    kErrBadFileNameOrNumber = 52,
    kErrFileNotFound = 53,
    kErrFileAlreadyOpen = 55,
    kErrDeviceIO = 57,
    kErrFileExists = 58,
    kErrDiskFull = 61,
    kErrInputPastEnd = 62,
    kErrPermissionDenied = 70,
    kErrRenameAcrossDrives = 74,
    kErrPathFileAccess = 75,
    kErrPathNotFound = 76,
    kErrNoActiveChild = 91,
    kErrPrinter = 482,
    kErrCancel = 32755,
};

// The text the system gives for an error number.
std::string ErrorText(int number);

class AppError : public std::runtime_error {
  public:
    explicit AppError(int number);
    AppError(int number, std::string text);

    int Number() const { return number_; }
    const std::string& Text() const { return text_; }
    // Where the error was raised, as the general error box names it.
    const std::string& Source() const { return source_; }

  private:
    int number_;
    std::string text_;
    std::string source_;
};

// Turns any exception caught by an event handler into the error it reports.
AppError ToAppError(const std::exception& e);

[[noreturn]] void Raise(int number);

}  // namespace tt
