#include "betting/ticket_header_logic.h"

#include <algorithm>
#include <cctype>
#include <unordered_set>
#include <utility>
#include <vector>

#include "betting/betting_state.h"
#include "betting/ticket_lists.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

bool IsNewMode() {
    return Betting.TicketMode == kNewTicket;
}
bool IsEditMode() {
    return Betting.TicketMode == kEditTicket;
}

// The next race with a name and no results: upward from `from` to race 20, then from race 1.
int NextOpenRace(int from) {
    for (int r = std::max(from, 1); r <= kMaxRace; ++r)
        if (RaceExists(r) && !RaceFinished(r)) return r;
    for (int r = 1; r <= kMaxRace; ++r)
        if (RaceExists(r) && !RaceFinished(r)) return r;
    return 0;
}

// What is still due in on a ticket; below 0 it is owed to the bettor.
Currency Net(const TicketRec& t) {
    return t.TicketCost - t.Collected + t.Distributed - t.Winnings;
}

// The default of a cash action is full settlement.
void SettleInFull(TranTicket& t) {
    t.NewDistributed = t.Winnings;
    t.NewCollected = t.OldCost;
    t.Action = kCashTicket;
}

std::string RaceText(int race) {
    return Str(static_cast<std::int64_t>(race)) + " - " + RF.Race(race).RaceName;
}

}  // namespace

TicketHeaderLogic::TicketHeaderLogic() {
    lblRace.text = "&Race:";
    lblBettor.text = "&Bettor:";
    lblTicketNbr.text = "&Ticket #:";
    cmdCancel.text = "Close";
    cmdCancel.toolTip = "Return to the transaction summary.";
    cmdNewBettor.text = "Add New Bettor";
    cmdNewBettor.toolTip = "Add new bettor to the race file.";
    chkContinue.text = "Continue to Cash/Collect";
    chkContinue.toolTip = "If checked, stay here after cashing/collecting a ticket.";
    chkDefault.text = "Set as default";
    cmdHelp.text = "Help";
}

// ---- Opening --------------------------------------------------------------------------------

void TicketHeaderLogic::Form_Load() {
    BuildBettorList();
    G.CurrentBettor = static_cast<std::int16_t>(comBettor.list.SelectedData());
    G.CurrentTicket = 0;
    chkContinue.value = 0;

    if (IsNewMode()) {
        caption = "Start a New Ticket";
        chkContinue.visible = false;
        if (G.CurrentRace == 0 || RaceFinished(G.CurrentRace))
            G.CurrentRace = NextOpenRace(G.CurrentRace);
        if (G.CurrentRace == 0) {
            Beep();
            MsgBox(std::string("Results for all races have been entered!") + kCrLf +
                       "No bets can be placed!",
                   Buttons::kOK, Icon::kExclamation);
            // Nothing can be chosen here: the window goes without giving out a number.
            Unload();
            return;
        }
        BuildRaceList();
        comRaceName.Select(-1);
        SelectByItemData(comRaceName.list, G.CurrentRace);
        comRaceName.text = comRaceName.list.Text();
        Betting.NewTicketCount += 1;
        txtTicketNbr.text =
            NumText(static_cast<std::int64_t>(RF.TicketCount + Betting.NewTicketCount));
        txtTicketNbr.enabled = false;
        cmdEdit.text = "Place Bets";
        cmdEdit.toolTip = "Place bets on selected race and bettor. (F2 or Ctrl + P)";
        flxBetsState.visible = false;
        SetFocus("comBettor");
        selectText = "comBettor";
    } else if (IsEditMode()) {
        caption = "Select a Ticket to Edit";
        chkContinue.visible = false;
        txtTicketNbr.enabled = true;
        cmdEdit.text = "Edit Ticket";
        cmdEdit.toolTip = "Edit bets for selected ticket. (F2 or Ctrl + E)";
        BuildRaceList();
        if (G.CurrentRace == 0) {
            G.CurrentRace = RF.DefaultRace;
            if (G.CurrentRace == 0 || RaceFinished(G.CurrentRace))
                G.CurrentRace = NextOpenRace(G.CurrentRace);
            if (G.CurrentRace == 0) {
                Beep();
                MsgBox(std::string("Results for all races have been entered!") + kCrLf +
                       "No bets can be editted!");
                Unload();
                return;
            }
        }
        // The list shows the race whose tickets are listed.
        SelectByItemData(comRaceName.list, G.CurrentRace);
        comRaceName.text = comRaceName.list.Text();
        BuildTicketList();
        SetFocus("txtTicketNbr");
    } else {
        caption = "Select a Ticket to Cash or Collect";
        txtTicketNbr.enabled = true;
        cmdEdit.text = "Cash/Collect Ticket";
        cmdEdit.toolTip = "Cash or collect balance due on selected ticket. (F2 or Ctrl + C)";
        BuildRaceList();
        SelectByItemData(comRaceName.list, G.CurrentRace);
        comRaceName.text = comRaceName.list.Text();
        BuildTicketList();
        multiSelect = true;
        SetFocus("txtTicketNbr");
    }
    const std::int64_t chosen = comRaceName.list.SelectedData();
    chkDefault.value = chosen != 0 && chosen == RF.DefaultRace ? 1 : 0;
}

