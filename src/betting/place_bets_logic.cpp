#include "betting/place_bets_logic.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string_view>
#include <vector>

#include "betting/betting_state.h"
#include "betting/ticket_lists.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

Int16 PlaceBetsLogic::LastPickType;
Int16 PlaceBetsLogic::LastPickRace;
Int16 PlaceBetsLogic::LastPickCount;

namespace {

const char* const kBetTypeCaptions[12] = {"",   "W", "P", "S", "E", "T",
                                          "DD", "3", "4", "5", "6", "A"};
const char* const kBetTypeTips[12] = {"",
                                      "Win bet.",
                                      "Place bet.",
                                      "Show bet.",
                                      "Exacta bet.",
                                      "Trifecta bet.",
                                      "Daily Double bet.",
                                      "Pick 3 bet.",
                                      "Pick 4 bet.",
                                      "Pick 5 bet.",
                                      "Pick 6 bet.",
                                      "Across the Board bet."};

// The item data of a list's choice, read as the window reads it: with nothing chosen the read
// fails.
std::int64_t ChosenItemData(const ListData& list) {
    if (!list.HasSelection()) throw AppError(381, "Invalid property array index");
    return list.ItemData(list.ListIndex());
}

TranTicket& CurrentTranTicket() {
    return Betting.TranTickets(Betting.CurTranTicket);
}

}  // namespace

std::string PlaceBetsLogic::PickControl(int i) {
    return "comPick(" + std::to_string(i) + ")";
}

PlaceBetsLogic::PlaceBetsLogic() {
    caption = "Place Bet";
    fraBet.text = "Edit Bet Area";
    for (int i = 1; i <= 6; ++i) {
        comPick[static_cast<std::size_t>(i)] = ComboState(true);
        lblPick[static_cast<std::size_t>(i)].text = "Pick " + std::to_string(i) + ":";
    }
    comBetType.state.toolTip = "Type of bet.  Press W, P, S, etc. or select with mouse.";
    for (int i = 1; i <= 11; ++i) {
        cmdBetType[static_cast<std::size_t>(i)].text = kBetTypeCaptions[i];
        cmdBetType[static_cast<std::size_t>(i)].toolTip = kBetTypeTips[i];
    }
    cmdAcceptBet.text = "Accept Bet";
    cmdAcceptBet.toolTip = "Save displayed bet to ticket. (F2, Shift+Enter, or Ctrl + B)";
    cmdCancelBet.text = "Cancel Bet";
    cmdCancelBet.toolTip = "Do not save the changes to the displayed bet. (Ctrl + C)";
    cmdDelete.text = "Delete Bet";
    cmdDelete.toolTip = "Delete the bet displayed to the left. (Ctrl + D)";
    cmdAcceptTicket.text = "Accept Ticket";
    cmdAcceptTicket.toolTip = "Add ticket to transaction. (F3, Ctrl+Enter, or Ctrl+T)";
    cmdCancel.text = "Cancel Tckt";
    cmdCancel.toolTip = "Do not save any changes made to the ticket. (Esc)";
    cmdHelp.text = "Help";
    chkBoxed.text = "Boxed";
    chkBoxed.toolTip = "Create multiple bets covering any combination finish of picked racers.";
    flxBetsState.toolTip = "Click to move a bet to edit area. Double-click to see bet details.";
    lblBetTotal.text = "Bet Total:";
    lblBetTotal.toolTip = "Total owed after figuring in multiple bets (ATB, boxed bets)";
    lblExtendedBetAmt.toolTip = lblBetTotal.toolTip;
    lblExtendedBetAmt.text = "$0.00";
    lblOriginal.text = "Original Amount Bet:";
    lblOriginal.toolTip = "For edited bets, the old ticket total prior to the changes.";
    lblOriginalAmtBet.toolTip = lblOriginal.toolTip;
    lblNewAmtBet.text = "New Amount Bet:";
    lblNewAmtBet.toolTip = "The new total bet for the ticket based on changes entered.";
    lblAmtBet.toolTip = lblNewAmtBet.toolTip;
}

// ---- Opening --------------------------------------------------------------------------------

