#include "cli/pdf_output.h"

#include <QGuiApplication>

#include "shell/forms/qt_printer.h"

namespace tt::cli {

std::unique_ptr<PrinterPort> MakePdfPrinter() {
    // Pages are painted with the desktop's fonts, which need the application of a desktop
    // program; the companion starts one without a screen when asked for a PDF.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return nullptr;
    return std::make_unique<gui::QtPrinter>();
}

}  // namespace tt::cli
