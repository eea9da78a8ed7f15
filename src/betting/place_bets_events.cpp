// The Place Bet window's logic, continued: the bet area's own events and the keys that move
// through it.
#include "betting/place_bets_logic.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#include "betting/betting_state.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

// The bet type that a key of the type list stands for, 0 for none.
int BetTypeOfKey(int key) {
    switch (std::toupper(key)) {
        case 'W':
            return Code(BetType::kWin);
        case 'P':
            return Code(BetType::kPlace);
        case 'S':
            return Code(BetType::kShow);
        case 'E':
            return Code(BetType::kExacta);
        case 'T':
            return Code(BetType::kTrifecta);
        case 'D':
            return Code(BetType::kDailyDouble);
        case 'A':
            return Code(BetType::kAcrossTheBoard);
        case '3':
            return Code(BetType::kPick3);
        case '4':
            return Code(BetType::kPick4);
        case '5':
            return Code(BetType::kPick5);
        case '6':
            return Code(BetType::kPick6);
        default:
            return 0;
    }
}

}  // namespace

// ---- The bet area's own events --------------------------------------------------------------

void PlaceBetsLogic::txtBetAmt_Change() {
    BetDirty = true;
    CalcBetTotal();
}

void PlaceBetsLogic::txtBetAmt_GotFocus() {
    selectText = "txtBetAmt";
}

void PlaceBetsLogic::txtBetAmt_LostFocus() {
    if (Amount() > 0 && G.CurrentRace != 0) CheckBetAmt();
    // The amount is written back in money form; that is no change by the host.
    txtBetAmt.text = MoneyText(Amount());
    CalcBetTotal();
}

void PlaceBetsLogic::comBetType_Click() {
    BetType = static_cast<std::int16_t>(comBetType.list.SelectedData());
    SetBetType(false);
    CalcBetTotal();
    BetDirty = true;
}

void PlaceBetsLogic::chkBoxed_Click() {
    BetDirty = true;
    CalcBetTotal();
    bool rebuild = false;
    BuildPickLists(rebuild);
}

void PlaceBetsLogic::comPick_Click(int i) {
    BetDirty = true;
    comPick[static_cast<std::size_t>(i)].state.backColor = kColorWhite;
    CalcBetTotal();
}

void PlaceBetsLogic::comPick_Change(int i) {
    comPick[static_cast<std::size_t>(i)].list.SetListIndex(-1);
}

bool PlaceBetsLogic::comPick_LostFocus(int i) {
    ComboState& box = comPick[static_cast<std::size_t>(i)];
    if (box.text.empty()) {
        if (box.list.HasSelection()) box.list.SetListIndex(-1);
        return true;
    }
    // A choice whose text was not typed over is kept as it is: the texts of scratched racers and
    // of the other orders do not read back as their own number.
    if (box.list.HasSelection() && box.text == box.list.Text()) {
        CalcBetTotal();
        return true;
    }
    int found = -1;
    const std::string& sort = RF.RacerSort;
    if (sort != "Name" && sort != "Post Position" && sort != "Program Number") {
        const double typed = Val(box.text);
        for (int k = 0; k < box.list.ListCount() && found < 0; ++k)
            if (static_cast<double>(box.list.ItemData(k)) == typed) found = k;
    } else {
        for (int k = 0; k < box.list.ListCount() && found < 0; ++k) {
            const std::string entry = TrimBlanks(box.list.List(k));
            if (EqualNoCase(std::string_view(entry).substr(0, box.text.size()), box.text))
                found = k;
        }
    }
    if (found < 0) {
        box.list.SetListIndex(-1);
        Beep();
        SetFocus(PickControl(i));
        return false;
    }
    if (box.Select(found)) comPick_Click(i);
    box.text = box.list.Text();
    CalcBetTotal();
    return true;
}

void PlaceBetsLogic::flxBets_Click(int row) {
    if (row < flxBets.FixedRows() || row >= flxBets.Rows()) return;
    const std::int64_t index = static_cast<std::int64_t>(Val(flxBets.TextMatrix(row, 6)));
    if (BetDirty) {
        Beep();
        switch (MsgBox("Do you want to save your changes to the displayed bet?",
                       Buttons::kYesNoCancel, Icon::kExclamation)) {
            case kYes:
                cmdAcceptBet_Click();
                // A bet that Accept Bet refuses stays in the bet area.
                if (G.CancelFlag) return;
                break;
            case kCancel:
                return;
            default:
                break;
        }
    }
    Betting.CurTempBet = index;
    const TempBet bet = Betting.TicketBets(index);
    SetAmountText(MoneyText(bet.BetAmt));
    lblExtendedBetAmt.text = PlainDecimal(bet.BetCost);
    SelectBetType(bet.BetType);
    SetBoxed(bet.Boxed ? 1 : 0);
    bool rebuild = false;
    BuildPickLists(rebuild);
    for (int k = 1; k <= 6; ++k) SelectPick(k, bet.Pick(k));
    BetDirty = false;
}

