#include "reports/list_bets_logic.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_map>
#include <vector>

#include "betting/betting_state.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

bool WinnersOnly = false;

namespace {

ListBetsLogic* gShown = nullptr;

constexpr std::array<const char*, ListBetsLogic::kCols> kHeads = {
    "",        "",    "Ticket",  "Race",     "Bettor", "Coll'd", "Dist'd",
    "Tot Bet", "Won", "Bet Amt", "Bet Type", "Box",    "Picks",  ""};
constexpr std::array<int, ListBetsLogic::kCols> kWidths = {0,   0,   600, 800, 800, 700,  700,
                                                           700, 700, 700, 750, 400, 2500, 0};

// Ticket numbers whose keys sort in number order by their text: at width 10 a number of up to
// eight digits stands right-aligned in nine characters.
constexpr std::int64_t kOrderedKeyLimit = 99'999'999;

// The money texts of one listing: few different amounts recur over thousands of bets.
class MoneyTexts {
  public:
    const std::string& Of(Currency c) {
        auto [it, added] = texts_.try_emplace(c.Raw());
        if (added) it->second = MoneyText(c);
        return it->second;
    }

  private:
    std::unordered_map<std::int64_t, std::string> texts_;
};

// A listed bet: its slot, and the cost and winnings the grid and the totals take for it.
struct ListedBet {
    std::int64_t slot;
    bool third;  // Across the Board under Win, Place or Show: a third of its cost, one part won
    Currency won;
};

// A ticket with listed bets and where they stand in the list of bets.
struct ListedTicket {
    std::int64_t ticket;
    std::size_t first, count;
};

}  // namespace

ListBetsLogic* ShownListBets() {
    return gShown;
}

ShownListBetsScope::ShownListBetsScope(ListBetsLogic* logic) : saved_(gShown) {
    gShown = logic;
}

ShownListBetsScope::~ShownListBetsScope() {
    gShown = saved_;
}

ListBetsLogic::ListBetsLogic() {
    caption = "List Bets";
    optAllBets.text = "All Bets";
    optWinnersOnly.text = "Winners Only";
    chkDefault.text = "Set as default";
    cmdCancel.text = "Close";
    fraTotals.text = "Totals for listed bets";
    lblTotalCap.text = "Amount Bet:";
    lblWonCap.text = " Won:";
    lblCollectedCap.text = " Collected:";
    lblDistributedCap.text = "Distributed:";
    lblEditMsg.text = "To edit a bet, click on the row containing the bet in the list above.";
    SetUpGrid();
}

void ListBetsLogic::SetUpGrid() {
    flxBets.SetCols(kCols);
    flxBets.SetFixedRows(1);
    flxBets.SetFixedCols(0);
    flxBets.SetRows(1);
    for (int c = 0; c < kCols; ++c) {
        flxBets.SetTextMatrix(0, c, kHeads[static_cast<std::size_t>(c)]);
        flxBets.SetColWidth(c, kWidths[static_cast<std::size_t>(c)]);
    }
    for (int c = kColCollected; c <= kColBetAmt; ++c) flxBets.SetColAlignment(c, CellAlign::kRight);
    flxBets.SetColAlignment(kColPicks, CellAlign::kLeft);
}

void ListBetsLogic::Form_Load() {
    Height = G.MainHeight < 5500 ? 3500 : G.MainHeight.Value() - 2000;
    Width = G.MainWidth < 6400 ? 6000 : G.MainWidth.Value() - 400;
    Height = std::max(Height, kMinHeight);
    Width = std::max(Width, kMinWidth);

    BuildRaceCombo(comRaceName, true);
    comBettor.Clear();
    comBettor.AddItem(" All Bettors", 0);
    for (std::int64_t b = 1; b <= RF.BettorCount; ++b)
        if (!RF.Bettor(b).BettorName.empty()) comBettor.AddItem(RF.Bettor(b).BettorName, b);
    SelectByItemData(comBettor, G.CurrentBettor);
    optAllBets.value = WinnersOnly ? 0 : -1;
    optWinnersOnly.value = WinnersOnly ? -1 : 0;
    // Selecting the race clicks it: the type list follows and the bets are listed.
    comRaceName_Click();
}

void ListBetsLogic::Form_Activate() {
    optAllBets.value = WinnersOnly ? 0 : -1;
    optWinnersOnly.value = WinnersOnly ? -1 : 0;
    BuildBetList();
}

