#pragma once
// "Print": one of four reports to the printer, or to a print preview or a PDF file, at a font
// size the host chooses.

#include <string>

#include "model/checked_int.h"
#include "model/form_state.h"
#include "model/list_data.h"
#include "reports/report_writer.h"

namespace tt {

// File, Print to File: the window's OK saves the chosen report as a PDF file instead of
// printing it. The menu entry sets it for one opening of the window.
extern bool PrintToFile;

class PrintLogic : public FormState {
  public:
    // The reports, by their item data in lstReports.
    enum Report : int { kRaceCard = 1, kBettors = 2, kListedBets = 3, kOdds = 4 };

    PrintLogic();

    void Form_Load();
    void lstReports_DblClick() { cmdOK_Click(); }
    // Prints the chosen report (or, opened by Print to File, saves it as PDF).
    void cmdOK_Click();
    // Shows the chosen report in a print preview; the window stays open.
    void cmdPreview_Click();
    // Saves the chosen report as a PDF file, asking where.
    void cmdPdf_Click();
    void cmdPageSetup_Click();
    void cmdCancel_Click() { Unload(); }

    // The title a report's pages carry, and the name its PDF file is offered under.
    static std::string ReportTitle(const ReportJob& job);
    static std::string PdfFileName(const ReportJob& job);

    ListData lstReports;
    ControlState lblReports, lblFontSize, txtFontSize, cmdOK, cmdCancel, cmdPageSetup, cmdHelp,
        cmdPreview, cmdPdf;
    Int16 ReportFont;

  private:
    enum class Output { kPrinter, kPreview, kPdf };
    void Send(Output output);
};

}  // namespace tt
