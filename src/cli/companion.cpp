#include "cli/companion.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QStringList>
#include <functional>
#include <map>
#include <ostream>

#include "cli/console_ports.h"
#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "model/error_path.h"
#include "model/grid_data.h"
#include "model/number_text.h"
#include "model/qt_settings.h"
#include "model/race_file.h"
#include "payouts/display_payouts_logic.h"
#include "payouts/edit_results_logic.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/settlement.h"

namespace tt::cli {

namespace {

// Money as the companion prints it: at least two decimals, every one there is.
std::string Amount(Currency c) {
    std::string s = PlainDecimal(c);
    std::size_t point = s.find('.');
    if (point == std::string::npos) return s + ".00";
    while (s.size() - point < 3) s.push_back('0');
    return s;
}

struct Context {
    QCommandLineParser& parser;
    std::ostream& out;
    std::ostream& err;
};

// Reads FILE into the document; false when the program would have refused or failed.
bool Open(ConsoleWorld& world, const std::string& path) {
    G.CancelFlag = false;
    G.FilePath = path;
    OpenRaceFile();
    return world.shell.fileOpen && !G.FilePath.empty();
}

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

int Resave(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("o")) return -1;
    ConsoleWorld world(c.err, c.parser.isSet("yes") ? Policy::kYes : Policy::kCancel);
    if (!Open(world, files[1].toStdString())) return 1;
    G.FilePath = c.parser.value("o").toStdString();
    WriteRaceFile();
    return G.CancelFlag ? 1 : 0;
}

int Recent(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2) return -1;
    auto settings = MakeUserSettings();
    ConsoleWorld world(c.err, Policy::kCancel, settings.get());
    for (int i = 0; i < 4; ++i)
        G.Mru[static_cast<std::size_t>(i)] = settings->Get("MRU" + std::to_string(i)).value_or("");
    AddMRU(files[1].toStdString());
    return 0;
}

// A grid as tab-separated rows, header first, hidden columns left out.
void PrintGrid(std::ostream& out, const GridData& grid) {
    for (int r = 0; r < grid.Rows(); ++r) {
        bool first = true;
        for (int c = 0; c < grid.Cols(); ++c) {
            if (grid.ColWidth(c) == 0) continue;
            if (!first) out << "\t";
            out << grid.TextMatrix(r, c);
            first = false;
        }
        out << "\n";
    }
}

// The race of --race: a named race of the card.
int RaceOption(Context& c) {
    bool ok = false;
    int race = c.parser.value("race").toInt(&ok);
    if (!ok || race < 1 || race > kMaxRace || !RaceExists(race)) {
        c.err << "tally: no race " << c.parser.value("race").toStdString() << " on this card\n";
        return 0;
    }
    return race;
}

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

const char* kUsage =
    "usage: tally info FILE\n"
    "       tally resave FILE -o OUT [--yes]\n"
    "       tally settle FILE --race N [--result S1,S2,S3,S4,S5] [--handling most|payback|nopay] "
    "[-o OUT]\n"
    "       tally payouts FILE --race N\n"
    "       tally recent FILE\n";

}  // namespace

int RunTally(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    QStringList list{"tally"};
    for (const auto& a : args) list << QString::fromStdString(a);
    QCommandLineParser parser;
    parser.addOption({{"o", "output"}, "Where to save.", "OUT"});
    parser.addOption({"yes", "Answer OK to the questions about older or later versions."});
    parser.addOption({"race", "The race.", "N"});
    parser.addOption(
        {"result", "The racer finishers of the five finishers, 0 for none.", "S1,S2,S3,S4,S5"});
    parser.addOption(
        {"handling", "How to pay a pool without winners: most, payback or nopay.", "HOW"});
    if (!parser.parse(list)) {
        err << "tally: " << parser.errorText().toStdString() << "\n" << kUsage;
        return 2;
    }
    const QStringList pos = parser.positionalArguments();
    static const std::map<std::string, std::function<int(Context&)>> kCommands = {
        {"info", Info},
        {"resave", Resave},
        {"recent", Recent},
        {"settle", Settle},
        {"payouts", Payouts}};
    auto it = pos.isEmpty() ? kCommands.end() : kCommands.find(pos[0].toStdString());
    if (it == kCommands.end()) {
        err << kUsage;
        return 2;
    }
    Context c{parser, out, err};
    int rc = it->second(c);
    if (rc < 0) {
        err << kUsage;
        return 2;
    }
    return rc;
}

}  // namespace tt::cli
