#include "cli/pdf_output.h"

namespace tt::cli {

std::unique_ptr<PrinterPort> MakePdfPrinter() {
    return nullptr;
}

}  // namespace tt::cli
