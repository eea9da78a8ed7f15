#include "reports/text_printer.h"

#include <ostream>

namespace tt {

void TextPrinter::SetFont(const std::string&, int size) {
    size_ = size;
}

double TextPrinter::TextHeight(const std::string&) {
    return 24.0 * size_;
}

void TextPrinter::PrintLine(const std::string& text) {
    if (pageBreak_) out_ << '\f';
    pageBreak_ = false;
    out_ << text << '\n';
}

}  // namespace tt
