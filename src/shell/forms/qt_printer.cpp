#include "shell/forms/qt_printer.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>

#include "model/app_error.h"

namespace tt::gui {

namespace {

std::unique_ptr<QPrinter> NewDevice() {
    auto p = std::make_unique<QPrinter>(QPrinter::HighResolution);
    p->setDocName("Tamberlin Tally");
    p->setCreator("Tamberlin Tally");
    return p;
}

// A device set up like another, for a choice that waits for the open document to end.
std::unique_ptr<QPrinter> CopyOf(const QPrinter& from) {
    auto p = NewDevice();
    if (from.outputFormat() == QPrinter::PdfFormat) {
        p->setOutputFormat(QPrinter::PdfFormat);
        p->setOutputFileName(from.outputFileName());
    } else {
        p->setPrinterName(from.printerName());
    }
    p->setPageLayout(from.pageLayout());
    p->setCopyCount(from.copyCount());
    p->setColorMode(from.colorMode());
    p->setDuplex(from.duplex());
    return p;
}

QString DocumentsFolder() {
    QString dir = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (dir.isEmpty()) dir = QDir::homePath();
    return dir;
}

}  // namespace

QtPrinter::QtPrinter() : printer_(NewDevice()) {
    if (QPrinterInfo::availablePrinters().isEmpty()) printer_->setOutputFormat(QPrinter::PdfFormat);
    font_.setFamilies(
        {"Courier", "Courier New", "Nimbus Mono PS", "Liberation Mono", "DejaVu Sans Mono"});
    font_.setStyleHint(QFont::TypeWriter);
    font_.setFixedPitch(true);
    font_.setPointSize(10);
}

QtPrinter::~QtPrinter() {
    if (painter_.isActive()) painter_.end();
}

void QtPrinter::ApplyFont() {
    if (painter_.isActive()) painter_.setFont(font_);
}

void QtPrinter::SetFont(const std::string& name, int size) {
    const QString family = QString::fromStdString(name);
    if (family == "Courier")
        font_.setFamilies(
            {family, "Courier New", "Nimbus Mono PS", "Liberation Mono", "DejaVu Sans Mono"});
    else
        font_.setFamilies({family});
    font_.setStyleHint(QFont::TypeWriter);
    font_.setPointSize(std::max(1, size));
    ApplyFont();
}

void QtPrinter::SetBold(bool bold) {
    font_.setBold(bold);
    ApplyFont();
}

int QtPrinter::Copies() {
    return printer_->copyCount();
}

void QtPrinter::SetCopies(int copies) {
    printer_->setCopyCount(std::max(1, copies));
}

double QtPrinter::Twips(double devicePixels) const {
    return devicePixels * 1440.0 / printer_->resolution();
}

double QtPrinter::TextHeight(const std::string& text) {
    const QFontMetricsF m(font_, printer_.get());
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    return Twips(m.lineSpacing() * static_cast<double>(lines));
}

double QtPrinter::PageHeight() {
    return Twips(printer_->pageLayout().paintRectPixels(printer_->resolution()).height());
}

bool QtPrinter::PrintsToPdf() const {
    return printer_->outputFormat() == QPrinter::PdfFormat;
}

void QtPrinter::PrintToPdf(const QString& path) {
    auto target = painter_.isActive() ? CopyOf(pending_ ? *pending_ : *printer_) : nullptr;
    QPrinter& p = target ? *target : *printer_;
    p.setOutputFormat(QPrinter::PdfFormat);
    if (!path.isEmpty()) p.setOutputFileName(path);
    chosenPdf_ = path;
    if (target) pending_ = std::move(target);
}

QString QtPrinter::NextPdfName() {
    // A file already there is never written over: the document goes beside it, numbered.
    QString base, suffix = ".pdf";
    if (!chosenPdf_.isEmpty()) {
        const QFileInfo chosen(chosenPdf_);
        if (!chosen.exists()) return chosenPdf_;
        base = chosen.path() + "/" + chosen.completeBaseName();
        if (!chosen.suffix().isEmpty()) suffix = "." + chosen.suffix();
    } else {
        const QString dir = DocumentsFolder();
        QDir().mkpath(dir);
        base = dir + "/Tamberlin Tally " +
               QDateTime::currentDateTime().toString("yyyy-MM-dd hh-mm-ss");
        if (!QFileInfo::exists(base + suffix)) return base + suffix;
    }
    for (int n = 2;; ++n) {
        const QString name = base + " " + QString::number(n) + suffix;
        if (!QFileInfo::exists(name)) return name;
    }
}

void QtPrinter::Begin() {
    if (painter_.isActive()) return;
    if (PrintsToPdf()) {
        pdfFile_ = NextPdfName();
        QDir().mkpath(QFileInfo(pdfFile_).path());
        printer_->setOutputFileName(pdfFile_);
    } else {
        pdfFile_.clear();
    }
    if (!painter_.begin(printer_.get()))
        throw AppError(kErrPrinter, "The printer could not be started");
    ApplyFont();
    y_ = 0;
}

void QtPrinter::PrintLine(const std::string& text) {
    Begin();
    const QFontMetricsF m(painter_.font(), printer_.get());
    const double bottom = printer_->pageLayout().paintRectPixels(printer_->resolution()).height();
    if (y_ > 0 && y_ + m.lineSpacing() > bottom) {
        printer_->newPage();
        y_ = 0;
    }
    painter_.drawText(QPointF(0, y_ + m.ascent()), QString::fromStdString(text));
    y_ += m.lineSpacing();
}

void QtPrinter::NewPage() {
    Begin();
    printer_->newPage();
    y_ = 0;
}

void QtPrinter::EndDoc() {
    if (painter_.isActive()) painter_.end();
    y_ = 0;
    if (pending_) printer_ = std::move(pending_);
}

bool QtPrinter::SetupDialog() {
    // While a document is open its device stays as it is; the choice waits for the next one.
    std::unique_ptr<QPrinter> scratch;
    if (painter_.isActive()) scratch = CopyOf(pending_ ? *pending_ : *printer_);
    QPrinter& target = scratch ? *scratch : *printer_;
    QPrintDialog dialog(&target, QApplication::activeWindow());
    dialog.setWindowTitle("Print Setup");
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (dialog.exec() != QDialog::Accepted) return false;
    if (target.outputFormat() == QPrinter::PdfFormat) {
        // The file the last numbered document went to, offered again, keeps the numbering.
        const QString chosen = target.outputFileName();
        if (!(chosenPdf_.isEmpty() && chosen == pdfFile_)) chosenPdf_ = chosen;
    } else {
        chosenPdf_.clear();
    }
    if (scratch) pending_ = std::move(scratch);
    return true;
}

}  // namespace tt::gui
