// `tally sell` and `tally cash`: a ticket sold and then settled gives the same card as the same
// steps at the betting windows; a refused bet or ticket ends the command with its box and
// writes nothing; the bet words, the race and bettor lookup and the amount paid.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <functional>

#include "betting/betting_state.h"
#include "betting/close_transaction_logic.h"
#include "betting/place_bets_logic.h"
#include "betting/ticket_header_logic.h"
#include "betting/transaction_logic.h"
#include "files/race_file_io.h"
#include "model/race_file.h"
#include "shell/main_commands.h"
#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt::cli {
namespace {

using namespace test;

const std::string kExample = std::string(TALLY_SOURCE_DIR) + "/examples/spring-meet.tly";

// A bet at the keyboard of Place Bet: amount and Enter, the type's letter, the box, each pick
// typed and entered, Accept Bet.
void Type(PlaceBetsLogic& p, const char* amount, char type, std::initializer_list<int> picks,
          bool boxed = false) {
    p.txtBetAmt.text = amount;
    p.txtBetAmt_Change();
    int key = type;
    p.comBetType_KeyPress(key);
    if (boxed) {
        p.chkBoxed.value = 1;
        p.chkBoxed_Click();
    }
    int i = 0;
    for (int pick : picks) {
        auto& list = p.comPick[static_cast<std::size_t>(++i)];
        list.text = std::to_string(pick);
        p.comPick_Change(i);
        int enter = 13;
        p.comPick_KeyPress(i, enter);
    }
    p.cmdAcceptBet_Click();
}

// Grace Liu's ticket on the Tamberlin Stakes, 10.00 paid of 14.00, then the ticket collected
// in full in a second transaction: at the windows, saved.
std::string AtTheWindows(std::int32_t& sold) {
    FakeWorld world;
    ResetBettingState();
    world.files.files["/w/card.tly"] = ReadFile(kExample);
    G.FilePath = "/w/card.tly";
    OpenRaceFile();

    TransactionLogic transaction;
    std::function<void(TicketHeaderLogic&)> header;
    std::function<void(PlaceBetsLogic&)> bets;
    std::string typed;
    world.shell.onShow["frmTransaction"] = [&] { transaction.Form_Load(); };
    world.shell.onShow["frmTicketHeader"] = [&] {
        TicketHeaderLogic h;
        h.Form_Load();
        header(h);
    };
    world.shell.onShow["frmPlaceBets"] = [&] {
        PlaceBetsLogic p;
        p.Form_Load();
        bets(p);
    };
    world.shell.onShow["frmCloseTransaction"] = [&] {
        CloseTransactionLogic f;
        f.Form_Load();
        if (!typed.empty()) f.txtCollDist.text = typed;
        f.cmdOK_Click();
    };
    mnuEditPlaceBets_Click();

    header = [](TicketHeaderLogic& h) {
        h.comRaceName.text = "3";
        h.comRaceName_Change();
        h.comRaceName_LostFocus();
        h.comBettor.text = "Grace Liu";
        h.comBettor_Change();
        int enter = 13;
        h.comBettor_KeyPress(enter);
    };
    bets = [&](PlaceBetsLogic& p) {
        Type(p, "2", 'w', {7});
        Type(p, "2", 't', {2, 7, 1}, true);
        sold = Betting.TranTickets(Betting.CurTranTicket).TicketNbr;
        p.cmdAcceptTicket_Click();
    };
    transaction.cmdNew_Click();
    typed = "10";
    transaction.cmdOK_Click();
    EXPECT_FALSE(G.CancelFlag);

    header = [&](TicketHeaderLogic& h) {
        h.txtTicketNbr.text = std::to_string(sold);
        int enter = 13;
        h.txtTicketNbr_KeyPress(enter);
    };
    transaction.cmdCash_Click();
    typed.clear();
    transaction.cmdOK_Click();
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Collect $4.00 for ticket #" + std::to_string(sold)});

    G.FilePath = "/w/out.tly";
    WriteRaceFile();
    return world.files.files["/w/out.tly"];
}

class SellCash : public ::testing::Test {
  protected:
    std::string Path(const char* name) { return dir.filePath(name).toStdString(); }
    QTemporaryDir dir;
};

TEST_F(SellCash, ASaleAndItsCashGiveTheCardOfTheSameStepsAtTheWindows) {
    const std::string sold = Path("sold.tly"), settled = Path("settled.tly");
    TallyRun sell = Tally({"sell", kExample, "--race", "3", "--bettor", "Grace Liu", "--bet",
                           "2 W 7", "--bet", "2 Trifecta 2,7,1 box", "--paid", "10", "-o", sold});
    ASSERT_EQ(sell.rc, 0) << sell.err;
    EXPECT_EQ(sell.err, "");
    TallyRun cash =
        Tally({"cash", sold, "--ticket", sell.out.substr(0, sell.out.size() - 1), "-o", settled});
    ASSERT_EQ(cash.rc, 0) << cash.err;
    EXPECT_EQ(cash.out, "");

    std::int32_t number = 0;
    const std::string windows = AtTheWindows(number);
    EXPECT_EQ(sell.out, std::to_string(number) + "\n");
    EXPECT_EQ(cash.err, "Collect $4.00 for ticket #" + std::to_string(number) + "\n");
    EXPECT_EQ(WithoutHeader(ReadFile(settled)), WithoutHeader(windows));
}

TEST_F(SellCash, ARefusedBetEndsTheSaleWithItsBoxAndWritesNothing) {
    const std::string out = Path("out.tly");
    TallyRun r = Tally({"sell", kExample, "--race", "3", "--bettor", "Grace Liu", "--bet", "2 W 7",
                        "--bet", "1.5 P 3", "--bet", "2 S 1", "-o", out});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "Minimum bet for this race is 2.\n");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(out)));

    // The same number twice in an Exacta: its three boxes, the last the error of the third list.
    r = Tally(
        {"sell", kExample, "--race", "3", "--bettor", "Grace Liu", "--bet", "2 E 7,7", "-o", out});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err,
              "Same bet number chosen for two picks!\r\nThis is not allowed for Exacta bets!\n"
              "\n7\n\nThe system has detected an unexpected error.\r\n"
              "Error # 381:  Invalid property array index, Source:  TamberlinTally\n");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(out)));
}

