// `tally list`: the bets of a card as List Bets shows them, with their totals.

#include <QStringList>
#include <ostream>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "model/common.h"
#include "model/error_path.h"
#include "model/race_file.h"
#include "reports/list_bets_logic.h"

namespace tt::cli {

namespace {

// Chooses the entry with this item data; false when the list has none.
bool ChooseData(ListData& list, const QString& value) {
    bool ok = false;
    const qlonglong data = value.toLongLong(&ok);
    if (!ok) return false;
    SelectByItemData(list, data);
    return list.HasSelection();
}

int List(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2) return -1;
    ConsoleWorld world(c.err, Policy::kCancel);
    if (!Open(world, files[1].toStdString())) return 1;
    WinnersOnly = c.parser.isSet("winners");
    // The bettor the file reader ended on is no choice of the host's: all bettors.
    G.CurrentBettor = 0;
    ListBetsLogic list;
    try {
        list.Form_Load();
        if (c.parser.isSet("race")) {
            if (!ChooseData(list.comRaceName, c.parser.value("race"))) {
                c.err << "tally: no race " << c.parser.value("race").toStdString()
                      << " on this card\n";
                return 1;
            }
            list.comRaceName_Click();
        }
        if (c.parser.isSet("bettor")) {
            const std::string name = c.parser.value("bettor").toStdString();
            int index = -1;
            for (int i = 0; i < list.comBettor.ListCount() && index < 0; ++i)
                if (list.comBettor.List(i) == name) index = i;
            if (index < 0) {
                c.err << "tally: no such bettor: " << name << "\n";
                return 1;
            }
            list.comBettor.SetListIndex(index);
            list.comBettor_Click();
        }
        if (c.parser.isSet("type")) {
            if (!ChooseData(list.comBetType, c.parser.value("type"))) {
                c.err << "tally: no bet type " << c.parser.value("type").toStdString()
                      << " in the list of this race\n";
                return 1;
            }
            list.comBetType_Click();
        }
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }

    const GridData& grid = list.flxBets;
    for (int r = 0; r < grid.Rows(); ++r) {
        if (list.IsSeparatorRow(r)) continue;
        bool first = true;
        for (int col = 0; col < grid.Cols(); ++col) {
            if (grid.ColWidth(col) == 0) continue;
            c.out << (first ? "" : "\t") << grid.TextMatrix(r, col);
            first = false;
        }
        c.out << "\n";
    }
    c.out << list.lblTotalCap.text << "\t" << list.lblTotal.text << "\n";
    c.out << list.lblWonCap.text << "\t" << list.lblWon.text << "\n";
    if (list.lblCollected.visible) {
        c.out << list.lblCollectedCap.text << "\t" << list.lblCollected.text << "\n";
        c.out << list.lblDistributedCap.text << "\t" << list.lblDistributed.text << "\n";
    }
    if (list.lblDue.visible && !list.lblDue.text.empty()) c.out << list.lblDue.text << "\n";
    return 0;
}

}  // namespace

Command ListCommand() {
    return {
        .name = "list",
        .summary = "Print the bets of a card as List Bets shows them, with their totals.",
        .synopsis = "FILE [--race N] [--bettor NAME] [--type CODE] [--winners]",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"race", "The race, by its number on the card; 0 for all races.", "N"},
                    {"bettor", "The bettor, by name as the list shows it.", "NAME"},
                    {"type",
                     "The bet type: 1 to 10 by its code, 11 Across the Board, 0 all; one the "
                     "race offers.",
                     "CODE"},
                    {"winners", "Winners only: the bets that return money."}},
        .details =
            "The list opens as the window does, on the card's default race, all bettors, all "
            "bet types and all bets. The rows of the grid follow, tab-separated, header first, "
            "without the thin rows between tickets and without the columns the window hides; "
            "then the totals: \"Amount Bet:\" and \" Won:\", and where the window shows them "
            "\" Collected:\", \"Distributed:\" and the sentence of what is due.",
        .run = List,
    };
}

}  // namespace tt::cli
