#include "reports/print_logic.h"

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "reports/list_bets_logic.h"

namespace tt {

bool PrintToFile = false;

namespace {

// The hourglass while a report is made, back on every way out.
class BusyPointer {
  public:
    BusyPointer() { Shell().SetBusy(true); }
    ~BusyPointer() { Shell().SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

// The folder of a path, with its separator; empty for a bare name.
std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

}  // namespace

PrintLogic::PrintLogic() {
    caption = "Print";
    lblReports.text = "Select a report to print:";
    lblFontSize.text = "Font Size:";
    cmdOK.text = "OK";
    cmdCancel.text = "Cancel";
    cmdPageSetup.text = "Page Setup...";
    cmdHelp.text = "Help";
    cmdPreview.text = "Preview...";
    cmdPreview.toolTip = "Show the report's pages on screen before printing.";
    cmdPdf.text = "Save as PDF...";
    cmdPdf.toolTip = "Save the report's pages as a PDF file.";
}

void PrintLogic::Form_Load() {
    if (PrintToFile) {
        caption = "Print to File";
        cmdOK.toolTip = "Save the report's pages as a PDF file.";
    }
    lstReports.Clear();
    lstReports.AddItem("Race Card w/Results", kRaceCard);
    lstReports.AddItem("Bettors", kBettors);
    lstReports.AddItem("Listed Bets", kListedBets);
    lstReports.AddItem("Current Odds for selected race", kOdds);
    txtFontSize.text = NumText(RF.ReportFontSize.Value());
}

std::string PrintLogic::ReportTitle(const ReportJob& job) {
    switch (job.report) {
        case kRaceCard:
            return "Race Card with Results";
        case kBettors:
            return "Bettor Listing";
        case kListedBets:
            return "Bet Listing";
        case kOdds:
            return "Betting Pool and Odds for Race #" + NumText(job.race) + " - " +
                   RF.Race(job.race).RaceName;
        default:
            return {};
    }
}

std::string PrintLogic::PdfFileName(const ReportJob& job) {
    std::string card = G.FilePath.substr(FolderOf(G.FilePath).size());
    if (const std::size_t dot = card.find_last_of('.'); dot != std::string::npos && dot > 0)
        card.erase(dot);
    std::string title = ReportTitle(job);
    // Characters a file name cannot hold on every desktop.
    for (char& c : title)
        if (std::string_view("/\\:*?\"<>|#").find(c) != std::string_view::npos) c = ' ';
    std::string name = (card.empty() ? std::string() : card + " - ") + title + ".pdf";
    return FolderOf(G.FilePath) + name;
}

void PrintLogic::cmdOK_Click() {
    Send(PrintToFile ? Output::kPdf : Output::kPrinter);
}

void PrintLogic::cmdPreview_Click() {
    Send(Output::kPreview);
}

void PrintLogic::cmdPdf_Click() {
    Send(Output::kPdf);
}

void PrintLogic::cmdPageSetup_Click() {
    Printer().SetupDialog();
}

void PrintLogic::Send(Output output) {
    const double size = Val(txtFontSize.text);
    if (size < 2 || size > 72) {
        Beep();
        MsgBox(std::string("Font Size is too small or too large!") + kCrLf +
                   "Please change it to a font size between 2 and 72.",
               Buttons::kOK, Icon::kExclamation);
        return;
    }
    ReportFont = RoundToInt16(size);
    ReportJob job;
    job.fontSize = ReportFont;
    {
        BusyPointer busy;
        if (!lstReports.HasSelection()) {
            Shell().SetBusy(false);
            Beep();
            MsgBox("Select a report to print");
            return;
        }
        job.report = static_cast<int>(lstReports.SelectedData());
        if (job.report == kListedBets) {
            if (Shell().ActiveChild() != "frmListBets" || ShownListBets() == nullptr) {
                Shell().SetBusy(false);
                Beep();
                MsgBox(std::string("Please display the list of bets to print") + kCrLf +
                       "using View/List Bets");
                return;
            }
            job.list = ShownListBets();
        }
    }
    if (job.report == kOdds) {
        // A window that cannot be shown prints nothing.
        G.CancelFlag = true;
        Shell().ShowForm("frmSelectRaceAndBetType", true);
        if (G.CancelFlag || G.CurrentRace > kMaxRace) return;
        job.race = G.CurrentRace;
        job.oddsBetType = OddsBetType;
    }
    const PrinterPort::Report report = [job](PrinterPort& p) { PrintReport(p, job); };

    switch (output) {
        case Output::kPrinter: {
            {
                BusyPointer busy;
                PrintReport(Printer(), job);
                Printer().EndDoc();
            }
            MsgBox("Report has been sent to printer");
            Unload();
            return;
        }
        case Output::kPreview:
            Printer().Preview(report);
            return;
        case Output::kPdf: {
            FileDialogRequest request;
            request.title = "Save Report as PDF";
            request.filter = "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*";
            request.initialName = PdfFileName(job);
            request.defaultExt = "pdf";
            request.overwritePrompt = true;
            const std::optional<std::string> path = Dialogs().Save(request);
            if (!path) return;
            bool saved;
            {
                BusyPointer busy;
                saved = Printer().SaveAsPdf(*path, report);
            }
            if (!saved) {
                Beep();
                MsgBox("The report could not be saved as PDF.", Buttons::kOK, Icon::kExclamation);
                return;
            }
            MsgBox(std::string("Report has been saved to") + kCrLf + *path);
            Unload();
            return;
        }
    }
}

}  // namespace tt