void PlaceBetsLogic::Form_Load() {
    TicketAccepted = false;
    AcceptedChanged = false;
    const std::string& mode = Betting.TicketMode;
    const TranTicket& ticket = CurrentTranTicket();
    if (mode == kNewAgain || mode == kEditTicket || mode == kEditAgain) G.CurrentRace = ticket.Race;
    fraTicket.text = "Ticket #" + Str(static_cast<std::int64_t>(ticket.TicketNbr));

    const RaceRec& race = RF.Race(G.CurrentRace);
    for (int i = 1; i <= 5; ++i) {
        ControlState& b = cmdBetAmt[static_cast<std::size_t>(i)];
        b.visible = !race.QuickBet(i).IsZero();
        if (b.visible) b.text = DollarText(race.QuickBet(i));
    }
    for (int i = 1; i <= kBetTypes; ++i)
        cmdBetType[static_cast<std::size_t>(i)].visible = bool(race.BetType(i));
    cmdBetType[kAcrossTheBoard].visible = race.BetType(1) && race.BetType(2) && race.BetType(3);

    // A race with results can only be looked at.
    const bool open = !RaceFinished(G.CurrentRace);
    for (ControlState* c : {&txtBetAmt, &comBetType.state, &cmdDelete, &cmdAcceptBet, &chkBoxed})
        c->enabled = open;
    for (int i = 1; i <= 6; ++i) comPick[static_cast<std::size_t>(i)].state.enabled = open;
    flxBetsState.enabled = open;
    if (open) {
        chkBoxed.enabled = false;
        BetType = 0;
    }

    lblRaceName.text = NumText(static_cast<std::int64_t>(G.CurrentRace)) + " - " + race.RaceName;
    lblBettorName.text = RF.Bettor(G.CurrentBettor).BettorName;

    BuildBetTypeList();
    bool rebuild = true;
    BuildPickLists(rebuild);
    CalcBetTotal();
    LoadTicketBets();
    BuildBetGrid();
    Betting.CurTempBet = 0;
    TicketDirty = false;
    BetDirty = false;
    G.CancelFlag = false;
    if (open) {
        SetFocus("txtBetAmt");
        selectText = "txtBetAmt";
    } else {
        SetFocus("cmdAcceptTicket");
    }
}

void PlaceBetsLogic::BuildBetTypeList() {
    comBetType.Clear();
    const RaceRec& race = RF.Race(G.CurrentRace);
    bool winPlaceShow = true;
    for (int i = 1; i <= kBetTypes; ++i) {
        if (race.BetType(i))
            comBetType.list.AddItem(G.BetTypeName(i), i);
        else
            winPlaceShow = false;
        // Across the Board stands behind Show when Win, Place and Show are all offered.
        if (BetTypeOf(i) == tt::BetType::kShow && winPlaceShow)
            comBetType.list.AddItem(G.BetTypeName(kAcrossTheBoard), kAcrossTheBoard);
    }
}

// ---- Pick lists -----------------------------------------------------------------------------

int PlaceBetsLogic::PickListCount() const {
    const tt::BetType t = BetTypeOf(BetType);
    if (IsExotic(t)) {
        if (chkBoxed.value != 0) return std::min(RunnersInRace(G.CurrentRace), 6);
        return PicksToWin(t);
    }
    if (IsMultiRace(t)) return LegCount(t);
    return 1;
}

void PlaceBetsLogic::BuildPickLists(bool& rebuild) {
    const int n = PickListCount();
    for (int i = 1; i <= 6; ++i) {
        comPick[static_cast<std::size_t>(i)].state.visible = i <= n;
        lblPick[static_cast<std::size_t>(i)].visible = i <= n;
    }
    const tt::BetType type = BetTypeOf(BetType);
    chkBoxed.enabled = IsExotic(type);

    // Only the lists whose race or number changed are filled again, so that picks already made
    // stay where the type allows it.
    int first = 1;
    if (!rebuild && LastPickRace == G.CurrentRace) {
        const bool crossed = (LastPickType <= 5) != (BetType <= 5);
        if (crossed)
            first = 2;
        else if (n > LastPickCount)
            first = LastPickCount + 1;
        else
            first = n + 1;
    }
    rebuild = false;
    LastPickCount = n;
    LastPickType = BetType;
    LastPickRace = G.CurrentRace;

    for (int i = first; i <= n; ++i) FillPickList(i);
    for (int i = n + 1; i <= 6; ++i) comPick[static_cast<std::size_t>(i)].Select(-1);
    // A multi-race bet names the race of each leg.
    for (int i = 1; i <= 6; ++i) {
        lblPick[static_cast<std::size_t>(i)].text =
            IsMultiRace(type) ? "Race " + std::to_string(PickRace(G.CurrentRace, type, i)) + ":"
                              : "Pick " + std::to_string(i) + ":";
    }
}

