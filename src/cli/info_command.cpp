// `tally info`: the card's title, its races and the totals of its tickets.

#include <QStringList>
#include <ostream>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/file_commands.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

int Info(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2) return -1;
    ConsoleWorld world(c.err, Policy::kCancel);
    if (!Open(world, files[1].toStdString())) return 1;
    c.out << TitleText() << "\n";
    c.out << "Race\tName\tRacers\tBets\tResult\n";
    for (int r = 1; r <= kMaxRace; ++r) {
        if (!RaceExists(r)) continue;
        int racers = 0;
        for (int n = 1; n <= RF.MaxRacers; ++n)
            if (RF.Racer(r, n).BetNbr != 0) ++racers;
        std::int64_t bets = 0;
        for (std::int64_t n = 1; n <= RF.MaxBets; ++n)
            if (RF.Bet(r, n).BetType != 0) ++bets;
        c.out << r << "\t" << RF.Race(r).RaceName << "\t" << racers << "\t" << bets << "\t";
        for (int k = 1; k <= 5; ++k) c.out << (k > 1 ? "," : "") << RF.Race(r).Result(k).Value();
        c.out << "\n";
    }
    Currency cost, collected, distributed, winnings;
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
        const TicketRec& tk = RF.Ticket(t);
        if (tk.TicketBettor == 0) continue;
        cost += tk.TicketCost;
        collected += tk.Collected;
        distributed += tk.Distributed;
        winnings += tk.Winnings;
    }
    c.out << "Bettors\t" << RF.BettorCount.Value() << "\n";
    c.out << "Tickets\t" << RF.TicketCount.Value() << "\n";
    c.out << "TicketCost\t" << Amount(cost) << "\n";
    c.out << "Collected\t" << Amount(collected) << "\n";
    c.out << "Distributed\t" << Amount(distributed) << "\n";
    c.out << "Winnings\t" << Amount(winnings) << "\n";
    return 0;
}

}  // namespace

Command InfoCommand() {
    return {
        .name = "info",
        .summary = "Print a card's title, races, bettors, tickets and money.",
        .synopsis = "FILE",
        .arguments = {{"FILE", "The race card."}},
        .options = {},
        .details =
            "The lines are tab-separated: the title; a header and a line for each race "
            "with its number, name, racers, bets and result (the racer slots of its five "
            "finishers); then the counts of bettors and tickets and the ticket totals.",
        .run = Info,
    };
}

}  // namespace tt::cli
