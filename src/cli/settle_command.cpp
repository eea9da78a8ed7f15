// `tally settle`: a race's result recorded and its payouts settled, the card saved.

#include <QStringList>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/race_file_io.h"
#include "model/grid_data.h"
#include "model/race_file.h"
#include "payouts/edit_results_logic.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/settlement.h"
#include "shell/error_path.h"

namespace tt::cli {

namespace {

int SettleRace(Context& c, int race, const std::vector<std::int64_t>& finishers,
               const std::string& path);

int Settle(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("race")) return -1;
    std::vector<std::int64_t> finishers;
    if (c.parser.isSet("result")) {
        for (const QString& part : c.parser.value("result").split(',')) {
            bool ok = false;
            finishers.push_back(part.trimmed().toLongLong(&ok));
            if (!ok) return -1;
        }
        if (finishers.size() != 5) return -1;
    }
    std::string handling;
    if (c.parser.isSet("handling")) {
        static const std::map<std::string, std::string> kHandling = {
            {"most", "Most"}, {"payback", "Payback"}, {"nopay", "NoPay"}};
        auto h = kHandling.find(c.parser.value("handling").toStdString());
        if (h == kHandling.end()) return -1;
        handling = h->second;
    }

    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, files[1].toStdString())) return 1;
    const std::string path = G.FilePath;
    int race = RaceOption(c);
    if (race == 0) return 1;
    // Every pool without winners is answered as the flag says where the dialog allows it.
    world.shell.onShow = [&](const std::string& name) {
        if (name != "frmPayoutHandling") return;
        PayoutHandlingLogic dialog;
        dialog.Form_Load();
        if (!handling.empty()) dialog.Choose(handling);
        dialog.cmdOK_Click();
    };

    // A failure in the middle, such as an overflow, shows the unexpected-error box and saves
    // nothing.
    try {
        return SettleRace(c, race, finishers, path);
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
}

int SettleRace(Context& c, int race, const std::vector<std::int64_t>& finishers,
               const std::string& path) {
    G.CurrentRace = race;
    bool calculated = false;
    if (!finishers.empty()) {
        EditResultsLogic results;
        results.Form_Load();
        for (int k = 1; k <= 5; ++k) {
            if (RF.Race(race).Result(k) != finishers[static_cast<std::size_t>(k - 1)])
                calculated = true;
            ListData& list = results.comRacerName[static_cast<std::size_t>(k)].list;
            int index = -1;
            for (int i = 0; i < list.ListCount(); ++i)
                if (list.ItemData(i) == finishers[static_cast<std::size_t>(k - 1)]) index = i;
            if (index < 0) {
                c.err << "tally: racer slot " << finishers[static_cast<std::size_t>(k - 1)]
                      << " cannot finish race " << race << "\n";
                return 1;
            }
            list.SetListIndex(index);
            results.comRacerName_Click(k);
        }
        results.cmdOK_Click();
        if (!results.unloaded) return 1;  // a check refused the result
    }
    if (!calculated) {
        G.CurrentRace = race;
        CalcPayouts();
    }
    G.FilePath = c.parser.isSet("o") ? c.parser.value("o").toStdString() : path;
    WriteRaceFile();
    return G.CancelFlag ? 1 : 0;
}

}  // namespace

Command SettleCommand() {
    return {
        .name = "settle",
        .summary = "Record a race's result, settle its payouts and save the card.",
        .synopsis =
            "FILE --race N [--result S1,S2,S3,S4,S5] [--handling most|payback|nopay] "
            "[-o OUT]",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"race", "The race, by its number on the card.", "N"},
                    {"result", "The five finishers' racer slots, 0 for none.", "S1,S2,S3,S4,S5"},
                    {"handling", "How to pay a pool that has no winners.", "most|payback|nopay"},
                    {{"o", "output"}, "Save to OUT instead of over FILE.", "OUT"}},
        .details =
            "A racer slot is the racer's place in the race's list on the card, as the "
            "results of \"tally info\" show them. Without --result the race's stored "
            "result is settled again.\n\n"
            "Without --handling, a pool without winners is paid as the Payout Handling "
            "window proposes: on the most correct picks where that is offered, otherwise "
            "the amounts bet back. --handling most, where it is not offered, keeps that "
            "proposal.\n\n"
            "Every other question is answered OK or Yes. The file a save replaces is kept "
            "as its backup (card.tly becomes card.bkp).",
        .run = Settle,
    };
}

}  // namespace tt::cli
