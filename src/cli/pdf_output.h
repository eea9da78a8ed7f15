#pragma once
// The printer of `tally report --pdf`: the program's own printer, bound to a PDF file.

#include <memory>

#include "model/ports.h"

namespace tt::cli {

// A printer whose SaveAsPdf writes the report's pages to a PDF file; none where this build
// cannot paint pages.
std::unique_ptr<PrinterPort> MakePdfPrinter();

}  // namespace tt::cli
