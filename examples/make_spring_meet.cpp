// Writes examples/spring-meet.tly: the card of a spring meet that a new user sees first.
// Usage: make-spring-meet OUT
//
// The card is made the way a host makes it: File New opens "Race Card Setup", where the
// settings, the races and their racers are typed in; Setup Bettors adds the bettors; Save As
// writes the file. Each window's logic is driven through its events, as the user's keys and
// clicks drive it, and the file comes from the program's own writer with a fixed clock.
//
// Then the first three races take bets, written straight into the bet and ticket records as
// the betting window would leave them, paid in at the window. Races 1 and 2 are run: their
// results go in through "Edit Results", whose OK works out the payouts, so a new user finds
// two settled races and one still open.
//
// Last, the betting window: a few customers at the counter, each a transaction. Tickets on the
// races still to run are sold through Start New Ticket and Place Bet, two winning tickets are
// cashed through Cash/Collect, one customer pays short, and Finish Transaction takes the money.
//
// To add more to the card, add a step before SaveCard that opens the window concerned
// through its command and scripts it in `shell.onShow`.

#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "betting/betting_state.h"
#include "betting/close_transaction_logic.h"
#include "betting/place_bets_logic.h"
#include "betting/ticket_header_logic.h"
#include "betting/transaction_logic.h"
#include "files/file_commands.h"
#include "memory_files.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/display_payouts_logic.h"
#include "payouts/edit_results_logic.h"
#include "payouts/payout_handling_logic.h"
#include "racecard/edit_bettor_logic.h"
#include "racecard/edit_racer_logic.h"
#include "racecard/race_card_logic.h"
#include "racecard/select_bettor_logic.h"
#include "shell/main_commands.h"

using namespace tt;

namespace {

// ---- The world the windows run in -----------------------------------------------------------

// No message box is expected while the card is made, but for the questions of Cash/Collect,
// which the host answers OK: any other box is reported and fails the run.
class Messages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        if (cashing && (r.text.rfind("Cash ticket #", 0) == 0 || r.text.rfind("Collect ", 0) == 0))
            return kOK;
        std::fprintf(stderr, "make-spring-meet: unexpected message: %s\n", r.text.c_str());
        failed = true;
        return r.buttons == Buttons::kYesNo || r.buttons == Buttons::kYesNoCancel ? kNo : kOK;
    }
    void Beep() override {}
    bool failed = false;
    bool cashing = false;
};

// The main window as the windows see it: a window is shown by running its script.
class ScriptShell : public ShellPort {
  public:
    std::map<std::string, std::function<void()>> onShow;
    void SetBusy(bool) override {}
    void DoEvents() override {}
    void SetTitle(const std::string&) override {}
    void ShowMru(const std::array<std::string, 4>&) override {}
    void EnableFileGroup(bool) override {}
    void EnableRaceGroup(bool) override {}
    void CloseChildWindows() override { G.CancelFlag = false; }
    void ShowLogo() override {}
    void ShowForm(const std::string& name, bool) override {
        auto it = onShow.find(name);
        if (it == onShow.end()) {
            std::fprintf(stderr, "make-spring-meet: no script for %s\n", name.c_str());
            failed = true;
            return;
        }
        it->second();
    }
    void UnloadForm(const std::string&) override {}
    bool IsFormLoaded(const std::string&) override { return false; }
    std::string StatusText() override { return {}; }
    void UnloadDisplays(bool) override {}
    bool failed = false;
};