void PlaceBetsLogic::FillPickList(int i) {
    ComboState& box = comPick[static_cast<std::size_t>(i)];
    box.Clear();
    const int race = PickRace(G.CurrentRace, BetTypeOf(BetType), i);
    // The legs of a multi-race bet past the last race of the card have no racers.
    if (race > kSpareRace) return;
    const std::string& sort = RF.RacerSort;
    const bool byNumber = sort != "Name" && sort != "Post Position" && sort != "Program Number";

    std::vector<ListItem> items;
    for (std::int64_t slot = 1; slot <= RF.MaxRacers; ++slot) {
        const RacerRec& r = RF.Racer(race, slot);
        if (r.RacerName.empty()) continue;
        const std::string n = Str(static_cast<std::int64_t>(r.BetNbr));
        const bool scratched = bool(r.Scratched);
        std::string text;
        if (byNumber) {
            // Coupled entries share a betting number and one entry of the list.
            if (!scratched) {
                auto same = std::find_if(items.begin(), items.end(), [&](const ListItem& it) {
                    return it.itemData == r.BetNbr;
                });
                if (same != items.end()) {
                    if (same->text.find('/') != std::string::npos)
                        same->text.resize(std::min<std::size_t>(same->text.size(), 14));
                    same->text += "/" + r.RacerName.substr(0, 10);
                    continue;
                }
            }
            text = (scratched ? "Scratched -" : "") + PadNumber(n) + " - " + r.RacerName;
        } else if (sort == "Name") {
            text = (scratched ? "Scratched - " : "") + r.RacerName + " - " + n;
        } else {
            const std::string& key = sort == "Post Position" ? r.PostPosition : r.ProgramNbr;
            text = (scratched ? "Scratched -" : "") + PadNumber(key) + " - (" + n + ") - " +
                   r.RacerName;
        }
        items.push_back({std::move(text), r.BetNbr});
    }
    for (ListItem& it : items) box.list.AddItem(std::move(it.text), it.itemData);
}

int PlaceBetsLogic::CountPicks() const {
    int k = 0;
    for (int i = 1; i <= 6; ++i)
        if (comPick[static_cast<std::size_t>(i)].list.HasSelection()) ++k;
    return k;
}

// ---- Amount, type and total -----------------------------------------------------------------

double PlaceBetsLogic::Amount() const {
    return Val(txtBetAmt.text);
}

void PlaceBetsLogic::CalcBetTotal() {
    const Currency amount = Currency::FromDouble(Amount());
    Currency total = amount;
    const tt::BetType type = BetTypeOf(BetType);
    if (type == tt::BetType::kAcrossTheBoard) {
        total = amount * 3;
    } else if (chkBoxed.value == 1) {
        const std::int64_t k = CountPicks();
        if (type == tt::BetType::kExacta)
            total = amount * (k * (k - 1));
        else if (type == tt::BetType::kTrifecta)
            total = amount * (k * (k - 1) * (k - 2));
        // A box with too few picks costs the amount until Accept Bet refuses it.
        if (total < amount) total = amount;
    }
    ShownBetTotal = total;
    lblExtendedBetAmt.text = MoneyText(total);
}