void TicketHeaderLogic::BuildRaceList() {
    comRaceName.Clear();
    if (IsEditMode()) comRaceName.list.AddItem(" All w/out Results", 0);
    if (!IsNewMode() && !IsEditMode()) comRaceName.list.AddItem(" All Races", 0);
    const bool openOnly = IsNewMode() || IsEditMode();
    for (int r = 1; r <= kMaxRace; ++r) {
        if (!RaceExists(r) || (openOnly && RaceFinished(r))) continue;
        comRaceName.list.AddItem(PadNumber(Str(r), 5) + " - " + RF.Race(r).RaceName, r);
    }
}

void TicketHeaderLogic::BuildBettorList() {
    comBettor.Clear();
    if (!IsNewMode()) comBettor.list.AddItem(" All bettors", 0);
    // Added in the list's own order, so that each entry goes in at the end.
    std::vector<std::pair<std::string, std::int64_t>> named;
    for (std::int64_t i = 1; i <= RF.BettorCount; ++i)
        if (!RF.Bettor(i).BettorName.empty()) named.emplace_back(RF.Bettor(i).BettorName, i);
    std::stable_sort(named.begin(), named.end(),
                     [](const auto& a, const auto& b) { return LessNoCase(a.first, b.first); });
    for (auto& [name, index] : named) comBettor.list.AddItem(std::move(name), index);

    if (RF.DefaultToDummy) {
        static const std::string kDummy = " Not Specified";
        std::int64_t dummy = 0;
        for (std::int64_t i = 1; i <= RF.BettorCount && dummy == 0; ++i)
            if (RF.Bettor(i).BettorName == kDummy) dummy = i;
        if (dummy == 0) {
            RF.BettorCount += 1;
            RF.Bettor.ReDimPreserve(RF.BettorCount + 1);
            dummy = RF.BettorCount;
            RF.Bettor(dummy).BettorName = kDummy;
            comBettor.list.AddItem(kDummy, dummy);
        }
        SelectByItemData(comBettor.list, dummy);
    } else {
        SelectByItemData(comBettor.list, G.CurrentBettor);
    }
    comBettor.text = comBettor.list.Text();
}