class SaveDialog : public FileDialogPort {
  public:
    std::optional<std::string> Open(const FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::string> Save(const FileDialogRequest&) override { return name; }
    std::string name;
};

// The saved card's header carries this time, so the file stays the same from run to run.
class FixedClock : public ClockPort {
  public:
    DateTime Now() override { return DateTime{2026, 4, 18, 9, 0, 0}; }
    std::int64_t MonotonicMs() override { return 0; }
};

// The draw that gives the card its file identity, 4172.
class FixedRandom : public RandomPort {
  public:
    void Randomize() override {}
    double Rnd() override { return 4171.5 / 30000.0; }
};

using MemoryFiles = bench::MemoryFileSystem;

// ---- The card -----------------------------------------------------------------------------

struct Horse {
    const char* program;
    const char* name;
    int bet;
    const char* post;
    int num, den;
    bool scratched = false;
};

struct RaceDef {
    const char* name;
    std::vector<int> types;  // bet types offered beyond Win, Place and Show
    std::vector<Horse> horses;
};

const std::vector<RaceDef> kRaces = {
    {"Maiden Sprint",
     {4, 6},
     {{"1", "Dandelion Dancer", 1, "1", 5, 2},
      {"2", "Copper Kettle", 2, "2", 3, 1},
      {"3", "Miss Puddleby", 3, "3", 6, 1},
      {"4", "Long Shot Larry", 4, "4", 20, 1},
      {"5", "April Fool", 5, "5", 9, 2},
      {"6", "Clover Hill", 6, "6", 4, 1}}},
    {"Meadowlark Handicap",
     {4},
     {{"1", "Thistledown", 1, "2", 2, 1},
      {"1A", "Thistle Bloom", 1, "6", 2, 1},
      {"2", "Rusty Spur", 2, "1", 7, 2},
      {"3", "Paper Moon", 3, "3", 5, 1},
      {"4", "Gingersnap", 4, "4", 8, 1},
      {"5", "Harbor Light", 5, "5", 9, 2},
      {"6", "Sir Wobbles", 6, "7", 12, 1}}},
    {"Tamberlin Stakes",
     {4, 5, 7},
     {{"1", "Northern Dasher", 1, "1", 8, 5},
      {"2", "Queen of Spades", 2, "2", 3, 1},
      {"3", "Muddy Boots", 3, "3", 10, 1},
      {"4", "Pennywhistle", 4, "4", 4, 1},
      {"5", "Gallant Gus", 5, "5", 6, 1},
      {"6", "Lady Marmalade", 6, "6", 15, 1},
      {"7", "Thunder Road", 7, "7", 5, 1},
      {"8", "Briar Patch", 8, "8", 30, 1}}},
    {"Juvenile Dash",
     {4},
     {{"1", "Little Tornado", 1, "1", 2, 1},
      {"2", "Buttercup", 2, "2", 5, 2},
      {"3", "Pip Squeak", 3, "3", 6, 1},
      {"4", "Sunny Side Up", 4, "4", 4, 1, true},
      {"5", "Hopscotch", 5, "5", 8, 1},
      {"6", "Tiny Tim", 6, "6", 12, 1}}},
    {"Willow Creek Mile",
     {4, 5},
     {{"1", "Silver Birch", 1, "1", 7, 2},
      {"2", "Old Faithful", 2, "2", 3, 1},
      {"3", "Red Baron", 3, "3", 9, 2},
      {"4", "Moonlight Sonata", 4, "4", 5, 2},
      {"5", "Cinnamon Toast", 5, "5", 10, 1},
      {"6", "Wanderlust", 6, "6", 6, 1},
      {"7", "Haystack", 7, "7", 20, 1}}},
    {"Ladies' Cup",
     {4, 6},
     {{"1", "Duchess", 1, "1", 3, 1},
      {"2", "Violet Hour", 2, "2", 5, 2},
      {"3", "Marigold", 3, "3", 4, 1},
      {"4", "Starling", 4, "4", 6, 1},
      {"5", "Rosie Posie", 5, "5", 8, 1},
      {"6", "Belle of the Ball", 6, "6", 9, 2},
      {"7", "Fern Gully", 7, "7", 15, 1},
      {"8", "Honeybee", 8, "8", 12, 1},
      {"9", "Snapdragon", 9, "9", 20, 1}}},
    {"Claiming Race",
     {4},
     {{"1", "Second Chance", 1, "1", 5, 2},
      {"2", "Bargain Bin", 2, "2", 3, 1},
      {"3", "Last Call", 3, "3", 4, 1},
      {"4", "Ol' Reliable", 4, "4", 6, 1},
      {"5", "Fortune Cookie", 5, "5", 10, 1},
      {"6", "Pocket Change", 6, "6", 8, 1},
      {"7", "Tin Cup", 7, "7", 25, 1}}},
    {"Spring Meet Derby",
     {4, 5},
     {{"1", "Regal Thunder", 1, "1", 6, 5},
      {"2", "Midnight Express", 2, "2", 4, 1},
      {"3", "Golden Goose", 3, "3", 5, 1},
      {"4", "Prairie Wind", 4, "4", 7, 2},
      {"5", "Captain Crunch", 5, "5", 12, 1},
      {"6", "Whisper Jet", 6, "6", 9, 2},
      {"7", "Rocket Fuel", 7, "7", 15, 1},
      {"8", "Lucky Clover", 8, "8", 10, 1},
      {"9", "Mister Biscuit", 9, "9", 30, 1},
      {"10", "Dusty Trail", 10, "10", 20, 1}}},
};

struct BettorDef {
    const char* name;
    const char* info;
    const char* email;
    const char* phone;
};

const std::vector<BettorDef> kBettors = {
    {"Alice Hartley", "Brings the lemonade", "alice.hartley@example.com", "555-0101"},
    {"Bob Fenwick", "", "bob@example.com", "555-0102"},
    {"Carmen Ortiz", "Likes long shots", "carmen.ortiz@example.com", "555-0103"},
    {"Dev Patel", "", "dev.patel@example.com", "555-0104"},
    {"Edith Crane", "Pays in coins", "", "555-0105"},
    {"Frank Moreau", "", "frank.moreau@example.com", ""},
    {"Grace Liu", "Exacta fan", "grace.liu@example.com", "555-0107"},
    {"Hank Dobbs", "", "hank@example.com", "555-0108"},
    {"Irene Walsh", "Seat by the rail", "irene.walsh@example.com", "555-0109"},
    {"Jamal Brooks", "", "jamal.brooks@example.com", "555-0110"},
    {"Kate O'Neill", "Host's sister", "kate.oneill@example.com", "555-0111"},
    {"Leo Santos", "", "leo.santos@example.com", "555-0112"},
};

// ---- The host at the windows --------------------------------------------------------------

// Keys and clicks on "Race Card Setup".
struct RaceCardHost {
    RaceCardLogic& card;