void PlaceBetsLogic::flxBets_DblClick(int row) {
    if (row < flxBets.FixedRows() || row >= flxBets.Rows()) return;
    G.CurrentBet = 0;
    Betting.CurTempBet = static_cast<std::int64_t>(Val(flxBets.TextMatrix(row, 6)));
    Shell().ShowForm("frmBetDisplay", true);
}

// ---- Keys -----------------------------------------------------------------------------------

void PlaceBetsLogic::txtBetAmt_KeyPress(int& key) {
    key = NumericKeyFilter(key, false);
    if (key == kKeyEnter) {
        if (Amount() != 0) SetFocus("comBetType");
        key = 0;
    }
}

void PlaceBetsLogic::comBetType_KeyPress(int& key) {
    if (const int code = BetTypeOfKey(key); code != 0) {
        BetType = code;
        SetBetType(false);
        key = 0;
        return;
    }
    if (key == kKeyEnter || key == '\t') {
        // Moves on like Tab; where to is decided when the key comes up.
        key = 0;
        return;
    }
    Beep();
    key = 0;
}

void PlaceBetsLogic::comBetType_KeyUp(int keyCode) {
    if (keyCode != kKeyEnter || G.CancelFlag) return;
    if (comBetType.list.HasSelection() && IsExotic(BetTypeOf(BetType)))
        SetFocus("chkBoxed");
    else
        SetFocus("comPick(1)");
}

void PlaceBetsLogic::chkBoxed_KeyPress(int& key) {
    if (key != kKeyEnter) return;
    SetFocus("comPick(1)");
    key = 0;
}

void PlaceBetsLogic::comPick_KeyPress(int i, int& key) {
    if (key == kKeyEnter) {
        comPick_LostFocus(i);
        key = 0;
        return;
    }
    const std::string& sort = RF.RacerSort;
    const bool byNumber = sort != "Name" && sort != "Post Position" && sort != "Program Number";
    if (byNumber && key != kKeyBackspace && (key < '0' || key > '9')) {
        Beep();
        key = 0;
    }
}

bool PlaceBetsLogic::BeyondNeededPicks(int i) const {
    switch (BetTypeOf(BetType)) {
        case tt::BetType::kWin:
        case tt::BetType::kPlace:
        case tt::BetType::kShow:
        case tt::BetType::kAcrossTheBoard:
            return i > 1;
        case tt::BetType::kExacta:
        case tt::BetType::kDailyDouble:
            return i >= 3;
        case tt::BetType::kTrifecta:
        case tt::BetType::kPick3:
            return i >= 4;
        case tt::BetType::kPick4:
        case tt::BetType::kPick5:
        case tt::BetType::kPick6:
            return i > BetType - 4;
        default:
            return false;
    }
}

void PlaceBetsLogic::comPick_KeyUp(int i, int keyCode) {
    if (keyCode != kKeyEnter || G.CancelFlag) return;
    const ComboState& box = comPick[static_cast<std::size_t>(i)];
    if (box.list.HasSelection()) {
        if (i < 6 && comPick[static_cast<std::size_t>(i) + 1].state.visible)
            SetFocus(PickControl(i + 1));
        else
            SetFocus("cmdAcceptBet");
    } else if (box.text.empty() && BeyondNeededPicks(i)) {
        SetFocus("cmdAcceptBet");
    }
}

bool PlaceBetsLogic::Form_KeyDown(int keyCode, int shift, const std::string& focused) {
    if (shift & kAltMask) return false;
    const bool ctrl = (shift & kCtrlMask) != 0;
    const bool shifted = (shift & kShiftMask) != 0;
    enum { kNone, kBet, kTicket, kDelete, kCancelBet } action = kNone;
    if (keyCode == kKeyF2 || (keyCode == kKeyEnter && shifted && !ctrl) || (ctrl && keyCode == 'B'))
        action = kBet;
    else if (keyCode == kKeyF3 || (keyCode == kKeyEnter && ctrl) || (ctrl && keyCode == 'T'))
        action = kTicket;
    else if (ctrl && keyCode == 'D')
        action = kDelete;
    else if (ctrl && keyCode == 'C')
        action = kCancelBet;
    if (action == kNone) return false;

    // What was typed into the focused box counts, as it would when the mouse went to the button.
    if (action == kBet || action == kTicket) {
        if (focused == "txtBetAmt" && txtBetAmt.enabled) {
            txtBetAmt_LostFocus();
            if (G.CancelFlag) return true;
        }
        for (int i = 1; i <= 6; ++i)
            if (focused == PickControl(i) && comPick[static_cast<std::size_t>(i)].state.enabled &&
                !comPick_LostFocus(i))
                return true;
    }
    switch (action) {
        case kBet:
            if (cmdAcceptBet.enabled) cmdAcceptBet_Click();
            break;
        case kTicket:
            if (cmdAcceptTicket.enabled) cmdAcceptTicket_Click();
            break;
        case kDelete:
            if (cmdDelete.enabled) cmdDelete_Click();
            break;
        default:
            cmdCancelBet_Click();
            break;
    }
    return true;
}

}  // namespace tt