void TicketHeaderLogic::BuildTicketList() {
    if (IsNewMode()) return;
    const bool edit = IsEditMode();
    ++flxBetsBuilds;
    GridData& g = flxBets;
    g.SetFixedCols(0);
    g.SetFixedRows(1);
    g.SetRows(1);
    g.SetCols(edit ? 6 : 7);
    static const char* const kEditHeads[] = {"Ticket#", "Bettor",    "Race",
                                             "Amt Bet", "Collected", "Distributed"};
    static const int kEditWidths[] = {700, 1500, 1500, 900, 900, 900};
    static const char* const kCashHeads[] = {"Ticket#",   "Bettor",  "Race",       "Amt Bet",
                                             "Collected", "Amt Won", "Distributed"};
    static const int kCashWidths[] = {700, 1250, 1250, 800, 850, 800, 900};
    for (int c = 0; c < g.Cols(); ++c) {
        g.SetTextMatrix(0, c, edit ? kEditHeads[c] : kCashHeads[c]);
        g.SetColWidth(c, edit ? kEditWidths[c] : kCashWidths[c]);
        g.SetCellAlignment(0, c, CellAlign::kCenter);
        g.SetColAlignment(c, c >= 3 ? CellAlign::kRight : CellAlign::kGeneral);
    }

    // The rows are counted first, so that the grid is sized once.
    const std::int64_t race = G.CurrentRace;
    const std::int64_t bettor = G.CurrentBettor;
    std::vector<std::int32_t> rows;
    for (std::int64_t n = 1; n <= RF.TicketCount; ++n) {
        const TicketRec& t = RF.Ticket(n);
        if (race != 0 && t.TicketRace != race) continue;
        if (bettor != 0 && t.TicketBettor != bettor) continue;
        if (edit) {
            if (t.TicketBettor == 0 || RaceFinished(t.TicketRace)) continue;
        } else if ((t.Collected - t.Distributed + t.Winnings - t.TicketCost).IsZero()) {
            continue;
        }
        rows.push_back(static_cast<std::int32_t>(n));
    }
    g.SetRows(1 + static_cast<int>(rows.size()));
    int row = 1;
    for (std::int32_t n : rows) {
        const TicketRec& t = RF.Ticket(n);
        g.SetTextMatrix(row, 0, NumText(static_cast<std::int64_t>(n)));
        g.SetTextMatrix(row, 1, RF.Bettor(t.TicketBettor).BettorName);
        g.SetTextMatrix(row, 2, RaceText(t.TicketRace));
        g.SetTextMatrix(row, 3, DollarText(t.TicketCost));
        g.SetTextMatrix(row, 4, DollarText(t.Collected));
        if (edit) {
            g.SetTextMatrix(row, 5, DollarText(t.Distributed));
        } else {
            g.SetTextMatrix(row, 5, DollarText(t.Winnings));
            g.SetTextMatrix(row, 6, DollarText(t.Distributed));
        }
        ++row;
    }
    g.SetRow(g.Rows() > 1 ? 1 : 0);
}

// ---- Race, bettor and number ----------------------------------------------------------------

void TicketHeaderLogic::comRaceName_Click() {
    comRaceName.text = comRaceName.list.Text();
    comRaceName_LostFocus();
}

void TicketHeaderLogic::comRaceName_Change() {
    comRaceName.list.SetListIndex(-1);
}

void TicketHeaderLogic::comRaceName_LostFocus() {
    if (!comRaceName.list.HasSelection()) {
        const double typed = Val(comRaceName.text);
        for (int i = 0; i < comRaceName.list.ListCount(); ++i)
            if (static_cast<double>(comRaceName.list.ItemData(i)) == typed &&
                !TrimBlanks(comRaceName.text).empty()) {
                comRaceName.Select(i);
                break;
            }
        if (!comRaceName.list.HasSelection()) {
            if (!comRaceName.text.empty()) {
                Beep();
                SetFocus("comRaceName");
            }
            return;
        }
    }
    RaceChosen();
}

void TicketHeaderLogic::RaceChosen() {
    const std::int64_t race = comRaceName.list.SelectedData();
    if (race == G.CurrentRace) return;
    G.CurrentRace = race;
    chkDefault.value = race != 0 && race == RF.DefaultRace ? 1 : 0;
    BuildTicketList();
}

void TicketHeaderLogic::comBettor_Click() {
    G.CurrentBettor = static_cast<std::int16_t>(comBettor.list.SelectedData());
    FormChanged = true;
    BuildTicketList();
}

void TicketHeaderLogic::comBettor_Change() {
    // The typed name chooses its bettor, exactly or else without regard to case.
    int index = -1;
    for (int i = 0; i < comBettor.list.ListCount() && index < 0; ++i)
        if (comBettor.list.List(i) == comBettor.text) index = i;
    for (int i = 0; i < comBettor.list.ListCount() && index < 0; ++i)
        if (EqualNoCase(comBettor.list.List(i), comBettor.text)) index = i;
    comBettor.list.SetListIndex(index);
    comBettor_Click();
}

void TicketHeaderLogic::comBettor_GotFocus() {
    comBettor_Click();
}

void TicketHeaderLogic::chkDefault_Click() {
    if (chkDefault.value != 1) return;
    const std::int64_t race = comRaceName.list.SelectedData();
    if (race != 0)
        RF.DefaultRace = race;
    else
        chkDefault.value = 0;
}

void TicketHeaderLogic::chkContinue_Click() {
    if (chkContinue.value == 0) Unload();
}

