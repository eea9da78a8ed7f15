// `tally payouts`: the payout display of a race as text.

#include <QStringList>
#include <ostream>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "model/error_path.h"
#include "model/race_file.h"
#include "payouts/display_payouts_logic.h"

namespace tt::cli {

namespace {

int Payouts(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("race")) return -1;
    ConsoleWorld world(c.err, Policy::kCancel);
    if (!Open(world, files[1].toStdString())) return 1;
    int race = RaceOption(c);
    if (race == 0) return 1;
    G.CurrentRace = race;
    DisplayPayoutsLogic display;
    try {
        display.Form_Load();
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
    for (int k = 1; k <= 5; ++k) c.out << display.txtRacerName(k).text << "\n";
    PrintGrid(c.out, display.flxWPS);
    PrintGrid(c.out, display.flxPayouts);
    return 0;
}

}  // namespace

Command PayoutsCommand() {
    return {
        .name = "payouts",
        .summary = "Print a race's payouts as the payout display shows them.",
        .synopsis = "FILE --race N",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"race", "The race, by its number on the card.", "N"}},
        .details =
            "The five finishers come first, one a line, then the rows of the Win, Place "
            "and Show grid and of the grid of the other bet types, tab-separated, header "
            "first.",
        .run = Payouts,
    };
}

}  // namespace tt::cli