void ListBetsLogic::BuildBetTypeList() {
    BuildBetTypeCombo(comBetType, true, false, true, false,
                      static_cast<int>(comRaceName.SelectedData()));
}

void ListBetsLogic::comRaceName_Click() {
    const std::int64_t race = comRaceName.SelectedData();
    chkDefault.value = comRaceName.HasSelection() && race == RF.DefaultRace ? 1 : 0;
    if (comRaceName.HasSelection()) G.CurrentRace = static_cast<std::int16_t>(race);
    BuildBetTypeList();
    BuildBetList();
}

void ListBetsLogic::comBettor_Click() {
    BuildBetList();
}

void ListBetsLogic::comBetType_Click() {
    BuildBetList();
}

void ListBetsLogic::chkDefault_Click() {
    if (chkDefault.value != 1 || !comRaceName.HasSelection()) return;
    const std::int64_t race = comRaceName.SelectedData();
    if (race == 0)
        chkDefault.value = 0;
    else
        RF.DefaultRace = static_cast<std::int16_t>(race);
}

void ListBetsLogic::optAllBets_Click() {
    optAllBets.value = -1;
    optWinnersOnly.value = 0;
    WinnersOnly = false;
    BuildBetList();
}

void ListBetsLogic::optWinnersOnly_Click() {
    optAllBets.value = 0;
    optWinnersOnly.value = -1;
    WinnersOnly = true;
    BuildBetList();
}

void ListBetsLogic::flxBets_Click(int row) {
    if (row < flxBets.FixedRows() || row >= flxBets.Rows()) return;
    G.CurrentRace = static_cast<std::int16_t>(Val(flxBets.TextMatrix(row, kColRace)));
    G.CurrentBet = static_cast<std::int32_t>(Val(flxBets.TextMatrix(row, kColBet)));
    Betting.LoadedTranBet = 0;
    Shell().ShowForm("frmBetDisplay", true);
}

bool ListBetsLogic::IsSeparatorRow(int row) const {
    if (row < flxBets.FixedRows()) return false;
    const std::string& key = flxBets.TextMatrix(row, kColKey);
    return !key.empty() && key.back() == 'a';
}

std::string ListBetsLogic::PicksText(int race, const BetRec& bet) {
    std::string text;
    PicksText(race, bet, text);
    return text;
}

void ListBetsLogic::PicksText(int race, const BetRec& bet, std::string& text) {
    text.clear();
    for (int k = 1; k <= 6; ++k) {
        if (bet.Pick(k) > 0) {
            char digits[8];
            text += ',';
            text.append(digits,
                        std::to_chars(digits, digits + sizeof digits, bet.Pick(k).Value()).ptr);
        }
    }
    if (!text.empty()) text.erase(0, 1);
    text += ' ';
    const RaceRec& rc = RF.Race(race);
    const int type = bet.BetType;
    if (rc.Result(1) > 0 && type > 3 && type != kAcrossTheBoard && bet.CorrectPicks > 0) {
        text += " (" + NumText(bet.CorrectPicks.Value()) + " correct, ";
        if (bet.CorrectPicks == rc.CorrectPaid(type)) {
            if (bet.WinningCombos == 1)
                text += " 1 winning bet)";
            else
                text += NumText(bet.WinningCombos.Value()) + " winning bets)";
        } else {
            text += "not a winner)";
        }
    }
}

void ListBetsLogic::BuildBetList() {
    BuildBetList(RowOrder::kBuiltInOrder);
}