void TicketHeaderLogic::cmdNewBettor_Click() {
    G.CurrentBettor = 0;
    Shell().ShowForm("frmEditBettor", true);
    BuildBettorList();
    SelectByItemData(comBettor.list, G.CurrentBettor);
    comBettor.text = comBettor.list.Text();
    comBettor_Click();
}

void TicketHeaderLogic::flxBets_Click() {
    const int row = flxBets.Row();
    if (row < flxBets.FixedRows() || row >= flxBets.Rows()) return;
    if (multiSelect && flxBets.RowSel() != row)
        txtTicketNbr.text = " ";
    else
        txtTicketNbr.text = flxBets.TextMatrix(row, 0);
}

void TicketHeaderLogic::flxBets_DblClick() {
    const int row = flxBets.Row();
    if (row < flxBets.FixedRows() || row >= flxBets.Rows()) return;
    G.CurrentTicket = RoundToInt32(Val(flxBets.TextMatrix(row, 0)));
    WaitSeconds(0.25);
    if (G.CurrentTicket != 0) cmdEdit_Click();
}

// ---- Keys -----------------------------------------------------------------------------------

void TicketHeaderLogic::comRaceName_KeyPress(int& key) {
    if (key == kKeyEnter) {
        comRaceName_LostFocus();
        // Enter is no digit either.
        Beep();
        key = 0;
        return;
    }
    if (key == kKeyBackspace || (key >= '0' && key <= '9')) return;
    Beep();
    key = 0;
}

void TicketHeaderLogic::comRaceName_KeyUp(int keyCode) {
    if (keyCode != kKeyEnter || G.CancelFlag) return;
    // A number that names no race keeps the focus.
    if (!comRaceName.list.HasSelection() && !comRaceName.text.empty()) return;
    SetFocus("comBettor");
}

void TicketHeaderLogic::comBettor_KeyPress(int& key) {
    if (IsNewMode() && key == kKeyBackspace) {
        comBettor.Select(-1);
        comBettor_Click();
        key = 0;
        return;
    }
    if (key != kKeyEnter) return;
    key = 0;
    if (IsNewMode()) {
        if (comRaceName.list.HasSelection())
            cmdEdit_Click();
        else
            SetFocus("comRaceName");
    } else if (flxBets.Rows() > flxBets.FixedRows()) {
        // On to the list of tickets, to choose one with the arrow keys.
        SetFocus("flxBets");
    }
}

void TicketHeaderLogic::txtTicketNbr_KeyPress(int& key) {
    if (key != kKeyEnter) return;
    key = 0;
    if (!txtTicketNbr.text.empty()) cmdEdit_Click();
}

void TicketHeaderLogic::flxBets_KeyUp(int keyCode) {
    if (keyCode != kKeyEnter) return;
    if (G.CancelFlag) {
        G.CancelFlag = false;
        return;
    }
    cmdEdit_Click();
}

bool TicketHeaderLogic::Form_KeyDown(int keyCode, int shift, const std::string& focused) {
    const bool ctrl = (shift & kCtrlMask) != 0 && (shift & kAltMask) == 0;
    if (keyCode != kKeyF2 && !(ctrl && (keyCode == 'P' || keyCode == 'E' || keyCode == 'C')))
        return false;
    if (focused == "comRaceName") {
        comRaceName_LostFocus();
        if (!comRaceName.list.HasSelection() && !comRaceName.text.empty()) return true;
    }
    cmdEdit_Click();
    return true;
}

// ---- Tickets --------------------------------------------------------------------------------

void TicketHeaderLogic::CheckTicketNbr() {
    G.CancelFlag = false;
    if (G.CurrentTicket == 0) G.CurrentTicket = RoundToInt32(Val(txtTicketNbr.text));
    const std::int64_t n = G.CurrentTicket;
    bool valid = false;
    if (n >= 1 && n <= RF.TicketCount)
        valid = RF.Ticket(n).TicketBettor != 0;
    else if (n > RF.TicketCount && n <= RF.TicketCount + Betting.NewTicketCount)
        valid = FindTranTicket(n) != 0;
    if (valid) return;
    Beep();
    MsgBox("Invalid Ticket Number for this file!", Buttons::kOK, Icon::kExclamation);
    G.CurrentTicket = 0;
    G.CancelFlag = true;
    SetFocus("txtTicketNbr");
    selectText = "txtTicketNbr";
}