void PlaceBetsLogic::CheckBetAmt() {
    G.CancelFlag = false;
    const RaceRec& race = RF.Race(G.CurrentRace);
    const double amount = Amount();
    if (amount < race.MinBet.ToDouble()) {
        Beep();
        MsgBox("Minimum bet for this race is" + Str(race.MinBet.ToDouble()) + ".", Buttons::kOK,
               Icon::kExclamation);
        selectText = "txtBetAmt";
        SetFocus("txtBetAmt");
        G.CancelFlag = true;
        return;
    }
    if (race.BetIncr.IsZero()) Raise(kErrDivisionByZero);
    // Passes when the quotient is within 0.005 of a whole number.
    const double steps = RoundPlaces(amount / race.BetIncr.ToDouble(), -2);
    if (steps != std::floor(steps)) {
        Beep();
        MsgBox("Bets can only be placed in increments of" + MoneyText(race.BetIncr), Buttons::kOK,
               Icon::kExclamation);
        G.CancelFlag = true;
    }
}

void PlaceBetsLogic::SetBetType(bool validate) {
    if (validate && !IsBetType(BetType)) {
        Beep();
        MsgBox("Bet Type is not valid!", Buttons::kOK, Icon::kExclamation);
        G.CancelFlag = true;
        return;
    }
    SelectBetType(BetType);
    // A type the race does not offer is no type.
    if (!comBetType.list.HasSelection()) BetType = 0;
    bool rebuild = false;
    BuildPickLists(rebuild);
}

void PlaceBetsLogic::SelectBetType(std::int64_t code) {
    int index = -1;
    for (int i = 0; i < comBetType.list.ListCount(); ++i)
        if (comBetType.list.ItemData(i) == code) {
            index = i;
            break;
        }
    if (comBetType.Select(index) && index >= 0) comBetType_Click();
}

void PlaceBetsLogic::SelectPick(int i, std::int64_t betNbr) {
    ComboState& box = comPick[static_cast<std::size_t>(i)];
    int index = -1;
    if (betNbr != 0)
        for (int k = 0; k < box.list.ListCount(); ++k)
            if (box.list.ItemData(k) == betNbr) {
                index = k;
                break;
            }
    if (box.Select(index) && index >= 0) comPick_Click(i);
}

void PlaceBetsLogic::SetAmountText(const std::string& text) {
    if (txtBetAmt.text == text) return;
    txtBetAmt.text = text;
    txtBetAmt_Change();
}

void PlaceBetsLogic::SetBoxed(int value) {
    if (chkBoxed.value == value) return;
    chkBoxed.value = value;
    chkBoxed_Click();
}

// ---- Accept Bet -----------------------------------------------------------------------------

