#include "model/app_error.h"

#include <new>

namespace tt {

std::string ErrorText(int number) {
    switch (number) {
        case kErrInvalidCall:
            return "Invalid procedure call or argument";
        case kErrOverflow:
            return "Overflow";
        case kErrOutOfMemory:
            return "Out of memory";
        case kErrSubscript:
            return "Subscript out of range";
        case kErrDivisionByZero:
            return "Division by zero";
        case kErrTypeMismatch:
            return "Type mismatch";
        case kErrBadFileNameOrNumber:
            return "Bad file name or number";
        case kErrFileNotFound:
            return "File not found";
        case kErrFileAlreadyOpen:
            return "File already open";
        case kErrDeviceIO:
            return "Device I/O error";
        case kErrFileExists:
            return "File already exists";
        case kErrDiskFull:
            return "Disk full";
        case kErrInputPastEnd:
            return "Input past end of file";
        case kErrPermissionDenied:
            return "Permission denied";
        case kErrRenameAcrossDrives:
            return "Can't rename with different drive";
        case kErrPathFileAccess:
            return "Path/File access error";
        case kErrPathNotFound:
            return "Path not found";
        case kErrNoActiveChild:
            return "No active window";
        case kErrPrinter:
            return "Printer error";
        case kErrCancel:
            return "Cancel was selected.";
        default:
            return "Application-defined or object-defined error";
    }
}

AppError::AppError(int number) : AppError(number, ErrorText(number)) {}

AppError::AppError(int number, std::string text)
    : std::runtime_error(text),
      number_(number),
      text_(std::move(text)),
      source_("TamberlinTally") {}

AppError ToAppError(const std::exception& e) {
    if (auto* app = dynamic_cast<const AppError*>(&e)) return *app;
    if (dynamic_cast<const std::bad_alloc*>(&e) || dynamic_cast<const std::length_error*>(&e))
        return AppError(kErrOutOfMemory);
    return AppError(440, e.what());
}

void Raise(int number) {
    throw AppError(number);
}

}  // namespace tt
