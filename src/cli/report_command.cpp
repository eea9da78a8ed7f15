// `tally report`: one of the four printed reports as text, or as a PDF file.

#include <QStringList>
#include <map>
#include <memory>
#include <ostream>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "cli/pdf_output.h"
#include "model/common.h"
#include "model/error_path.h"
#include "model/race_file.h"
#include "reports/list_bets_logic.h"
#include "reports/print_logic.h"
#include "reports/select_race_logic.h"
#include "reports/text_printer.h"

namespace tt::cli {

namespace {

// The save dialog answered with the file of --pdf.
class AnswerDialogs : public FileDialogPort {
  public:
    explicit AnswerDialogs(std::string path) : path_(std::move(path)) {}
    std::optional<std::string> Open(const FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::string> Save(const FileDialogRequest&) override { return path_; }

  private:
    std::string path_;
};

int Report(Context& c) {
    const QStringList words = c.parser.positionalArguments();
    if (words.size() != 3) return -1;
    static const std::map<std::string, int> kReports = {{"card", PrintLogic::kRaceCard},
                                                        {"bettors", PrintLogic::kBettors},
                                                        {"bets", PrintLogic::kListedBets},
                                                        {"odds", PrintLogic::kOdds}};
    const auto kind = kReports.find(words[2].toStdString());
    if (kind == kReports.end()) return -1;
    const bool odds = kind->second == PrintLogic::kOdds;
    if (!odds && (c.parser.isSet("race") || c.parser.isSet("type"))) return -1;
    const bool pdf = c.parser.isSet("pdf");

    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, words[1].toStdString())) return 1;

    TextPrinter text(c.out);
    std::unique_ptr<PrinterPort> pdfPrinter = pdf ? MakePdfPrinter() : nullptr;
    AnswerDialogs dialogs(c.parser.value("pdf").toStdString());
    Ports ports = CurrentPorts();
    ports.printer = pdf ? pdfPrinter.get() : &text;
    ports.fileDialog = &dialogs;
    PortsScope scope(ports);

    bool refused = false;
    // The odds report's race and part, chosen as the window would be; a race or part the card
    // does not have is refused there, after the font has been looked at.
    world.shell.onShow = [&](const std::string& name) {
        if (name != "frmSelectRaceAndBetType") return;
        // The race the file reader ended on is no choice of the host's: the default race.
        G.CurrentRace = 0;
        SelectRaceAndBetTypeLogic select;
        select.Form_Load();
        if (c.parser.isSet("race")) {
            bool ok = false;
            SelectByItemData(select.comRaceName, c.parser.value("race").toLongLong(&ok));
            if (!ok || !select.comRaceName.HasSelection()) {
                c.err << "tally: no race " << c.parser.value("race").toStdString()
                      << " on this card\n";
                refused = true;
                return;
            }
        }
        if (!select.comRaceName.HasSelection()) {
            c.err << "tally: no race on this card\n";
            refused = true;
            return;
        }
        select.comRaceName_Click();
        if (c.parser.isSet("type")) {
            bool ok = false;
            SelectByItemData(select.comBetType, c.parser.value("type").toLongLong(&ok));
            if (!ok || !select.comBetType.HasSelection()) {
                c.err << "tally: no part " << c.parser.value("type").toStdString()
                      << " of the odds report of race " << select.comRaceName.SelectedData()
                      << "\n";
                refused = true;
                return;
            }
        }
        select.cmdOK_Click();
    };

    try {
        PrintToFile = false;
        PrintLogic window;
        window.Form_Load();
        if (c.parser.isSet("font-size"))
            window.txtFontSize.text = c.parser.value("font-size").toStdString();
        SelectByItemData(window.lstReports, kind->second);
        // The listed bets as List Bets stands when it opens, in front.
        WinnersOnly = false;
        ListBetsLogic list;
        std::unique_ptr<ShownListBetsScope> shown;
        if (kind->second == PrintLogic::kListedBets) {
            // The bettor the file reader ended on is no choice of the host's: all bettors.
            G.CurrentBettor = 0;
            list.Form_Load();
            shown = std::make_unique<ShownListBetsScope>(&list);
            world.shell.activeChild = "frmListBets";
        }
        if (pdf)
            window.cmdPdf_Click();
        else
            window.cmdOK_Click();
        return window.unloaded && !refused ? 0 : 1;
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
}

}  // namespace

Command ReportCommand() {
    return {
        .name = "report",
        .summary = "Print one of the four reports as text, or save it as a PDF file.",
        .synopsis =
            "FILE card|bettors|odds|bets [--race N] [--type CODE] [--font-size N] "
            "[--pdf OUT.pdf]",
        .arguments = {{"FILE", "The race card."},
                      {"card", "The race card with results."},
                      {"bettors", "The bettors by name."},
                      {"odds", "The pools and odds of a race."},
                      {"bets", "The bets as List Bets lists them when it opens."}},
        .options = {{"race", "odds: the race, by its number on the card.", "N"},
                    {"type",
                     "odds: what to print: 0 all, 99 the pools, 1 to 4 or 6 a bet type the race "
                     "offers, 62 the Daily Double of the race before.",
                     "CODE"},
                    {"font-size", "The font size, 2 to 72; the card's report size by default.",
                     "N"},
                    {"pdf", "Save the pages as a PDF file instead.", "OUT.pdf"}},
        .details =
            "The text is the printed page one character a column, the columns laid out with "
            "blanks; a new page starts with a form feed. The odds report is of the card's "
            "default race unless told, and prints all its parts unless told.",
        .run = Report,
    };
}

}  // namespace tt::cli