void TicketHeaderLogic::AddTicketToTransaction() {
    AddTicket(true);
}

void TicketHeaderLogic::AddTicket(bool blankOldBets) {
    BettingState& bs = Betting;
    const std::int64_t n = G.CurrentTicket;
    if (blankOldBets) {
        for (std::int64_t i = 1; i <= bs.TranBetCount; ++i) {
            TempBet& b = bs.TranBets(i);
            if (b.TicketNbr != n) continue;
            b.BetType = 0;
            b.BetAmt = Currency();
            b.BetCost = Currency();
            b.PriorWinnings = Currency();
        }
    }
    const TicketRec& ticket = RF.Ticket(n);
    TranTicket& t = AppendTranTicket();
    t.TicketNbr = static_cast<std::int32_t>(n);
    t.Race = ticket.TicketRace;
    t.Bettor = ticket.TicketBettor;
    t.OldCost = ticket.TicketCost;
    t.OldCollected = ticket.Collected;
    t.OldDistributed = ticket.Distributed;
    t.Winnings = ticket.Winnings;
    t.NewAmtBet = t.OldCost;
    t.NewCollected = t.OldCollected;
    t.NewDistributed = t.OldDistributed;
    t.Action = bs.TicketMode;

    const std::int64_t race = ticket.TicketRace;
    for (std::int64_t slot = ticket.FirstBet; slot <= ticket.LastBet; ++slot) {
        const BetRec& bet = RF.Bet(race, slot);
        if (bet.TicketIdx != n) continue;
        const std::int64_t k = AppendTranBet();
        TempBet& b = bs.TranBets(k);
        b.BetAmt = bet.BetAmt;
        b.BetType = bet.BetType;
        b.Boxed = bool(bet.Boxed);
        b.BetCost = bet.BetCost;
        b.Pick = bet.Pick;
        b.PriorWinnings = bet.BetWinnings;
        b.BetMark = bet.WinningCombos;
        b.TicketNbr = static_cast<std::int32_t>(n);
        b.Race = static_cast<std::int16_t>(race);
        b.OrigBetIdx = static_cast<std::int32_t>(slot);
        bs.LoadedTranBet = k;
    }
}

void TicketHeaderLogic::Done() {
    G.CurrentTicket = 0;
    if (chkContinue.value == 0) Unload();
}

void TicketHeaderLogic::cmdEdit_Click() {
    G.CancelFlag = false;
    BettingState& bs = Betting;

    if (IsNewMode()) {
        if (!comRaceName.list.HasSelection()) {
            MsgBox("Please select a race for the ticket!");
            SetFocus("comRaceName");
            return;
        }
        if (!comBettor.list.HasSelection()) {
            MsgBox("Please select a bettor for the ticket!");
            SetFocus("comBettor");
            return;
        }
        TranTicket& t = AppendTranTicket();
        t.Action = kNewTicket;
        t.TicketNbr = RoundToInt32(Val(txtTicketNbr.text));
        t.Bettor = static_cast<std::int16_t>(comBettor.list.SelectedData());
        t.Race = static_cast<std::int16_t>(comRaceName.list.SelectedData());
        Shell().ShowForm("frmPlaceBets", true);
        Done();
        return;
    }

    if (IsEditMode()) {
        CheckTicketNbr();
        if (G.CancelFlag) return;
        const std::int64_t n = G.CurrentTicket;
        const std::int64_t held = FindTranTicket(n);
        const std::int64_t race =
            n <= RF.TicketCount ? RF.Ticket(n).TicketRace : bs.TranTickets(held).Race;
        if (RaceFinished(race)) {
            Beep();
            MsgBox(std::string("The race for this ticket is complete!") + kCrLf +
                   "Bets on this ticket cannot be edited!");
            G.CurrentTicket = 0;
            G.CancelFlag = true;
            SetFocus("txtTicketNbr");
            selectText = "txtTicketNbr";
            return;
        }
        if (held == 0) {
            AddTicketToTransaction();
        } else {
            bs.CurTranTicket = held;
            TranTicket& t = bs.TranTickets(held);
            if (t.Action == kNewTicket) {
                t.Action = kNewAgain;
                bs.TicketMode = kNewAgain;
            } else {
                t.Action = kEditAgain;
            }
        }
        Shell().ShowForm("frmPlaceBets", true);
        Done();
        return;
    }

    // A typed number goes before a range of rows.
    const bool several = flxBets.Row() != flxBets.RowSel() && G.CurrentTicket == 0 &&
                         TrimBlanks(txtTicketNbr.text).empty();
    if (several)
        CashSeveralTickets();
    else
        CashOneTicket();
}

