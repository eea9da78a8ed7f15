// `tally cash`: one transaction that cashes or collects one ticket, the full balance unless
// told otherwise, the card saved.

#include <QStringList>
#include <optional>
#include <ostream>
#include <string>

#include "betting/betting_state.h"
#include "cli/betting_window.h"
#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/race_file_io.h"
#include "model/error_path.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

int Cash(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("ticket")) return -1;
    const QString number = c.parser.value("ticket");
    bool whole = false;
    number.toLongLong(&whole);
    if (!whole) return -1;

    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, files[1].toStdString())) return 1;
    const std::string out = c.parser.isSet("o") ? c.parser.value("o").toStdString() : G.FilePath;
    const std::optional<std::string> paid =
        c.parser.isSet("paid") ? std::optional(c.parser.value("paid").toStdString()) : std::nullopt;

    // A failure in the middle, such as an overflow, shows the unexpected-error box and saves
    // nothing.
    try {
        BettingWindow window(world);
        if (!window.Open()) return 1;
        window.Ticket(kCashTicket, [&](TicketHeaderLogic& h) {
            h.txtTicketNbr.text = number.toStdString();
            h.cmdEdit_Click();
        });
        // The number refused, or the question answered No: nothing to finish.
        if (Betting.TranTicketCount == 0) return 1;
        if (!window.Finish(paid ? &*paid : nullptr, out)) return 1;
        if (G.FileChanged) {
            G.CancelFlag = false;
            WriteRaceFile();
            if (G.CancelFlag) return 1;
        }
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
    return 0;
}

}  // namespace

Command CashCommand() {
    return {
        .name = "cash",
        .summary = "Cash or collect a ticket at the betting window and save the card.",
        .synopsis = "FILE --ticket N [--paid AMT] [-o OUT]",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"ticket", "The ticket, by its number.", "N"},
                    {"paid", "The amount paid out or taken in; the balance when left out.", "AMT"},
                    {{"o", "output"}, "Save to OUT instead of over FILE.", "OUT"}},
        .details =
            "The ticket is chosen in Cash/Collect by its number and its whole balance is "
            "settled: its winnings paid out, or what it still owes collected. A ticket with "
            "nothing due is taken in all the same, for an amount of 0. --paid gives the amount "
            "that really changed hands, read as the amount box reads it: \"1,000\" is 1.\n\n"
            "The transaction is logged to the recovery file when the card says so. Every "
            "question is answered OK or Yes; the file a save replaces is kept as its backup.",
        .run = Cash,
    };
}

}  // namespace tt::cli