TEST_F(SellCash, ATypeTheRaceDoesNotOfferIsNoBetType) {
    TallyRun r = Tally({"sell", kExample, "--race", "3", "--bettor", "Grace Liu", "--bet",
                        "2 Daily Double 7,1", "-o", Path("out.tly")});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, "Bet Type is not valid!\n");
}

TEST_F(SellCash, ARaceWithResultsOrAnUnknownBettorIsRefused) {
    TallyRun finished = Tally({"sell", kExample, "--race", "1", "--bettor", "Grace Liu", "--bet",
                               "2 W 7", "-o", Path("out.tly")});
    EXPECT_EQ(finished.rc, 1);
    EXPECT_EQ(finished.err, "Please select a race for the ticket!\n");
    TallyRun nobody = Tally({"sell", kExample, "--race", "3", "--bettor", "grace liu", "--bet",
                             "2 W 7", "-o", Path("out.tly")});
    EXPECT_EQ(nobody.rc, 1);
    EXPECT_EQ(nobody.err, "tally: no such bettor: grace liu\n");
}

TEST_F(SellCash, TheDefaultAmountIsTheWholeTotalAsADecimalAndAmountsReadAsTheBoxReadsThem) {
    const std::string out = Path("out.tly");
    // 1,002.00 due: the window would show "1,002.00", which reads as 1; the companion types
    // 1002. "2,000" reads as 2.
    TallyRun r = Tally({"sell", kExample, "--race", "4", "--bettor", "Dev Patel", "--bet",
                        "1000 W 2", "--bet", "2,000 P 2", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, "");
    TallyRun settled = Tally(
        {"cash", out, "--ticket", r.out.substr(0, r.out.size() - 1), "-o", Path("again.tly")});
    EXPECT_EQ(settled.rc, 0);
    EXPECT_EQ(settled.err,
              "There is nothing to cash or collect on this ticket!\r\n"
              "Do you want to include it in the transaction anyway?\n");
}

TEST_F(SellCash, TheWordsOfABetAndTheTicketNumberAreCheckedBeforeTheCard) {
    for (const char* bet : {"2 Q 7", "2", "2 W 7 box", "2 12 7", "2 W x"}) {
        TallyRun r =
            Tally({"sell", "/no/such/card.tly", "--race", "3", "--bettor", "A", "--bet", bet});
        EXPECT_EQ(r.rc, 2) << bet;
        EXPECT_EQ(r.err.rfind("tally: ", 0), 0u) << bet << ": " << r.err;
    }
    EXPECT_EQ(Tally({"sell", kExample, "--race", "x", "--bettor", "A", "--bet", "2 W 1"}).rc, 2);
    EXPECT_EQ(Tally({"sell", kExample, "--race", "3", "--bettor", "A"}).rc, 2);
    TallyRun many = Tally(
        {"sell", kExample, "--race", "3", "--bettor", "Grace Liu", "--bet", "2 Exacta 1,2,3"});
    EXPECT_EQ(many.rc, 2);
    EXPECT_EQ(many.err.substr(0, many.err.find('\n')), "tally: more picks than the bet takes");
    EXPECT_EQ(Tally({"cash", kExample, "--ticket", "2.5"}).rc, 2);
    TallyRun invalid = Tally({"cash", kExample, "--ticket", "999", "-o", Path("out.tly")});
    EXPECT_EQ(invalid.rc, 1);
    EXPECT_EQ(invalid.err, "Invalid Ticket Number for this file!\n");
}

TEST_F(SellCash, CashPaysAWinningTicketOutAndLogsWhenTheCardSaysSo) {
    // The example with its recovery log switched on.
    std::string card = ReadFile(kExample);
    const std::string parms = "#FALSE#,\"\",#FALSE#,#FALSE#,30";
    ASSERT_NE(card.find(parms), std::string::npos);
    const std::string log = Path("spring.tlr");
    card.replace(card.find(parms), parms.size(), "#FALSE#,\"" + log + "\",#TRUE#,#FALSE#,30");
    const std::string in = Path("in.tly"), out = Path("out.tly");
    WriteFile(in, card);
    TallyRun r = Tally({"cash", in, "--ticket", "2", "--paid", "10", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err.substr(0, r.err.find('\n')), "Cash ticket # 2 for $10.76");
    const std::string lines = ReadFile(log);
    EXPECT_NE(lines.find("\"Cash\""), std::string::npos) << lines;
    // 0.76 not paid stays due on the ticket.
    TallyRun again = Tally({"cash", out, "--ticket", "2", "-o", Path("again.tly")});
    EXPECT_EQ(again.err.substr(0, again.err.find('\n')), "Cash ticket # 2 for $.76");
}

TEST_F(SellCash, ACardWithoutRacersHasNoBettingWindow) {
    const std::string in = Path("empty.tly");
    WriteFile(in, SavedCard("Empty", true));
    TallyRun r = Tally({"sell", in, "--race", "1", "--bettor", "A", "--bet", "2 W 1"});
    EXPECT_EQ(r.rc, 1);
    // After the recovery file's warning where the card names one that is not there.
    const std::string refusal =
        "Race card must be set up before placing bets\r\n"
        "Please set this parameter using Tools/Setup Race Card\n";
    ASSERT_GE(r.err.size(), refusal.size());
    EXPECT_EQ(r.err.substr(r.err.size() - refusal.size()), refusal) << r.err;
}

}  // namespace
}  // namespace tt::cli
