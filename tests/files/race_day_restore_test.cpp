// A race day brought back from its recovery file: tickets sold and cashed at the betting window
// through the companion, each transaction logged; the day killed in the middle of a ticket and
// after a transaction whose save never came; the card reopened from the morning's save, every
// record restored and the race run since settled again gives the card the day had reached.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <thread>

#include "files/race_file_io.h"
#include "model/number_text.h"
#include "model/race_file.h"
#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt {
namespace {

using namespace test;

// What a card holds ticket by ticket, whatever slots its bets stand in: each ticket's money and
// its bets in a fixed order, the bettors, and the races' results.
std::string Holdings(const std::string& card) {
    FakeWorld world;
    world.files.files["/x/card.tly"] = card;
    G.FilePath = "/x/card.tly";
    OpenRaceFile();
    std::string s;
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
        const TicketRec& tk = RF.Ticket(t);
        if (tk.TicketBettor == 0) continue;
        s += "ticket " + std::to_string(tk.TicketNbr) + " race " + std::to_string(tk.TicketRace) +
             " " + RF.Bettor(tk.TicketBettor).BettorName + " cost " + PlainDecimal(tk.TicketCost) +
             " collected " + PlainDecimal(tk.Collected) + " distributed " +
             PlainDecimal(tk.Distributed) + " won " + PlainDecimal(tk.Winnings) + "\n";
        std::vector<std::string> bets;
        for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
            const BetRec& b = RF.Bet(tk.TicketRace, n);
            if (b.TicketIdx != t || b.BetType == 0) continue;
            std::string bet = "  " + G.BetTypeName(b.BetType) + (b.Boxed ? " box" : "") + " " +
                              PlainDecimal(b.BetAmt) + " cost " + PlainDecimal(b.BetCost) +
                              " won " + PlainDecimal(b.BetWinnings) + " picks";
            for (int k = 1; k <= 6; ++k) bet += " " + std::to_string(b.Pick(k));
            bets.push_back(bet + "\n");
        }
        std::sort(bets.begin(), bets.end());
        for (const std::string& bet : bets) s += bet;
    }
    for (std::int64_t b = 1; b <= RF.BettorCount; ++b)
        s += "bettor " + RF.Bettor(b).BettorName + "\n";
    for (int r = 1; r <= kMaxRace; ++r) {
        s += "race " + std::to_string(r) + " result";
        for (int k = 1; k <= 5; ++k) s += " " + std::to_string(RF.Race(r).Result(k));
        s += "\n";
    }
    return s;
}

// Waits for the clock's next second, so that two transactions on one ticket are logged at two
// times, as transactions at a real window are.
void NextSecond() {
    using namespace std::chrono;
    const auto now = time_point_cast<seconds>(system_clock::now());
    std::this_thread::sleep_until(now + seconds(1) + milliseconds(20));
}

// The example card with its log in the folder, and the ticket of the morning that has winnings
// still to pay.
struct Morning {
    std::string card;
    std::int32_t winner = 0;
};

Morning MorningCard(const std::string& log) {
    FakeWorld world;
    world.files.files["/x/card.tly"] = ReadSourceFile("examples/spring-meet.tly");
    G.FilePath = "/x/card.tly";
    OpenRaceFile();
    RF.RecoveryFile = log;
    RF.RecoveryFlag = true;
    RF.ClearRecovery = false;
    Morning m;
    for (std::int64_t t = 1; t <= RF.TicketCount && m.winner == 0; ++t) {
        const TicketRec& tk = RF.Ticket(t);
        if (tk.TicketBettor != 0 && tk.Winnings > tk.Distributed) m.winner = tk.TicketNbr;
    }
    m.card = BuildRaceFileText(DateTime{2026, 4, 18, 12, 0, 0});
    return m;
}

TEST(RaceDayRestore, AKilledRaceDayComesBackFromTheMorningSaveAndTheLog) {
    QTemporaryDir dir;
    auto path = [&](const char* name) { return dir.filePath(name).toStdString(); };
    const std::string card = path("spring.tly"), log = path("spring.tlr");
    const Morning morning = MorningCard(log);
    ASSERT_NE(morning.winner, 0);
    WriteFile(card, morning.card);
    WriteFile(path("morning.tly"), morning.card);

    auto run = [](std::vector<std::string> args) {
        TallyRun r = Tally(std::move(args));
        EXPECT_EQ(r.rc, 0) << r.err;
        return r.out;
    };
    // The day at the window, every transaction saved.
    const std::string sold = run({"sell", card, "--race", "3", "--bettor", "Alice Hartley", "--bet",
                                  "2 W 1", "--bet", "3 P 3", "--paid", "4"});
    run({"sell", card, "--race", "4", "--bettor", "Bob Fenwick", "--bet", "2 E 1,2,3 box", "--bet",
         "5 S 6"});
    run({"cash", card, "--ticket", std::to_string(morning.winner)});
    run({"settle", card, "--race", "3", "--result", "1,3,2,0,0"});
    NextSecond();
    run({"cash", card, "--ticket", sold.substr(0, sold.find('\n'))});
    // A ticket in the making when the machine went down: its first bet taken, never finished.
    TallyRun killed = Tally({"sell", card, "--race", "5", "--bettor", "Edith Crane", "--bet",
                             "2 W 1", "--bet", "2 W 99"});
    EXPECT_EQ(killed.rc, 1);
    // The last transaction finished and was logged, but its save never reached the card.
    run({"sell", card, "--race", "5", "--bettor", "Kate O'Neill", "--bet", "4 W 2", "-o",
         path("reached.tly")});
    const std::string reached = ReadFile(path("reached.tly"));
    WriteFile(card, ReadFile(card).substr(0, 500));  // and the card itself is lost

    // The host opens the morning's save, restores every record and saves; then settles the race
    // run since the morning again.
    TallyRun restore = Tally({"restore", path("morning.tly"), "--all", "-o", path("back.tly")});
    ASSERT_EQ(restore.rc, 0) << restore.err;
    EXPECT_EQ(restore.err.substr(restore.err.rfind('\n', restore.err.size() - 2) + 1),
              "Restore process completed successfully.\n");
    EXPECT_NE(Holdings(ReadFile(path("back.tly"))), Holdings(reached));
    run({"settle", path("back.tly"), "--race", "3", "--result", "1,3,2,0,0"});

    EXPECT_EQ(Holdings(ReadFile(path("back.tly"))), Holdings(reached));
    // The ticket in the making is nowhere.
    EXPECT_EQ(Holdings(reached).find(" race 5 Edith Crane "), std::string::npos);
}

}  // namespace
}  // namespace tt