void PlaceBetsLogic::cmdAcceptBet_Click() {
    G.CancelFlag = false;
    for (int i = 1; i <= 6; ++i) comPick[static_cast<std::size_t>(i)].state.backColor = kColorWhite;

    CheckBetAmt();
    if (G.CancelFlag) return;
    SetBetType(true);
    if (G.CancelFlag) return;
    CalcBetTotal();

    const tt::BetType type = BetTypeOf(BetType);
    const std::string& name = G.BetTypeName(BetType);
    std::string refusal;
    const int k = CountPicks();
    switch (type) {
        case tt::BetType::kWin:
        case tt::BetType::kPlace:
        case tt::BetType::kShow:
            if (!comPick[1].list.HasSelection()) refusal = name + " bets require one pick.";
            break;
        case tt::BetType::kExacta:
            if (k < 2) refusal = "Exacta bets require at least two picks!";
            break;
        case tt::BetType::kTrifecta:
            if (k < 3) refusal = "Trifecta bets require at least three picks!";
            break;
        case tt::BetType::kDailyDouble:
            if (k < 2) refusal = "Daily Double bets require two picks!";
            break;
        case tt::BetType::kPick3:
            if (k < 3) refusal = "Pick 3 bets require three picks!";
            break;
        case tt::BetType::kPick4:
            if (k < 4) refusal = "Pick 4 bets require four picks!";
            break;
        case tt::BetType::kPick5:
            if (k < 5) refusal = "Pick 5 bets require five picks!";
            break;
        case tt::BetType::kPick6:
            if (k < 6) refusal = "Pick 6 bets require six picks!";
            break;
        default:
            // Across the Board goes through even without a pick.
            break;
    }
    if (!refusal.empty()) {
        Beep();
        MsgBox(refusal, Buttons::kOK, Icon::kExclamation);
        G.CancelFlag = true;
        return;
    }

    // One race cannot give the same racer twice; the legs of a multi-race bet are different
    // races.
    if (IsExotic(type)) {
        for (int i = 1; i <= 5; ++i) {
            const ListData& a = comPick[static_cast<std::size_t>(i)].list;
            if (!a.HasSelection()) continue;
            for (int j = i + 1; j <= 6; ++j) {
                const ListData& b = comPick[static_cast<std::size_t>(j)].list;
                if (!b.HasSelection() || a.SelectedData() == 0 ||
                    a.SelectedData() != b.SelectedData())
                    continue;
                comPick[static_cast<std::size_t>(i)].state.backColor = kColorRed;
                comPick[static_cast<std::size_t>(j)].state.backColor = kColorRed;
                Beep();
                MsgBox(std::string("Same bet number chosen for two picks!") + kCrLf +
                       "This is not allowed for " + name + " bets!");
                // The two boxes that follow show the numbers of the second and third lists;
                // with no third pick the second read fails.
                MsgBox(NumText(ChosenItemData(comPick[2].list)));
                MsgBox(NumText(ChosenItemData(comPick[3].list)));
                G.CancelFlag = true;
                SetFocus(PickControl(i));
                return;
            }
        }
    }

    if (BetDirty) TicketDirty = true;
    BettingState& bs = Betting;
    if (bs.CurTempBet == 0) {
        bs.TicketBetCount += 1;
        if (bs.TicketBets.UBound() < bs.TicketBetCount)
            bs.TicketBets.ReDimPreserve(bs.TicketBetCount);
        bs.TicketBets(bs.TicketBetCount) = TempBet();
        bs.CurTempBet = bs.TicketBetCount;
    }
    TempBet& bet = bs.TicketBets(bs.CurTempBet);
    bet.Race = G.CurrentRace;
    bet.BetAmt = Currency::FromDouble(Amount());
    bet.TicketNbr = CurrentTranTicket().TicketNbr;
    bet.Boxed = chkBoxed.value != 0;
    bet.BetCost = ShownBetTotal;
    // The picks close up: lists left empty leave no gap.
    int next = 1;
    for (int i = 1; i <= 6; ++i) {
        const ListData& list = comPick[static_cast<std::size_t>(i)].list;
        if (list.HasSelection()) bet.Pick(next++) = static_cast<std::int16_t>(list.SelectedData());
    }
    for (; next <= 6; ++next) bet.Pick(next) = 0;
    bet.BetType = BetType;

    bs.CurTempBet = 0;
    ClearBetArea();
    BetDirty = false;
}

void PlaceBetsLogic::ClearBetArea() {
    SetAmountText(" ");
    SetBoxed(0);
    lblExtendedBetAmt.text = "$0.00";
    for (int i = 1; i <= 6; ++i) comPick[static_cast<std::size_t>(i)].Select(-1);
    BetType = 0;
    comBetType.Select(-1);
    bool rebuild = false;
    BuildPickLists(rebuild);
    Betting.CurTempBet = 0;
    BetDirty = false;
    BuildBetGrid();
    SetFocus("txtBetAmt");
    selectText = "txtBetAmt";
}

// ---- The ticket's bets ----------------------------------------------------------------------

