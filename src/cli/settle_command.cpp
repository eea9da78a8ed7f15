// `tally settle`: a race's result recorded and its payouts settled, the card saved.

#include <QStringList>
#include <array>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/race_file_io.h"
#include "model/error_path.h"
#include "model/race_file.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/record_result.h"
#include "payouts/settle_race.h"

namespace tt::cli {

namespace {

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
    std::optional<PoolHandling> handling;
    if (c.parser.isSet("handling")) {
        static const std::map<std::string, PoolHandling> kHandling = {
            {"most", PoolHandling::kMost},
            {"payback", PoolHandling::kPayback},
            {"nopay", PoolHandling::kNoPay}};
        auto h = kHandling.find(c.parser.value("handling").toStdString());
        if (h == kHandling.end()) return -1;
        handling = h->second;
    }

    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, files[1].toStdString())) return 1;
    const std::string path = G.FilePath;
    int race = RaceOption(c);
    if (race == 0) return 1;

    // A failure in the middle, such as an overflow, shows the unexpected-error box and saves
    // nothing.
    try {
        if (!finishers.empty()) {
            std::array<std::int64_t, 6> result{};
            for (int k = 1; k <= 5; ++k) {
                const std::int64_t slot = finishers[static_cast<std::size_t>(k - 1)];
                if (slot != 0 && !CanFinish(race, slot)) {
                    c.err << "tally: racer slot " << slot << " cannot finish race " << race << "\n";
                    return 1;
                }
                result[static_cast<std::size_t>(k)] = slot;
            }
            const ResultOutcome outcome = RecordResult(race, result, AskResultQuestion);
            if (outcome.status != ResultStatus::kStored &&
                outcome.status != ResultStatus::kUnchanged) {
                ShowResultRefusal(outcome);
                return 1;
            }
        }
        // Every pool without winners is answered as the flag says where the dialog allows it.
        SettleRace(race, DialogHandling(handling));
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
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