void TicketHeaderLogic::CashOneTicket() {
    CheckTicketNbr();
    if (G.CancelFlag) return;
    const std::int64_t n = G.CurrentTicket;
    if (FindTranTicket(n) != 0) {
        Beep();
        MsgBox("Ticket already handled in this transaction!", Buttons::kOK, Icon::kInformation);
        // So that the Enter that closed the box does not bring the same ticket again.
        G.CurrentTicket = 0;
        G.CancelFlag = true;
        return;
    }
    const TicketRec& t = RF.Ticket(n);
    const Currency net = Net(t);
    Beep();
    int answer;
    if (t.TicketCost == t.Collected && t.Distributed == t.Winnings) {
        answer = MsgBox(std::string("There is nothing to cash or collect on this ticket!") + kCrLf +
                            "Do you want to include it in the transaction anyway?",
                        Buttons::kYesNo, Icon::kExclamation, {}, 1);
    } else if (net < Currency()) {
        answer =
            MsgBox("Cash ticket #" + Str(n) + " for " + DollarText(Abs(net)), Buttons::kOKCancel);
    } else {
        answer =
            MsgBox("Collect " + DollarText(net) + " for ticket #" + NumText(n), Buttons::kOKCancel);
    }
    if (answer != kYes && answer != kOK) {
        G.CurrentTicket = 0;
        G.CancelFlag = true;
        SetFocus("txtTicketNbr");
        selectText = "txtTicketNbr";
        return;
    }
    AddTicketToTransaction();
    SettleInFull(Betting.TranTickets(Betting.CurTranTicket));
    Done();
}

void TicketHeaderLogic::CashSeveralTickets() {
    txtTicketNbr.text = " ";
    const BettingState& bs = Betting;
    std::unordered_set<std::int64_t> inTransaction;
    for (std::int64_t i = 1; i <= bs.TranTicketCount; ++i)
        inTransaction.insert(bs.TranTickets(i).TicketNbr);

    const int top = std::min(flxBets.Row(), flxBets.RowSel());
    const int bottom = std::max(flxBets.Row(), flxBets.RowSel());
    std::vector<std::int64_t> chosen;
    std::int64_t included = 0;
    Currency sum;
    for (int r = top; r <= bottom; ++r) {
        const std::int64_t n = static_cast<std::int64_t>(Val(flxBets.TextMatrix(r, 0)));
        if (inTransaction.count(n) != 0) {
            ++included;
            continue;
        }
        chosen.push_back(n);
        sum += Net(RF.Ticket(n));
    }
    std::string text = Str(static_cast<std::int64_t>(chosen.size())) +
                       " tickets have been selected." + kCrLf + "A net of " + DollarText(Abs(sum)) +
                       " should be " + (sum >= Currency() ? "collected. " : "paid out. ");
    if (included > 0)
        text += std::string(kCrLf) + "(" + Str(included) +
                " tickets are already included in the transaction.)";
    text += std::string(kPartBreak) + "Do you wish to add these to the transaction?";
    if (MsgBox(text, Buttons::kOKCancel) != kOK) {
        G.CurrentTicket = 0;
        G.CancelFlag = true;
        SetFocus("flxBets");
        return;
    }

    // Only tickets that have bets in the transaction's list need those bets blanked.
    std::unordered_set<std::int64_t> withBets;
    for (std::int64_t i = 1; i <= bs.TranBetCount; ++i) withBets.insert(bs.TranBets(i).TicketNbr);
    for (std::int64_t n : chosen) {
        G.CurrentTicket = n;
        AddTicket(withBets.count(n) != 0);
        SettleInFull(Betting.TranTickets(Betting.CurTranTicket));
    }
    Done();
}

void TicketHeaderLogic::cmdCancel_Click() {
    // The number given out at opening was not used.
    if (IsNewMode()) Betting.NewTicketCount -= 1;
    Unload();
}

}  // namespace tt