void ListBetsLogic::BuildBetList(RowOrder order) {
    if (comRaceName.HasSelection())
        G.CurrentRace = static_cast<std::int16_t>(comRaceName.SelectedData());
    if (comBettor.HasSelection())
        G.CurrentBettor = static_cast<std::int16_t>(comBettor.SelectedData());
    if (comBetType.HasSelection())
        FilterType = static_cast<std::int16_t>(comBetType.SelectedData());
    const int race = G.CurrentRace;
    const int firstRace = race == 0 ? 1 : race, lastRace = race == 0 ? kMaxRace : race;
    const int bettor = G.CurrentBettor;
    const int filter = FilterType;
    const bool partFilter = filter >= 1 && filter <= 3;

    Currency totalBet, totalWon, totalCollected, totalDistributed;

    // The bets in the order the tickets are walked, and their totals as they are met.
    std::vector<ListedTicket> tickets;
    std::vector<ListedBet> bets;
    bool ordered = order == RowOrder::kBuiltInOrder;
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
        const TicketRec& tk = RF.Ticket(t);
        if (tk.TicketRace < firstRace || tk.TicketRace > lastRace) continue;
        if (tk.TicketBettor == 0) continue;
        if (bettor != 0 && tk.TicketBettor != bettor) continue;
        const std::size_t first = bets.size();
        for (std::int64_t n = tk.FirstBet; n <= tk.LastBet; ++n) {
            const BetRec& b = RF.Bet(tk.TicketRace, n);
            if (WinnersOnly && b.BetWinnings <= Currency()) continue;
            if (filter != 0 && b.BetType != filter && !(partFilter && b.BetType == kAcrossTheBoard))
                continue;
            if (b.TicketIdx != t) continue;
            if (partFilter && b.BetType == kAcrossTheBoard) {
                const Currency part = filter == 1   ? b.WinPart
                                      : filter == 2 ? b.PlacePart
                                                    : b.ShowPart;
                bets.push_back({n, true, part});
                totalBet = Currency::FromDouble(totalBet.ToDouble() + b.BetCost.ToDouble() / 3);
                totalWon += part;
            } else {
                bets.push_back({n, false, b.BetWinnings});
                totalBet += b.BetCost;
                totalWon += b.BetWinnings;
            }
        }
        if (bets.size() > first) {
            tickets.push_back({t, first, bets.size() - first});
            totalCollected += tk.Collected;
            totalDistributed += tk.Distributed;
            if (tk.TicketNbr < 0 || tk.TicketNbr > kOrderedKeyLimit) ordered = false;
        }
    }

    // The rows in the order the grid's sort on the key gives: tickets by number, each ticket's
    // bets in their order, and behind the bets of a number the separators of its tickets. Only
    // where the keys of the numbers would not sort as the numbers do is the grid sorted itself.
    struct Row {
        std::size_t ticket;  // index into tickets
        std::int64_t bet;    // index into bets, -1 for the separator
    };
    std::vector<Row> rows;
    rows.reserve(tickets.size() + bets.size());
    if (ordered) {
        std::vector<std::size_t> byNumber(tickets.size());
        for (std::size_t i = 0; i < tickets.size(); ++i) byNumber[i] = i;
        auto number = [&](std::size_t i) { return RF.Ticket(tickets[i].ticket).TicketNbr.Value(); };
        if (!std::is_sorted(byNumber.begin(), byNumber.end(),
                            [&](std::size_t a, std::size_t b) { return number(a) < number(b); }))
            std::stable_sort(byNumber.begin(), byNumber.end(),
                             [&](std::size_t a, std::size_t b) { return number(a) < number(b); });
        for (std::size_t i = 0; i < byNumber.size();) {
            std::size_t j = i;
            while (j < byNumber.size() && number(byNumber[j]) == number(byNumber[i])) ++j;
            for (std::size_t k = i; k < j; ++k) {
                const ListedTicket& lt = tickets[byNumber[k]];
                for (std::size_t b = lt.first; b < lt.first + lt.count; ++b)
                    rows.push_back({byNumber[k], static_cast<std::int64_t>(b)});
            }
            for (std::size_t k = i; k < j; ++k) rows.push_back({byNumber[k], -1});
            i = j;
        }
    } else {
        for (std::size_t i = 0; i < tickets.size(); ++i) {
            rows.push_back({i, -1});
            for (std::size_t b = tickets[i].first; b < tickets[i].first + tickets[i].count; ++b)
                rows.push_back({i, static_cast<std::int64_t>(b)});
        }
    }

    // The texts shared by the rows of one ticket, of one race, of one amount.
    std::array<std::string, 22> raceIndex, raceText;
    for (int r = firstRace; r <= lastRace; ++r) {
        raceIndex[static_cast<std::size_t>(r)] = NumText(r);
        raceText[static_cast<std::size_t>(r)] = Str(r) + " - " + RF.Race(r).RaceName;
    }
    struct TicketTexts {
        std::string number, collected, distributed, key, separatorKey;
    };
    std::vector<TicketTexts> ticketTexts(tickets.size());
    MoneyTexts money;
    for (std::size_t i = 0; i < tickets.size(); ++i) {
        const TicketRec& tk = RF.Ticket(tickets[i].ticket);
        std::string key = PadNumber(Str(tk.TicketNbr.Value()), 10);
        ticketTexts[i] = {NumText(tk.TicketNbr.Value()), money.Of(tk.Collected),
                          money.Of(tk.Distributed), key, key + "a"};
    }

    // Every cell of every row is written, so that a rebuild reuses the room of the last one.
    flxBets.SetRows(1 + static_cast<int>(rows.size()));
    std::string picks;
    char number[24];
    auto numberText = [&number](std::int64_t v) {
        return std::string_view(
            number, static_cast<std::size_t>(std::to_chars(number, number + sizeof number, v).ptr -
                                             number));
    };
    int r = 1;
    for (const Row& row : rows) {
        const ListedTicket& lt = tickets[row.ticket];
        const TicketTexts& texts = ticketTexts[row.ticket];
        if (row.bet < 0) {
            for (int c = 0; c < kColKey; ++c) flxBets.AssignText(r, c, {});
            flxBets.AssignText(r, kColKey, texts.separatorKey);
            flxBets.SetRowHeight(r, kSeparatorHeight);
            ++r;
            continue;
        }
        const ListedBet& lb = bets[static_cast<std::size_t>(row.bet)];
        const TicketRec& tk = RF.Ticket(lt.ticket);
        const int betRace = tk.TicketRace;
        const BetRec& b = RF.Bet(betRace, lb.slot);
        PicksText(betRace, b, picks);
        flxBets.AssignText(r, kColRace, raceIndex[static_cast<std::size_t>(betRace)]);
        flxBets.AssignText(r, kColBet, numberText(lb.slot));
        flxBets.AssignText(r, kColTicket, texts.number);
        flxBets.AssignText(r, kColRaceName, raceText[static_cast<std::size_t>(betRace)]);
        flxBets.AssignText(r, kColBettor, RF.Bettor(tk.TicketBettor).BettorName);
        flxBets.AssignText(r, kColCollected, texts.collected);
        flxBets.AssignText(r, kColDistributed, texts.distributed);
        flxBets.AssignText(r, kColTotBet,
                           lb.third ? MoneyText(b.BetCost.ToDouble() / 3) : money.Of(b.BetCost));
        flxBets.AssignText(r, kColWon, money.Of(lb.won));
        flxBets.AssignText(r, kColBetAmt, money.Of(b.BetAmt));
        flxBets.AssignText(r, kColBetType,
                           IsBetType(b.BetType) ? G.BetTypeName(b.BetType) : std::string());
        flxBets.AssignText(r, kColBox, b.Boxed ? "  x" : "");
        flxBets.AssignText(r, kColPicks, picks);
        flxBets.AssignText(r, kColKey, texts.key);
        flxBets.SetRowHeight(r, -1);
        ++r;
    }
    if (!ordered && flxBets.Rows() > 2)
        flxBets.SortAscending(1, flxBets.Rows() - 1, kColKey, kColKey);
    if (flxBets.Rows() > 1) flxBets.SetRow(1);

    lblTotal.text = MoneyText(totalBet);
    lblWon.text = MoneyText(totalWon);
    lblCollected.text = MoneyText(totalCollected);
    lblDistributed.text = MoneyText(totalDistributed);
    const Currency net = totalBet - totalCollected + totalDistributed - totalWon;
    if (net > Currency())
        lblDue.text = "A net of " + MoneyText(net) + " is due in for listed bets.";
    else if (net < Currency())
        lblDue.text = "A net of " + MoneyText(Abs(net)) + " is owed out for listed bets.";

    // Collected and distributed money belong to tickets: they do not add up for part of one.
    const bool whole = flxBets.Rows() > 1 && !WinnersOnly && filter == 0;
    for (ControlState* c :
         {&lblCollectedCap, &lblCollected, &lblDistributedCap, &lblDistributed, &lblDue})
        c->visible = whole;
    flxBets.SetColWidth(kColCollected, whole ? kWidths[kColCollected] : 0);
    flxBets.SetColWidth(kColDistributed, whole ? kWidths[kColDistributed] : 0);
}

}  // namespace tt
