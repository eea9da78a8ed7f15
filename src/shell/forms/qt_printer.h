#pragma once
// The printer port over a QPrinter: fixed-pitch lines painted one under the other, the
// document held open across calls until EndDoc. Any installed printer or a PDF file, chosen in
// the print set-up; with no printer installed every document goes to a PDF file of its own in
// the user's documents, so that nothing printed is lost.

#include <QFont>
#include <QPainter>
#include <QPrinter>
#include <QString>
#include <memory>

#include "model/ports.h"

namespace tt::gui {

class QtPrinter : public PrinterPort {
  public:
    QtPrinter();
    // A printer bound to a device it does not own, such as the pages of a print preview or a PDF
    // export: the pages go to that device as it is set up.
    explicit QtPrinter(QPrinter& device);
    // An open document is ended, so that its pages are not lost.
    ~QtPrinter() override;
    QtPrinter(const QtPrinter&) = delete;
    QtPrinter& operator=(const QtPrinter&) = delete;

    // PrinterPort. Heights are in twips.
    void SetFont(const std::string& name, int size) override;
    void SetBold(bool bold) override;
    int Copies() override;
    void SetCopies(int copies) override;
    double TextHeight(const std::string& text) override;
    double PageHeight() override;
    // Lines that would pass the bottom of the page go on to a new page.
    void PrintLine(const std::string& text) override;
    void NewPage() override;
    void EndDoc() override;
    // The choice of printer, "Print to File (PDF)" among them. While a document is open the
    // choice holds from the next document on.
    bool SetupDialog() override;
    // The report in a print preview on a device set up like the printer chosen, and as a PDF
    // file of the chosen page layout: the report runs on a printer bound to each.
    bool Preview(const Report& report) override;
    bool SaveAsPdf(const std::string& path, const Report& report) override;

    // The device, for print preview and PDF export built on top of this printer.
    QPrinter& Device() { return *device_; }
    bool DocumentOpen() const { return painter_.isActive(); }
    // From the next document on, documents go to this PDF file; when it is already there a
    // document goes beside it as "name 2.pdf", "name 3.pdf", ..., never over a file. An empty
    // path returns to files named by the time in the user's documents.
    void PrintToPdf(const QString& path);
    bool PrintsToPdf() const;
    // The PDF file of the open or the last document; empty when printing on paper.
    QString PdfFile() const { return pdfFile_; }

  private:
    void Begin();
    void SetUpFont();
    void ApplyFont();
    QString NextPdfName();
    double Twips(double devicePixels) const;

    std::unique_ptr<QPrinter> printer_;  // the printer's own device; none when bound
    QPrinter* device_ = nullptr;         // the device the pages go to
    bool bound_ = false;
    // A choice made in the set-up while a document was open: used from the next document.
    std::unique_ptr<QPrinter> pending_;
    QPainter painter_;
    QFont font_;
    double y_ = 0;
    QString chosenPdf_;  // the PDF file chosen, or empty for files named by the time
    QString pdfFile_;
};

}  // namespace tt::gui
