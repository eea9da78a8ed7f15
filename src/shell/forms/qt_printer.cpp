#include "shell/forms/qt_printer.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QScreen>
#include <QStandardPaths>
#include <algorithm>

#include "model/app_error.h"
#include "model/error_path.h"

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

QtPrinter::QtPrinter() : printer_(NewDevice()), device_(printer_.get()) {
    if (QPrinterInfo::availablePrinters().isEmpty()) printer_->setOutputFormat(QPrinter::PdfFormat);
    SetUpFont();
}

QtPrinter::QtPrinter(QPrinter& device) : device_(&device), bound_(true) {
    SetUpFont();
}

void QtPrinter::SetUpFont() {
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
    return device_->copyCount();
}

void QtPrinter::SetCopies(int copies) {
    device_->setCopyCount(std::max(1, copies));
}

double QtPrinter::Twips(double devicePixels) const {
    return devicePixels * 1440.0 / device_->resolution();
}

double QtPrinter::TextHeight(const std::string& text) {
    const QFontMetricsF m(font_, device_);
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    return Twips(m.lineSpacing() * static_cast<double>(lines));
}

double QtPrinter::PageHeight() {
    return Twips(device_->pageLayout().paintRectPixels(device_->resolution()).height());
}

bool QtPrinter::PrintsToPdf() const {
    return device_->outputFormat() == QPrinter::PdfFormat;
}

void QtPrinter::PrintToPdf(const QString& path) {
    auto target = painter_.isActive() ? CopyOf(pending_ ? *pending_ : *device_) : nullptr;
    QPrinter& p = target ? *target : *device_;
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
    if (bound_) {
        pdfFile_.clear();
    } else if (PrintsToPdf()) {
        pdfFile_ = NextPdfName();
        QDir().mkpath(QFileInfo(pdfFile_).path());
        device_->setOutputFileName(pdfFile_);
    } else {
        pdfFile_.clear();
    }
    if (!painter_.begin(device_)) throw AppError(kErrPrinter, "The printer could not be started");
    ApplyFont();
    y_ = 0;
}

void QtPrinter::PrintLine(const std::string& text) {
    Begin();
    const QFontMetricsF m(painter_.font(), device_);
    const double bottom = device_->pageLayout().paintRectPixels(device_->resolution()).height();
    if (y_ > 0 && y_ + m.lineSpacing() > bottom) {
        device_->newPage();
        y_ = 0;
    }
    painter_.drawText(QPointF(0, y_ + m.ascent()), QString::fromStdString(text));
    y_ += m.lineSpacing();
}

void QtPrinter::NewPage() {
    Begin();
    device_->newPage();
    y_ = 0;
}

void QtPrinter::EndDoc() {
    if (painter_.isActive()) painter_.end();
    y_ = 0;
    if (pending_) {
        printer_ = std::move(pending_);
        device_ = printer_.get();
    }
}

bool QtPrinter::SetupDialog() {
    // While a document is open its device stays as it is; the choice waits for the next one.
    std::unique_ptr<QPrinter> scratch;
    if (painter_.isActive()) scratch = CopyOf(pending_ ? *pending_ : *device_);
    QPrinter& target = scratch ? *scratch : *device_;
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

bool QtPrinter::Preview(const Report& report) {
    // A device set up like the printer chosen, so that tickets waiting in the open document stay
    // as they are; printing from the preview goes to it.
    const std::unique_ptr<QPrinter> device = CopyOf(pending_ ? *pending_ : *device_);
    QPrintPreviewDialog dialog(device.get(), QApplication::activeWindow());
    dialog.setWindowTitle("Print Preview");
    dialog.resize(dialog.screen() ? dialog.screen()->availableSize() * 3 / 4 : QSize(900, 700));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* p) {
        // The same report on a printer bound to the pages of the preview.
        QtPrinter bound(*p);
        try {
            report(bound);
            bound.EndDoc();
        } catch (const std::exception& e) {
            bound.EndDoc();
            ShowUnexpectedError(ToAppError(e));
        }
    });
    dialog.exec();
    return true;
}

bool QtPrinter::SaveAsPdf(const std::string& path, const Report& report) {
    const std::unique_ptr<QPrinter> device = NewDevice();
    device->setOutputFormat(QPrinter::PdfFormat);
    device->setOutputFileName(QString::fromStdString(path));
    device->setPageLayout((pending_ ? *pending_ : *device_).pageLayout());
    QtPrinter bound(*device);
    try {
        report(bound);
        bound.EndDoc();
    } catch (const AppError& e) {
        // A file that cannot be written is the caller's to report.
        if (e.Number() != kErrPrinter) throw;
        return false;
    }
    return true;
}

}  // namespace tt::gui