void PlaceBetsLogic::BuildBetGrid() {
    ++flxBetsBuilds;
    GridData& g = flxBets;
    g.SetFixedCols(0);
    g.SetFixedRows(1);
    g.SetCols(7);
    g.SetRows(1);
    static const char* const kHeads[7] = {"Original Bet#", "Bet Total", "Bet Amt",  "Bet Type",
                                          "Box",           "Picks",     "Tran Bet#"};
    static const int kWidths[7] = {0, 1000, 1000, 1000, 500, 1550, 0};
    for (int c = 0; c < 7; ++c) {
        g.SetTextMatrix(0, c, kHeads[c]);
        g.SetColWidth(c, kWidths[c]);
        g.SetCellAlignment(0, c, CellAlign::kCenter);
    }
    g.SetColAlignment(1, CellAlign::kRight);
    g.SetColAlignment(2, CellAlign::kRight);
    g.SetColAlignment(3, CellAlign::kCenter);
    g.SetColAlignment(4, CellAlign::kCenter);

    const BettingState& bs = Betting;
    const TranTicket& ticket = CurrentTranTicket();
    FormAmtBet = Currency();
    for (std::int64_t i = 1; i <= bs.TicketBetCount; ++i) {
        const TempBet& b = bs.TicketBets(i);
        if (b.BetType == 0 || b.TicketNbr != ticket.TicketNbr) continue;
        std::string type = G.BetTypeName(b.BetType);
        if (type == "Across the Board") type = "ATB";
        if (type == "Daily Double") type = "Daily Dbl";
        std::string picks;
        for (int k = 1; k <= 6; ++k) {
            if (b.Pick(k) == 0) continue;
            if (!picks.empty()) picks += ", ";
            picks += Str(static_cast<std::int64_t>(b.Pick(k)));
        }
        const int row = g.Rows();
        g.SetRows(row + 1);
        g.SetTextMatrix(row, 0, NumText(static_cast<std::int64_t>(b.OrigBetIdx)));
        g.SetTextMatrix(row, 1, DollarText(b.BetCost));
        g.SetTextMatrix(row, 2, DollarText(b.BetAmt));
        g.SetTextMatrix(row, 3, type);
        g.SetTextMatrix(row, 4, b.Boxed ? "X" : " ");
        g.SetTextMatrix(row, 5, picks);
        g.SetTextMatrix(row, 6, NumText(i));
        FormAmtBet += b.BetCost;
    }
    lblBettorName.text = RF.Bettor(ticket.Bettor).BettorName;
    lblAmtBet.text = DollarText(FormAmtBet);
    const bool isNew = Betting.TicketMode == kNewTicket || Betting.TicketMode == kNewAgain;
    lblOriginal.visible = !isNew;
    lblOriginalAmtBet.visible = !isNew;
    if (!isNew) lblOriginalAmtBet.text = DollarText(ticket.OldCost);
}

void PlaceBetsLogic::LoadTicketBets() {
    BettingState& bs = Betting;
    bs.TicketBets.ReDim(1);
    bs.TicketBetCount = 0;
    for (std::int64_t i = 1; i <= bs.TranBetCount; ++i) {
        const TempBet& b = bs.TranBets(i);
        if (b.BetType == 0 || b.TicketNbr != G.CurrentTicket) continue;
        bs.TicketBetCount += 1;
        if (bs.TicketBets.UBound() < bs.TicketBetCount)
            bs.TicketBets.ReDimPreserve(bs.TicketBetCount);
        CopyTempBet(bs.TicketBets(bs.TicketBetCount), b);
    }
}

void PlaceBetsLogic::SaveTicketBets() {
    BettingState& bs = Betting;
    if (G.CurrentTicket != 0) {
        for (std::int64_t i = 1; i <= bs.TranBetCount; ++i) {
            TempBet& b = bs.TranBets(i);
            if (b.TicketNbr != G.CurrentTicket) continue;
            b.BetAmt = Currency();
            b.TicketNbr = 0;
            b.BetType = 0;
            b.BetCost = Currency();
            b.PriorWinnings = Currency();
            b.OrigBetIdx = 0;
        }
    }
    // Free elements are taken from the front, in order; the search goes on from the last one
    // taken.
    std::int64_t free = 1;
    for (std::int64_t i = 1; i <= bs.TicketBetCount; ++i) {
        const TempBet& b = bs.TicketBets(i);
        if (b.BetType == 0) continue;
        while (free <= bs.TranBetCount && bs.TranBets(free).BetType != 0) ++free;
        if (free > bs.TranBetCount) free = AppendTranBet();
        CopyTempBet(bs.TranBets(free), b);
        ++free;
    }
}

void PlaceBetsLogic::DeleteTempBet(std::int64_t index) {
    TempBet& b = Betting.TicketBets(index);
    b.BetAmt = Currency();
    b.Boxed = false;
    b.BetCost = Currency();
    for (int k = 1; k <= 6; ++k) b.Pick(k) = 0;
    b.BetType = 0;
}

// ---- Buttons --------------------------------------------------------------------------------

void PlaceBetsLogic::cmdCancelBet_Click() {
    ClearBetArea();
    BetDirty = false;
}

