#pragma once
// The printer as plain text, for the companion: one character a column, tab positions already
// laid out as blanks, a page break as a form feed at the start of the next page's first line.
// Bold is not shown.

#include <iosfwd>

#include "model/ports.h"

namespace tt {

class TextPrinter : public PrinterPort {
  public:
    explicit TextPrinter(std::ostream& out) : out_(out) {}

    void SetFont(const std::string& name, int size) override;
    void SetBold(bool) override {}
    int Copies() override { return copies_; }
    void SetCopies(int copies) override { copies_ = copies; }
    // The height of a line at size F is 24 F twips, so a page at 8 points holds 78 lines.
    double TextHeight(const std::string& text) override;
    double PageHeight() override { return kPageHeight; }
    void PrintLine(const std::string& text) override;
    void NewPage() override { pageBreak_ = true; }
    void EndDoc() override { pageBreak_ = false; }
    bool SetupDialog() override { return false; }

    static constexpr double kPageHeight = 15120;

  private:
    std::ostream& out_;
    int size_ = 10;
    int copies_ = 1;
    bool pageBreak_ = false;
};

}  // namespace tt
