// `tally settle` and `tally payouts`: a race settled from its result with each answer to the
// Payout Handling dialog, the refused checks, the payout display as text, and the same file
// from the companion as from the results window.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "files/race_file_io.h"
#include "model/race_file.h"
#include "payouts/edit_results_logic.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/settlement.h"
#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt::cli {
namespace {

using namespace test;

const DateTime kSaved{2026, 5, 2, 14, 30, 0};

// Two races: the first offers every single-race pool and a Daily Double into the second, with
// the field 1 / 1A; the second offers Win, Place and Show. Ann and Ben bet on three tickets.
std::string SmallCard() {
    test::FakeWorld world;
    ClearRaceFile();
    RF.FileId = 77;
    RF.FileName = "Settle Test";
    RF.RaceType = "Horse";
    RF.DefaultRace = 1;
    auto race = [](int r, const char* name, std::initializer_list<int> types,
                   std::vector<std::pair<int, const char*>> racers) {
        RaceRec& rc = RF.Race(r);
        rc.RaceName = name;
        rc.MinBet = Currency::FromInt(2);
        rc.MinPayout = Currency::FromRaw(21000);
        rc.HoldbackPct = 10;
        for (int t = 1; t <= kBetTypes; ++t) rc.BetType(t) = false;
        for (int t : types) rc.BetType(t) = true;
        int slot = 0;
        for (auto& [nbr, racerName] : racers) {
            if (++slot > RF.MaxRacers) {
                RF.MaxRacers = slot;
                RF.Racer.ReDimPreserve(slot + 1);
            }
            RacerRec& rr = RF.Racer(r, slot);
            rr.BetNbr = nbr;
            rr.ProgramNbr = std::to_string(nbr) + (slot == 2 && r == 1 ? "A" : "");
            rr.PostPosition = std::to_string(slot);
            rr.RacerName = racerName;
        }
    };
    race(1, "Opener", {1, 2, 3, 4, 5, 6},
         {{1, "Alpha"}, {1, "Alpha Too"}, {2, "Bravo"}, {3, "Charlie"}, {4, "Delta"}, {5, "Echo"}});
    race(2, "Closer", {1, 2, 3}, {{1, "Foxtrot"}, {2, "Golf"}, {3, "Hotel"}, {4, "India"}});
    RF.BettorCount = 2;
    RF.Bettor.ReDim(3);
    RF.Bettor(1).BettorName = "Ann";
    RF.Bettor(2).BettorName = "Ben";

    struct B {
        int type;
        double amt;
        std::vector<int> picks;
        bool boxed = false;
    };
    auto ticket = [](int r, int bettor, std::vector<B> bets) {
        const std::int64_t t = RF.TicketCount + 1;
        RF.TicketCount = static_cast<std::int32_t>(t);
        RF.Ticket.ReDimPreserve(t + 1);
        TicketRec& tk = RF.Ticket(t);
        tk.TicketNbr = static_cast<std::int32_t>(100 + t);
        tk.TicketRace = r;
        tk.TicketBettor = bettor;
        tk.FirstBet = RF.Race(r).BetCount + 1;
        for (const B& b : bets) {
            const std::int64_t slot = RF.Race(r).BetCount + 1;
            RF.Race(r).BetCount = static_cast<std::int32_t>(slot);
            if (slot > RF.MaxBets) {
                RF.MaxBets = static_cast<std::int32_t>(slot);
                RF.Bet.ReDimPreserve(slot + 1);
            }
            BetRec& bet = RF.Bet(r, slot);
            bet.BetType = b.type;
            bet.BetAmt = Currency::FromDouble(b.amt);
            bet.Boxed = b.boxed;
            int j = 0;
            for (int p : b.picks) bet.Pick(++j) = p;
            const std::int64_t n = j;
            std::int64_t combos = b.type == 11 ? 3 : 1;
            if (b.boxed) combos = b.type == 4 ? n * (n - 1) : n * (n - 1) * (n - 2);
            bet.BetCost = bet.BetAmt * combos;
            bet.TicketIdx = static_cast<std::int32_t>(t);
            tk.TicketCost += bet.BetCost;
        }
        tk.LastBet = RF.Race(r).BetCount;
        tk.Collected = tk.TicketCost;
    };
    ticket(1, 1,
           {{1, 2, {1}},
            {2, 2, {2}},
            {3, 2, {3}},
            {11, 2, {2}},
            {4, 2, {1, 2}},
            {4, 1, {2, 3, 4}, true},
            {5, 1, {1, 2, 3}},
            {6, 2, {2, 1}}});
    ticket(1, 2,
           {{1, 5, {2}},
            {1, 3, {3}},
            {2, 4, {1}},
            {3, 2, {1}},
            {4, 2, {3, 2}},
            {5, 2, {2, 3, 1}},
            {6, 2, {1, 3}}});
    ticket(2, 2, {{1, 2, {1}}, {1, 2, {2}}, {2, 2, {3}}, {3, 2, {4}}});
    return BuildRaceFileText(kSaved);
}

class Settle : public ::testing::Test {
  protected:
    void SetUp() override {
        card = dir.filePath("card.tly").toStdString();
        out = dir.filePath("out.tly").toStdString();
        original = SmallCard();
        WriteFile(card, original);
    }
    // The payout display of a race of OUT, as `tally payouts` prints it.
    std::string Payouts(int race) {
        TallyRun r = Tally({"payouts", out, "--race", std::to_string(race)});
        EXPECT_EQ(r.rc, 0) << r.err;
        EXPECT_EQ(r.err, "");
        return r.out;
    }
    QTemporaryDir dir;
    std::string card, out, original;
};

TEST_F(Settle, ResultStoredAndPaidWithEachHandling) {
    // Bravo, then the field 1 (Alpha), then Charlie: nobody holds the exact Exacta or Trifecta,
    // so both dialogs offer the bets with one correct pick.
    TallyRun r = Tally({"settle", card, "--race", "1", "--result", "3,1,4,0,0", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(ReadFile(card), original);
    EXPECT_EQ(Payouts(1),
              "2 - Bravo\n1 - Alpha\n3 - Charlie\n - \n - \n"
              "Bet #\tWin\tPlace\tShow\n"
              // Win: (10.80 - 7) / 7 on 7.00; Place and Show fall below the minimum of 2.10.
              "2\t3.08\t2.10\t2.10\n"
              "1\t\t2.10\t2.10\n"
              "3\t\t\t2.10\n"
              "Bet Type\tWins\n"
              // The box 2, 3, 4 holds 2.00 on one correct pick of a 9.00 net pool: 3.5; the
              // Trifecta's 2.70 net is short of its 3.00 and pays nothing.
              "Exacta - 2, 1 ( 1 correct)\t9.00\n"
              "Trifecta - 2, 1, 3 ( 1 correct)\t1.80\n");
    // Race 2 has no result: blanks, and not even the Daily Double that ends there.
    EXPECT_EQ(Payouts(2),
              " - \n - \n - \n - \n - \n"
              "Bet #\tWin\tPlace\tShow\n0\t \t \t \n0\t \t \t \n0\t \t \t \n"
              "Bet Type\tWins\n");

    for (auto [flag, shown] :
         {std::pair{"payback", "Payback"}, {"nopay", "No Pay"}, {"most", "9.00"}}) {
        SCOPED_TRACE(flag);
        r = Tally({"settle", card, "--race", "1", "--result", "3,1,4,0,0", "--handling", flag, "-o",
                   out});
        ASSERT_EQ(r.rc, 0) << r.err;
        const std::string text = Payouts(1);
        EXPECT_NE(text.find(std::string("Exacta - 2, 1 ( 1 correct)\t") + shown + "\n"),
                  std::string::npos)
            << text;
    }

    // Nobody bet Delta to win: Pay on most correct picks is not offered, so --handling most
    // keeps the dialog's own Payback; No Pay is taken.
    r = Tally(
        {"settle", card, "--race", "1", "--result", "5,3,4,0,0", "--handling", "most", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_NE(Payouts(1).find("\n4\tPayback\t"), std::string::npos);
    r = Tally(
        {"settle", card, "--race", "1", "--result", "5,3,4,0,0", "--handling", "nopay", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_NE(Payouts(1).find("\n4\tNo Pay\t"), std::string::npos);

    // Without -o the card itself is saved, the previous file kept as its backup; without
    // --result the stored result is settled again.
    r = Tally({"settle", card, "--race", "1", "--result", "3,1,4,0,0"});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(ReadFile(dir.filePath("card.bkp").toStdString()), original);
    const std::string settled = ReadFile(card);
    r = Tally({"settle", card, "--race", "1"});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(WithoutHeader(ReadFile(card)), WithoutHeader(settled));
}

TEST_F(Settle, RefusedChecksPrintTheirMessageAndSaveNothing) {
    struct Case {
        const char* result;
        const char* err;
    };
    const Case cases[] = {
        {"3,4,3,0,0", "Same Racer cannot finish in two positions!\n"},
        // Alpha and Alpha Too are one bet number: there is no second finisher.
        {"1,2,0,0,0",
         "Place, Show, Exacta, and/or Trifecta bets allowed.\n\r2nd place finisher must be "
         "entered\n\ror those "
         "bets disallowed in the Race Card.\n\r(Remember that a bet number will only be used for "
         "one position.)\n"},
        {"1,3,2,0,0",
         "Show and/or Trifecta bets allowed.\n\r3rd place finisher must be entered\n\ror those "
         "bets disallowed in "
         "the Race Card.\n\r(Remember that a bet number will only be used for one position.)\n"},
        {"9,0,0,0,0", "tally: racer slot 9 cannot finish race 1\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.result);
        TallyRun r = Tally({"settle", card, "--race", "1", "--result", c.result});
        EXPECT_EQ(r.rc, 1);
        EXPECT_EQ(r.err, c.err);
        EXPECT_EQ(ReadFile(card), original);
        EXPECT_FALSE(QFile::exists(dir.filePath("card.bkp")));
    }
    // Two huge Win stakes overflow the win pool: the unexpected-error box, and nothing saved.
    std::string huge = original;
    for (const char* bet : {"\"%Bet   `\",1,2,1,#FALSE#,2,", "\"%Bet   `\",1,5,1,#FALSE#,5,"}) {
        std::size_t at = huge.find(bet);
        ASSERT_NE(at, std::string::npos) << bet;
        huge.replace(at, std::string(bet).size(),
                     "\"%Bet   `\",1,900000000000000,1,#FALSE#,900000000000000,");
    }
    WriteFile(card, huge);
    TallyRun overflow = Tally({"settle", card, "--race", "1", "--result", "3,1,4,0,0"});
    EXPECT_EQ(overflow.rc, 1);
    EXPECT_EQ(overflow.err,
              "The system has detected an unexpected error.\r\nError # 6:  Overflow, Source:  "
              "TamberlinTally\n");
    EXPECT_EQ(ReadFile(card), huge);

    TallyRun r = Tally({"settle", card, "--race", "7"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, "tally: no race 7 on this card\n");
    for (std::vector<std::string> bad :
         {std::vector<std::string>{"settle", card, "--race", "1", "--handling", "all"},
          {"settle", card, "--race", "1", "--result", "1,2"},
          {"settle", card}}) {
        EXPECT_EQ(Tally(bad).rc, 2);
    }
}

// Edit Results' OK for a race with every Payout Handling dialog answered as given, as the
// program does it; the document saved at kSaved.
std::string SettledByTheWindow(const std::string& bytes, int race, std::vector<std::int64_t> finish,
                               const std::string& handling) {
    test::FakeWorld world;
    world.files.files["/cards/card.tly"] = bytes;
    G.FilePath = "/cards/card.tly";
    OpenRaceFile();
    EXPECT_TRUE(world.messages.shown.empty());
    G.CurrentRace = static_cast<std::int16_t>(race);
    EditResultsLogic form;
    std::optional<PoolHandling> choice;
    if (handling == "Most") choice = PoolHandling::kMost;
    if (handling == "Payback") choice = PoolHandling::kPayback;
    if (handling == "NoPay") choice = PoolHandling::kNoPay;
    form.handling = DialogHandling(choice);
    form.Form_Load();
    for (int k = 1; k <= 5; ++k) {
        ListData& list = form.comRacerName[static_cast<std::size_t>(k)].list;
        for (int i = 0; i < list.ListCount(); ++i)
            if (list.ItemData(i) == finish[static_cast<std::size_t>(k - 1)]) list.SetListIndex(i);
        form.comRacerName_Click(k);
    }
    form.cmdOK_Click();
    EXPECT_TRUE(form.unloaded);
    EXPECT_EQ(world.shell.formsShown.back(), "frmDisplayPayouts");
    return BuildRaceFileText(kSaved);
}

TEST_F(Settle, SameFileAsTheResultsWindow) {
    struct Case {
        const char* path;
        int race;
        const char* result;
        std::vector<std::int64_t> finish;
        const char* flag;
        const char* handling;
    };
    const std::string example = std::string(TALLY_SOURCE_DIR) + "/examples/spring-meet.tly";
    const Case cases[] = {
        {card.c_str(), 1, "3,1,4,0,0", {3, 1, 4, 0, 0}, nullptr, ""},
        {card.c_str(), 1, "3,1,4,0,0", {3, 1, 4, 0, 0}, "nopay", "NoPay"},
        {card.c_str(), 1, "5,3,4,0,0", {5, 3, 4, 0, 0}, "payback", "Payback"},
        {example.c_str(), 3, "2,7,1,5,0", {2, 7, 1, 5, 0}, nullptr, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.path) + " " + c.result);
        std::vector<std::string> args{"settle",   c.path,   "--race", std::to_string(c.race),
                                      "--result", c.result, "-o",     out};
        if (c.flag) args.insert(args.end(), {"--handling", c.flag});
        TallyRun r = Tally(args);
        ASSERT_EQ(r.rc, 0) << r.err;
        EXPECT_EQ(
            WithoutHeader(ReadFile(out)),
            WithoutHeader(SettledByTheWindow(ReadFile(c.path), c.race, c.finish, c.handling)));
    }
}

TEST_F(Settle, ExampleCardHoldsTwoRacesSettledAsTheWindowSettlesThem) {
    const std::string example = std::string(TALLY_SOURCE_DIR) + "/examples/spring-meet.tly";
    for (const char* race : {"1", "2"}) {
        SCOPED_TRACE(race);
        TallyRun r = Tally({"settle", example, "--race", race, "-o", out});
        ASSERT_EQ(r.rc, 0) << r.err;
        EXPECT_EQ(WithoutHeader(ReadFile(out)), WithoutHeader(ReadFile(example)));
    }
    const std::string shown = Payouts(1);
    EXPECT_EQ(shown.substr(0, shown.find("Bet #")),
              "2 - Copper Kettle\n1 - Dandelion Dancer\n5 - April Fool\n6 - Clover Hill\n - \n");
    EXPECT_NE(Payouts(2).find("\nDaily Double - 2, 1\t"), std::string::npos);
}

}  // namespace
}  // namespace tt::cli
