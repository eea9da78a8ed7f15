// Reports on the program's own printer beyond paper: the print preview and the PDF file run the
// same report through a printer bound to their pages, and tickets waiting in the printer's open
// document are left alone; `tally report --pdf` writes through the same printer.

#include <QApplication>
#include <QFile>
#include <QPrintPreviewDialog>
#include <QTemporaryDir>
#include <QTimer>

#include "files/race_file_io.h"
#include "report_card.h"
#include "reports/report_writer.h"
#include "shell/forms/qt_printer.h"
#include "support/companion_run.h"

namespace tt::test {
namespace {

class ReportOutput : public ReportCard {
  protected:
    void SetUp() override {
        ReportCard::SetUp();
        ASSERT_TRUE(dir.isValid());
        for (int b = 0; b < 60; ++b) Bettor("Bettor " + std::to_string(100 + b), "Table 4");
    }
    static int PdfPages(const QString& path) {
        QFile pdf(path);
        if (!pdf.open(QIODevice::ReadOnly)) return -1;
        const QByteArray bytes = pdf.readAll();
        if (!bytes.startsWith("%PDF-")) return -1;
        return static_cast<int>(bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r"));
    }
    QTemporaryDir dir;
};

TEST_F(ReportOutput, APdfOfAReportHoldsItsPages) {
    gui::QtPrinter printer;
    const QString path = dir.filePath("bettors.pdf");
    int runs = 0;
    ASSERT_TRUE(printer.SaveAsPdf(path.toStdString(), [&](PrinterPort& p) {
        ++runs;
        PrintReport(p, {.report = 2, .fontSize = 10});
    }));
    EXPECT_EQ(runs, 1);
    // Sixty bettors of three lines each take more than one page at 10 points.
    EXPECT_GE(PdfPages(path), 2);
    EXPECT_FALSE(printer.DocumentOpen());
}

TEST_F(ReportOutput, APdfThatCannotBeWrittenIsNoErrorOfTheReport) {
    gui::QtPrinter printer;
    const std::string path = dir.filePath("no such folder/x.pdf").toStdString();
    EXPECT_FALSE(printer.SaveAsPdf(path, [](PrinterPort& p) { PrintReport(p, {.report = 2}); }));
}

TEST_F(ReportOutput, ThePreviewRunsTheReportOnItsOwnPages) {
    gui::QtPrinter printer;
    printer.PrintToPdf(dir.filePath("tickets.pdf"));
    printer.SetFont("Courier", 10);
    printer.PrintLine("a ticket waiting in the open document");
    ASSERT_TRUE(printer.DocumentOpen());
    int runs = 0;
    QString title;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        title = dialog->windowTitle();
        dialog->reject();
    });
    EXPECT_TRUE(printer.Preview([&](PrinterPort& p) {
        ++runs;
        PrintReport(p, {.report = 2});
    }));
    EXPECT_GE(runs, 1);
    EXPECT_EQ(title, "Print Preview");
    // The tickets' document is still open, the report not in it.
    EXPECT_TRUE(printer.DocumentOpen());
    printer.EndDoc();
    EXPECT_EQ(PdfPages(dir.filePath("tickets.pdf")), 1);
}

TEST_F(ReportOutput, TallyReportWritesAPdf) {
    RF.FileId = 77;
    const std::string card = dir.filePath("card.tly").toStdString();
    WriteFile(card, BuildRaceFileText(DateTime{2026, 5, 2, 14, 30, 0}));
    ClearRaceFile();
    const QString out = dir.filePath("bettors.pdf");
    const TallyRun r = Tally({"report", card, "bettors", "--pdf", out.toStdString()});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "Report has been saved to\r\n" + out.toStdString() + "\n");
    EXPECT_GE(PdfPages(out), 2);
}

}  // namespace
}  // namespace tt::test