    // Tabs into a box, types over its text and tabs out again.
    void Type(const std::string& box, const std::string& text) {
        card.Text_GotFocus(box);
        card.Ctl(box).text = text;
        card.Text_Change(box);
        card.Text_LostFocus(box);
    }
    void Tick(const std::string& box, bool on) {
        if ((card.Ctl(box).value != 0) == on) return;
        card.Ctl(box).value = on ? 1 : 0;
        card.Check_Click(box);
    }
    void Tab(int tab) {
        const int previous = card.SSTab1;
        card.SSTab1 = tab;
        card.SSTab1_Click(previous);
    }
};

// Adds the horses of a race in "Edit Racer", with "Continue to add racers" checked.
void AddHorses(RaceCardLogic& card, const RaceDef& race) {
    EditRacerLogic racer(card);
    racer.Form_Load();
    racer.chkContinueToAdd.value = 1;
    racer.chkContinueToAdd_Click();
    auto type = [&](ControlState& box, const char* name, const std::string& text) {
        box.text = text;
        racer.Text_Change(name);
    };
    for (const Horse& h : race.horses) {
        type(racer.txtBetNbr, "txtBetNbr", std::to_string(h.bet));
        type(racer.txtProgramNbr, "txtProgramNbr", h.program);
        type(racer.txtPostPos, "txtPostPos", h.post);
        type(racer.txtRacerName, "txtRacerName", h.name);
        type(racer.txtOdds1, "txtOdds1", std::to_string(h.num));
        type(racer.txtOdds2, "txtOdds2", std::to_string(h.den));
        if (h.scratched) {
            racer.chkScratched.value = 1;
            racer.chkScratched_Click();
        }
        racer.cmdOK_Click();
    }
    racer.cmdCancel_Click();  // "Close"
}

void SetUpRaceCard(RaceCardLogic& card) {
    RaceCardHost host{card};
    card.Form_Load();

    host.Type("txtFileName", "Tamberlin Downs Spring Meet");
    card.comRaceType.text = "Horse";
    card.comRaceType_Change();
    host.Tick("chkUseBetNbr", true);
    host.Tick("chkUseProgramNbr", true);
    host.Tick("chkUsePostPosition", true);

    host.Tab(RaceCardLogic::kDefaults);
    host.Type("txtMinBet", "2");
    host.Type("txtMinPayout", "2.10");
    host.Type("txtBetIncr", "1");
    host.Type("txtHoldbackPct", "5");
    const char* quick[5] = {"2", "5", "10", "20", "50"};
    for (int i = 1; i <= 5; ++i) host.Type("txtQuickBet(" + std::to_string(i) + ")", quick[i - 1]);

    // Each race is made by entering its empty name box, which gives it the defaults.
    host.Tab(RaceCardLogic::kRaces);
    for (std::size_t i = 0; i < kRaces.size(); ++i) {
        if (i > 0) card.cmdNext_Click();
        card.Text_GotFocus("txtRaceName");
        card.txtRaceName.text = kRaces[i].name;
        card.Text_Change("txtRaceName");
        for (int t : kRaces[i].types) host.Tick("chkRBetType(" + std::to_string(t) + ")", true);
    }

    host.Tab(RaceCardLogic::kRacers);
    for (std::size_t i = 0; i < kRaces.size(); ++i) {
        SelectByItemData(card.comRRRaceName, static_cast<int>(i) + 1);
        card.comRRRaceName_Click();
        card.cmdNew_Click();
    }

    host.Tab(RaceCardLogic::kBackup);
    host.Tick("chkBackup", true);
    host.Type("txtSaveAfter", "10");
    // The age for clearing the recovery file is set, with the file itself left unused.
    host.Tick("chkRecoveryFlag", true);
    host.Tick("chkClearRecovery", true);
    host.Type("txtClearDays", "30");
    host.Tick("chkClearRecovery", false);
    host.Tick("chkRecoveryFlag", false);

    card.cmdOK_Click();
}

void AddBettors(ScriptShell& shell) {
    const BettorDef* next = nullptr;
    shell.onShow["frmEditBettor"] = [&] {
        EditBettorLogic bettor;
        bettor.Form_Load();
        auto type = [&](ControlState& box, const char* name, const char* text) {
            box.text = text;
            bettor.Text_Change(name);
        };
        type(bettor.txtBettorName, "txtBettorName", next->name);
        type(bettor.txtBettorPhone, "txtBettorPhone", next->phone);
        type(bettor.txtBettorEmail, "txtBettorEmail", next->email);
        type(bettor.txtBettorInfo, "txtBettorInfo", next->info);
        bettor.cmdOK_Click();
    };
    shell.onShow["frmSelectBettor"] = [&] {
        SelectBettorLogic list;
        list.Form_Load();
        for (const BettorDef& b : kBettors) {
            next = &b;
            list.cmdNew_Click();
        }
        list.cmdCancel_Click();
    };
    mnuEditSetupBettors_Click();
}

// ---- Bets and results ---------------------------------------------------------------------

struct BetDef {
    int type;
    double amt;
    std::vector<int> picks;  // bet numbers; a multi-race bet's legs from its first race
    bool boxed = false;
};

struct TicketDef {
    const char* bettor;
    int race;
    std::vector<BetDef> bets;
};

constexpr int kWin = 1, kPlace = 2, kShow = 3, kExacta = 4, kTrifecta = 5, kDouble = 6, kPick3 = 7,
              kAcross = 11;

const std::vector<TicketDef> kTickets = {
    {"Alice Hartley", 1, {{kWin, 5, {2}}, {kAcross, 2, {1}}}},
    {"Bob Fenwick", 1, {{kExacta, 2, {2, 1}}, {kWin, 2, {4}}}},
    {"Carmen Ortiz", 1, {{kWin, 10, {4}}, {kShow, 5, {4}}}},
    {"Dev Patel", 1, {{kPlace, 10, {2}}, {kExacta, 1, {1, 2, 5}, true}}},
    {"Edith Crane", 1, {{kShow, 3, {5}}, {kShow, 2, {6}}}},
    {"Frank Moreau", 1, {{kDouble, 2, {2, 1}}, {kDouble, 2, {1, 1}}}},
    {"Grace Liu", 1, {{kExacta, 5, {1, 2}}, {kExacta, 2, {2, 5}, true}}},
    {"Hank Dobbs", 1, {{kWin, 4, {1}}, {kPlace, 4, {1}}}},
    {"Irene Walsh", 1, {{kAcross, 2, {6}}, {kWin, 2, {3}}}},
    {"Jamal Brooks", 1, {{kDouble, 5, {3, 2}}, {kWin, 2, {2}}}},
    {"Leo Santos", 1, {{kPlace, 2, {5}}, {kShow, 2, {2}}}},
    {"Kate O'Neill", 2, {{kWin, 5, {1}}, {kPlace, 3, {2}}}},
    {"Leo Santos", 2, {{kExacta, 2, {1, 2}}, {kShow, 2, {5}}, {kAcross, 2, {3}}}},
    {"Alice Hartley", 2, {{kWin, 2, {2}}, {kExacta, 1, {1, 2, 3}, true}}},
    {"Carmen Ortiz", 2, {{kWin, 5, {6}}, {kPlace, 5, {6}}}},
    {"Grace Liu", 2, {{kExacta, 3, {2, 1}}, {kExacta, 2, {1, 5}, true}}},
    {"Bob Fenwick", 2, {{kShow, 4, {1}}, {kPlace, 2, {1}}}},
    {"Jamal Brooks", 2, {{kWin, 10, {1}}, {kShow, 2, {2}}}},
    {"Dev Patel", 3, {{kWin, 5, {7}}, {kTrifecta, 2, {2, 7, 1}}}},
    {"Hank Dobbs", 3, {{kPick3, 2, {2, 1, 5}}, {kExacta, 2, {2, 7}, true}}},
    {"Irene Walsh", 3, {{kAcross, 2, {2}}, {kTrifecta, 1, {1, 2, 7}, true}}},
    {"Edith Crane", 3, {{kPlace, 5, {4}}, {kShow, 5, {3}}}},
    {"Kate O'Neill", 3, {{kWin, 3, {1}}, {kExacta, 3, {7, 2}}}},
    {"Frank Moreau", 3, {{kPick3, 2, {7, 1, 1}}, {kWin, 2, {8}}}},
};

// The finishers of the races that have been run, as racer slots of the card.
const std::vector<std::pair<int, std::vector<int>>> kResults = {
    {1, {2, 1, 5, 6, 0}},  // Copper Kettle, Dandelion Dancer, April Fool, Clover Hill
    {2, {1, 3, 6, 4, 0}},  // Thistledown, Rusty Spur, Harbor Light, Paper Moon
};

// The tickets and their bets as a finished transaction leaves them: each ticket numbered by
// its slot, its bets in consecutive slots of its race, and its cost paid in.
bool AddBets() {
    for (const TicketDef& def : kTickets) {
        std::int16_t bettor = 0;
        for (std::int64_t b = 1; b <= RF.BettorCount; ++b)
            if (RF.Bettor(b).BettorName == def.bettor) bettor = static_cast<std::int16_t>(b);
        if (bettor == 0) {
            std::fprintf(stderr, "make-spring-meet: no bettor %s\n", def.bettor);
            return false;
        }
        const std::int64_t t = RF.TicketCount + 1;
        RF.Ticket.ReDimPreserve(t + 1);
        RF.TicketCount = static_cast<std::int32_t>(t);
        TicketRec& ticket = RF.Ticket(t);
        ticket.TicketNbr = static_cast<std::int32_t>(t);
        ticket.TicketRace = def.race;
        ticket.TicketBettor = bettor;
        RaceRec& race = RF.Race(def.race);
        ticket.FirstBet = race.BetCount + 1;
        for (const BetDef& b : def.bets) {
            const std::int64_t slot = race.BetCount + 1;
            race.BetCount = static_cast<std::int32_t>(slot);
            if (slot > RF.MaxBets) {
                RF.Bet.ReDimPreserve(slot + 1);
                RF.MaxBets = static_cast<std::int32_t>(slot);
            }
            BetRec& bet = RF.Bet(def.race, slot);
            bet.BetType = b.type;
            bet.BetAmt = Currency::FromDouble(b.amt);
            bet.Boxed = b.boxed;
            int j = 0;
            for (int pick : b.picks) bet.Pick(++j) = pick;
            const std::int64_t n = j;
            std::int64_t combos = b.type == kAcross ? 3 : 1;
            if (b.boxed) combos = b.type == kExacta ? n * (n - 1) : n * (n - 1) * (n - 2);
            bet.BetCost = bet.BetAmt * combos;
            bet.TicketIdx = static_cast<std::int32_t>(t);
            ticket.TicketCost += bet.BetCost;
        }
        ticket.LastBet = race.BetCount;
        ticket.Collected = ticket.TicketCost;
    }
    G.FileChanged = true;
    return true;
}

// Record Race Results for each race that has been run, as the host chooses the finishers in
// "Edit Results" and presses OK. A pool without winners keeps what Payout Handling offers.
void RecordResults(ScriptShell& shell) {
    const std::vector<int>* finish = nullptr;
    int race = 0;
    shell.onShow["frmEditResults"] = [&] {
        EditResultsLogic form;
        form.handling = DialogHandling();
        form.Form_Load();
        SelectByItemData(form.comRaceName, race);
        form.comRaceName_Click();
        for (int k = 1; k <= 5; ++k) {
            auto& list = form.comRacerName[static_cast<std::size_t>(k)].list;
            SelectByItemData(list, (*finish)[static_cast<std::size_t>(k) - 1]);
            form.comRacerName_Click(k);
        }
        form.cmdOK_Click();
        if (!form.unloaded) shell.failed = true;
    };
    shell.onShow["frmDisplayPayouts"] = [] {
        DisplayPayoutsLogic display;
        display.Form_Load();
    };
    for (const auto& [r, order] : kResults) {
        race = r;
        finish = &order;
        mnuEditResults_Click();
    }
}

// ---- At the betting window ----------------------------------------------------------------

// A bet as the host types it into Place Bet: the amount, the type's key, Boxed, the picks.
struct WindowBet {
    const char* amount;
    char type;
    std::vector<int> picks;
    bool boxed = false;
};

struct Sale {
    const char* bettor;
    int race;
    std::vector<WindowBet> bets;
};

// One customer at the counter: tickets bought, tickets brought back to cash or collect, and
// the money that changed hands (what was due, when not given).
struct Visit {
    std::vector<Sale> sales;
    std::vector<int> cashed;
    const char* paid = nullptr;
};

const std::vector<Visit> kVisits = {
    // Alice cashes her winning Maiden Sprint ticket and plays the Juvenile Dash.
    {{{"Alice Hartley", 4, {{"5", 'W', {1}}, {"2", 'E', {1, 2, 5}, true}}}}, {1}},
    // Bob boxes a Trifecta in the Willow Creek Mile.
    {{{"Bob Fenwick", 5, {{"2", 'T', {2, 3, 4}, true}, {"2", 'W', {3}}}}}, {}},
    // Carmen takes a Daily Double into the Claiming Race and pays 5.00 of 7.00.
    {{{"Carmen Ortiz", 6, {{"2", 'D', {3, 2}}, {"5", 'P', {3}}}}}, {}, "5"},
    // Kate cashes her Meadowlark Handicap ticket.
    {{}, {12}},
    // Irene plays two races at once.
    {{{"Irene Walsh", 7, {{"4", 'S', {2}}}},
      {"Irene Walsh", 8, {{"2", 'A', {3}}, {"2", 'E', {1, 8}}}}},
     {}},
};

void TypeBet(PlaceBetsLogic& p, const WindowBet& bet) {
    p.txtBetAmt.text = bet.amount;
    p.txtBetAmt_Change();
    int enter = 13;
    p.txtBetAmt_KeyPress(enter);
    p.txtBetAmt_LostFocus();
    int key = bet.type;
    p.comBetType_KeyPress(key);
    if (bet.boxed) {
        p.chkBoxed.value = 1;
        p.chkBoxed_Click();
    }
    int i = 0;
    for (int pick : bet.picks) {
        ++i;
        p.comPick[static_cast<std::size_t>(i)].text = std::to_string(pick);
        p.comPick_Change(i);
        enter = 13;
        p.comPick_KeyPress(i, enter);
    }
    p.cmdAcceptBet_Click();
}

// Opens the betting window from the Edit menu and serves each customer in turn.
bool RunBettingWindow(ScriptShell& shell, Messages& messages) {
    TransactionLogic window;
    const Sale* sale = nullptr;
    int cash = 0;
    const Visit* visit = nullptr;
    bool ok = true;
    shell.onShow["frmTransaction"] = [&] { window.Form_Load(); };
    shell.onShow["frmTicketHeader"] = [&] {
        TicketHeaderLogic header;
        header.Form_Load();
        if (Betting.TicketMode == kNewTicket) {
            // The race typed by its number, the bettor by name, Enter.
            header.comRaceName.text = std::to_string(sale->race);
            header.comRaceName_Change();
            header.comRaceName_LostFocus();
            header.comBettor.text = sale->bettor;
            header.comBettor_Change();
            int enter = 13;
            header.comBettor_KeyPress(enter);
        } else {
            header.txtTicketNbr.text = std::to_string(cash);
            int enter = 13;
            header.txtTicketNbr_KeyPress(enter);
        }
        ok = ok && header.unloaded;
    };
    shell.onShow["frmPlaceBets"] = [&] {
        PlaceBetsLogic bets;
        bets.Form_Load();
        for (const WindowBet& bet : sale->bets) {
            TypeBet(bets, bet);
            ok = ok && !G.CancelFlag;
        }
        bets.cmdAcceptTicket_Click();
        ok = ok && bets.unloaded;
    };
    shell.onShow["frmCloseTransaction"] = [&] {
        CloseTransactionLogic finish;
        finish.Form_Load();
        if (visit->paid) finish.txtCollDist.text = visit->paid;
        finish.cmdOK_Click();
        ok = ok && finish.unloaded;
    };

    mnuEditPlaceBets_Click();
    for (const Visit& v : kVisits) {
        visit = &v;
        for (const Sale& s : v.sales) {
            sale = &s;
            window.cmdNew_Click();
        }
        messages.cashing = true;
        for (int ticket : v.cashed) {
            cash = ticket;
            window.cmdCash_Click();
        }
        messages.cashing = false;
        window.cmdOK_Click();
        ok = ok && !G.CancelFlag && Betting.TranTicketCount == 0;
    }
    if (!ok) std::fprintf(stderr, "make-spring-meet: a transaction did not go through\n");
    return ok;
}

void SaveCard(SaveDialog& dialog, const std::string& name) {
    dialog.name = name;
    mnuFileSaveAs_Click();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-spring-meet OUT\n");
        return 2;
    }
    Messages messages;
    ScriptShell shell;
    SaveDialog dialog;
    FixedClock clock;
    FixedRandom random;
    MemoryFiles files;
    Ports ports;
    ports.message = &messages;
    ports.shell = &shell;
    ports.fileDialog = &dialog;
    ports.clock = &clock;
    ports.random = &random;
    ports.files = &files;
    PortsScope scope(ports);
    ResetProcessState();

    shell.onShow["frmRaceCard"] = [] {
        RaceCardLogic card;
        SetUpRaceCard(card);
    };
    shell.onShow["frmEditRacer"] = [] {
        RaceCardLogic& card = *RaceCardLogic::Active();
        AddHorses(card, kRaces[static_cast<std::size_t>(G.CurrentRace) - 1]);
    };
    mnuFileNew_Click();
    AddBettors(shell);
    if (!AddBets()) return 1;
    RecordResults(shell);
    ResetBettingState();
    if (!RunBettingWindow(shell, messages)) return 1;
    const std::string name = "spring-meet.tly";
    SaveCard(dialog, name);

    if (messages.failed || shell.failed || G.FileChanged || !files.Has(name)) {
        std::fprintf(stderr, "make-spring-meet: the card was not made\n");
        return 1;
    }
    const std::string& text = files.Get(name);
    std::FILE* f = std::fopen(argv[1], "wb");
    if (!f || std::fwrite(text.data(), 1, text.size(), f) != text.size() || std::fclose(f) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}
