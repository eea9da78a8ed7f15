// `tally odds`: a grid of the odds display as text.

#include <QStringList>
#include <map>
#include <ostream>
#include <string>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "model/common.h"
#include "model/error_path.h"
#include "model/race_file.h"
#include "payouts/display_odds_logic.h"
#include "payouts/odds_grids.h"

namespace tt::cli {

namespace {

// --grid to the item data of the bet type list, and what a race lacking it does not offer.
struct GridChoice {
    int item;
    const char* missing;
};
const std::map<std::string, GridChoice>& Grids() {
    static const std::map<std::string, GridChoice> grids = {
        {"pools", {kOddsPools, ""}},
        {"win", {1, "Win"}},
        {"place", {2, "Place"}},
        {"show", {3, "Show"}},
        {"exacta", {4, "Exacta"}},
        {"dd", {kOddsDoubleFromHere, "a Daily Double into the next race"}},
        {"dd-prior", {kOddsDoubleIntoHere, "a Daily Double from the race before"}},
    };
    return grids;
}

int Odds(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("race") || !c.parser.isSet("grid")) return -1;
    const auto choice = Grids().find(c.parser.value("grid").toStdString());
    if (choice == Grids().end()) return -1;

    ConsoleWorld world(c.err, Policy::kCancel);
    if (!Open(world, files[1].toStdString())) return 1;
    const int race = RaceOption(c);
    if (race == 0) return 1;

    // The window on this race, with all races in its list, showing the grid chosen.
    DisplayOddsLogic display;
    try {
        display.optRacesAll_Click();
        SelectByItemData(display.comRaceName, race);
        display.FillBetTypeList(false);
        SelectByItemData(display.comBetType, choice->second.item);
        if (!display.comBetType.HasSelection()) {
            c.err << "tally: race " << race << " does not offer " << choice->second.missing << "\n";
            return 1;
        }
        display.comBetType_Click();
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
    PrintGrid(c.out, display.flxOdds);
    return 0;
}

}  // namespace

Command OddsCommand() {
    return {
        .name = "odds",
        .summary = "Print a race's pools or odds as the odds display shows them.",
        .synopsis = "FILE --race N --grid pools|win|place|show|exacta|dd|dd-prior",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"race", "The race, by its number on the card.", "N"},
                    {"grid", "The grid: the betting pools, or the odds of a bet type.",
                     "pools|win|place|show|exacta|dd|dd-prior"}},
        .details =
            "dd is the Daily Double that starts at the race, dd-prior the one that ends "
            "there. The grid is printed after its sort, tab-separated, header first, "
            "without its hidden sort column; each cell is as the window shows it, "
            "leading blanks and all. A grid the race does not offer is refused.",
        .run = Odds,
    };
}

}  // namespace tt::cli