void PlaceBetsLogic::cmdDelete_Click() {
    if (G.CurrentRace == 0 || Betting.CurTempBet == 0) return;
    Beep();
    if (MsgBox("Are you sure you want to delete this bet?", Buttons::kOKCancel,
               Icon::kExclamation) != kOK)
        return;
    if (RaceFinished(G.CurrentRace)) {
        Beep();
        MsgBox("Results have been calculated. Bet cannot be deleted.");
        return;
    }
    DeleteTempBet(Betting.CurTempBet);
    TicketDirty = true;
    BuildBetGrid();
    ClearBetArea();
    BetDirty = false;
}

void PlaceBetsLogic::cmdAcceptTicket_Click() {
    switch (KeepChangesQuestion(BetDirty, caption,
                                std::string("Displayed bet info has changed,") + kCrLf +
                                    "Do you wish to save those changes before accepting the "
                                    "ticket?")) {
        case kCancel:
            G.CancelFlag = true;
            return;
        case kYes:
            cmdAcceptBet_Click();
            if (G.CancelFlag) return;
            break;
        case kNo:
            BetDirty = false;
            break;
        default:
            break;
    }

    TranTicket& ticket = CurrentTranTicket();
    const std::string& mode = Betting.TicketMode;
    if (mode == kNewTicket || mode == kNewAgain) {
        bool anyBet = false;
        for (std::int64_t i = 1; i <= Betting.TicketBetCount && !anyBet; ++i) {
            const TempBet& b = Betting.TicketBets(i);
            anyBet = b.BetType != 0 && b.TicketNbr == ticket.TicketNbr;
        }
        if (anyBet) {
            ticket.Action = kNewTicket;
            ticket.NewAmtBet = FormAmtBet;
            ticket.NewCollected = FormAmtBet;
        } else {
            // The number stays taken for the rest of the transaction.
            ticket.Race = 0;
            ticket.Bettor = 0;
            ticket.Action = kCancelled;
        }
    } else if (mode == kCashTicket) {
        ticket.Action = kCashTicket;
    } else if (mode == kEditTicket || mode == kEditAgain) {
        ticket.NewAmtBet = FormAmtBet;
        ticket.NewCollected = FormAmtBet;
        ticket.NewDistributed = ticket.Winnings;
    }

    if (ticket.Action != kCancelled) TicketAccepted = true;
    SaveTicketBets();
    if (TicketDirty) AcceptedChanged = true;
    TicketDirty = false;
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (!cancel) Unload();
}

void PlaceBetsLogic::cmdCancel_Click() {
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (!cancel) Unload();
}

int PlaceBetsLogic::ConfirmCancelTicket() {
    Beep();
    return MsgBox("Do you really want to cancel the changes to this ticket?", Buttons::kYesNo);
}

void PlaceBetsLogic::Form_QueryUnload(bool& cancel) {
    if (TicketDirty || BetDirty) {
        if (ConfirmCancelTicket() == kNo) {
            G.CancelFlag = true;
            cancel = true;
            return;
        }
        TicketDirty = false;
        TicketAccepted = false;
        if (!TicketAccepted) RollBackTicket();
        return;
    }
    if (!AcceptedChanged) RollBackTicket();
}

void PlaceBetsLogic::RollBackTicket() {
    BettingState& bs = Betting;
    if (bs.CurTranTicket != bs.TranTicketCount) return;
    const std::string action = bs.TranTickets(bs.CurTranTicket).Action;
    if (action == kEditTicket || action == kNewTicket) bs.TranTicketCount -= 1;
    if (action == kNewTicket) bs.NewTicketCount -= 1;
}

void PlaceBetsLogic::cmdBetAmt_Click(int i) {
    SetAmountText(FormatMoney(RF.Race(G.CurrentRace).QuickBet(i), MoneyPattern::kPlainZero));
    SetFocus("txtBetAmt");
    selectText = "txtBetAmt";
}

void PlaceBetsLogic::cmdBetType_Click(int i) {
    SelectBetType(i);
    BetType = static_cast<std::int16_t>(comBetType.list.SelectedData());
    SetFocus("comBetType");
}

}  // namespace tt
