#pragma once
// The controls of "Race Card Setup" as the window logic keeps them, tab by tab, and the one
// table that names each control with its kind, its caption and its tool tip.

#include <array>
#include <map>
#include <string>
#include <vector>

#include "model/form_state.h"
#include "model/grid_data.h"
#include "model/list_data.h"

namespace tt {

// How the window treats a control's Change, GotFocus, KeyPress and LostFocus.
enum class ControlKind {
    kMoney,          // numeric keys, text selected on entry, money format on leaving
    kMoneyNoFilter,  // the same without the key filter (the race's quick bets)
    kNumber,         // numeric keys, text selected on entry
    kFont,           // a font size: numeric keys, text selected, range check on leaving
    kPlain,          // any text
    kRaceName,       // txtRaceName
    kRRRaceName,     // txtRRRaceName
    kCheck,
    kOption,
    kOther  // labels, buttons, frames, combo boxes
};

// "txtQuickBet" and 3 give "txtQuickBet(3)", the name of a control in an array.
std::string IndexedName(const std::string& name, int index);
// The caption of a race: "1st Race:", "2nd Race:", "3rd Race:", " 4th Race:" ... " 20th Race:".
std::string RaceOrdinalCaption(int race);
// A single as the text boxes show it: the shortest text that reads back to the same value.
std::string SingleText(float f);
inline bool IsChecked(const ControlState& c) {
    return c.value != 0;
}

struct RaceCardControls {
    RaceCardControls();
    RaceCardControls(const RaceCardControls&) = delete;
    RaceCardControls& operator=(const RaceCardControls&) = delete;

    // The tabs of SSTab1.
    enum Tab { kGeneral = 0, kDefaults = 1, kRaces = 2, kRacers = 3, kBackup = 4 };
    // The rounding codes and the name endings of the option buttons, in the order 0.01, 0.10,
    // 0.25, 0.50, 1.00.
    static constexpr std::array<int, 5> kRoundCodes = {-2, -1, 25, 50, 0};
    static constexpr std::array<const char*, 5> kRoundSuffixes = {"001", "010", "25", "50", "1"};

    int SSTab1 = kGeneral;

    // General Setup
    ControlState txtFileName, comRaceType;
    ListData comRaceTypeList;
    ControlState chkPrintBets, lblPrint2, txtMaxTransInPrinter, lblPrint3, lblTicketFontSize,
        txtTicketFontSize, txtReportFontSize;
    ControlState chkUseBetNbr, chkUseProgramNbr, chkUsePostPosition;
    ControlState chkCollectZero, chkDefaultToDummy;
    ListData comRacerSort;
    std::string comRacerSortText;  // the text of comRacerSort, also one not in its list
    // Race Defaults
    ControlState txtMinBet, txtMinPayout, txtBetIncr, txtHoldbackPct, txtHoldbackAmt;
    std::array<ControlState, 11> chkBetType;  // 1 to 10, by bet type code
    std::array<ControlState, 6> txtQuickBet;  // 1 to 5
    std::array<ControlState, 5> optRoundTo;   // 001, 010, 25, 50, 1
    // Race Setup
    ControlState lblRace, txtRaceName, chkDefault, cmdPrev, cmdNext, cmdDelete, lblResultsMessage;
    ListData comRaceName;
    ControlState fraRace, txtRMinBet, txtRMinPayout, txtRBetIncr, txtRHoldbackPct, txtRHoldbackAmt;
    std::array<ControlState, 11> chkRBetType;
    std::array<ControlState, 6> txtRQuickBet;
    std::array<ControlState, 5> optRRoundTo;
    ControlState cmdReset;
    // Racer Setup
    ControlState lblRRRace, txtRRRaceName, chkRRDefault, cmdRRPrev, CmdRRNext;
    ListData comRRRaceName;
    GridData flxRacers;
    ControlState cmdNew, cmdCopyRacers, cmdClearRacers, lblRResultsMessage;
    // Backup/Recov
    ControlState chkBackup, lblSaveAfter1, txtSaveAfter, lblSaveAfter2;
    ControlState chkRecoveryFlag, lblRecoveryFile, txtRecoveryFile, cmdBrowse, chkClearRecovery,
        lblClear1, txtClearDays, lblClear2;
    ControlState cmdOK, cmdCancel, cmdHelp;

    // A control by its name, such as "txtQuickBet(3)" or "optRRoundTo25".
    ControlState& Ctl(const std::string& name);
    bool HasControl(const std::string& name) const { return byName_.count(name) > 0; }
    ControlKind KindOf(const std::string& name) const;
    const std::string& NameOf(const ControlState& c) const;

  private:
    struct Entry {
        ControlState* control;
        ControlKind kind;
    };
    std::map<std::string, Entry> byName_;
    std::map<const ControlState*, std::string> names_;
};

// A row of the controls table.
struct ControlRow {
    std::string name;  // as the form knows the control
    ControlKind kind;
    ControlState& (*at)(RaceCardControls&, int index);
    std::string caption{};
    std::string toolTip{};
    int index = 0;      // the place in a control array
    bool shown = true;  // visible when the window opens
};

// Every control of the window, tab by tab.
const std::vector<ControlRow>& RaceCardControlTable();

}  // namespace tt
