#include "racecard/race_card_controls.h"

#include "model/app_error.h"
#include "model/bet_type.h"
#include "model/common.h"

namespace tt {

namespace {

using C = RaceCardControls;
using K = ControlKind;

// The way from the window's state to one of its controls.
template <ControlState C::*M>
ControlState& One(C& c, int) {
    return c.*M;
}
template <auto M>
ControlState& Item(C& c, int index) {
    return (c.*M)[static_cast<std::size_t>(index)];
}

const char* const kRaceTypes[] = {"Horse", "Car", "Runner", "Dog", "Rabbit", "Golfer"};
const char* const kRacerSorts[] = {"Betting Number", "Program Number", "Post Position", "Name"};

// By bet type code.
const char* const kBetTypeCaptions[11] = {"",       "Win",      "Place",        "Show",
                                          "Exacta", "Trifecta", "Daily Double", "Pick 3",
                                          "Pick 4", "Pick 5",   "Pick 6"};
const char* const kBetTypeTips[11] = {"",
                                      "Pick the winner of the race.",
                                      "Pick one of the top two finishers.",
                                      "Pick one of the top three finishers.",
                                      "Pick the top two finishers in order.",
                                      "Pick the top three finishers in order.",
                                      "Pick the winner of two consecutive races.",
                                      "Pick the winner of 3 consecutive races.",
                                      "Pick the winner of 4 consecutive races.",
                                      "Pick the winner of 5 consecutive races.",
                                      "Pick the winner of 6 consecutive races."};
// In the order of the option buttons.
const char* const kRoundCaptions[5] = {"0.01", "0.10", "0.25", "0.50", "1.00"};

// The control arrays of a race's settings, prefix "" for the defaults and "R" for a race: the
// offered bet types, the quick bets and the rounding options.
template <auto BetTypes, auto QuickBets, auto RoundTo>
void AddSettingsArrays(std::vector<ControlRow>& t, const std::string& prefix, K quickBetKind) {
    for (int i = 1; i <= kBetTypes; ++i)
        t.push_back({IndexedName("chk" + prefix + "BetType", i), K::kCheck, Item<BetTypes>,
                     kBetTypeCaptions[i], kBetTypeTips[i], i});
    for (int i = 1; i <= 5; ++i)
        t.push_back({IndexedName("txt" + prefix + "QuickBet", i), quickBetKind, Item<QuickBets>, "",
                     "", i});
    for (int i = 0; i < 5; ++i)
        t.push_back({"opt" + prefix + "RoundTo" + C::kRoundSuffixes[static_cast<std::size_t>(i)],
                     K::kOption, Item<RoundTo>, kRoundCaptions[i], "", i});
}

std::vector<ControlRow> BuildTable() {
    std::vector<ControlRow> t = {
        // General Setup
        {"txtFileName", K::kPlain, One<&C::txtFileName>},
        {"comRaceType", K::kOther, One<&C::comRaceType>},
        {"chkPrintBets", K::kCheck, One<&C::chkPrintBets>, "Print tickets"},
        {"lblPrint2", K::kOther, One<&C::lblPrint2>, "Hold a maximum of "},
        {"txtMaxTransInPrinter", K::kNumber, One<&C::txtMaxTransInPrinter>},
        {"lblPrint3", K::kOther, One<&C::lblPrint3>, "transactions in memory before printing"},
        {"lblTicketFontSize", K::kOther, One<&C::lblTicketFontSize>, "Font Size:"},
        {"txtTicketFontSize", K::kFont, One<&C::txtTicketFontSize>},
        {"txtReportFontSize", K::kFont, One<&C::txtReportFontSize>},
        {"chkUseBetNbr", K::kCheck, One<&C::chkUseBetNbr>, "Use Bet Numbers"},
        {"chkUseProgramNbr", K::kCheck, One<&C::chkUseProgramNbr>, "Use Program Numbers"},
        {"chkUsePostPosition", K::kCheck, One<&C::chkUsePostPosition>, "Use Post Positions"},
        {"chkCollectZero", K::kCheck, One<&C::chkCollectZero>,
         "Default cash/collect amount to 0.00"},
        {"chkDefaultToDummy", K::kCheck, One<&C::chkDefaultToDummy>,
         "Default Bettor to \"Not Specified\""},
        // Race Defaults
        {"txtMinBet", K::kMoney, One<&C::txtMinBet>},
        {"txtMinPayout", K::kMoney, One<&C::txtMinPayout>},
        {"txtBetIncr", K::kMoney, One<&C::txtBetIncr>},
        {"txtHoldbackPct", K::kNumber, One<&C::txtHoldbackPct>},
        {"txtHoldbackAmt", K::kMoney, One<&C::txtHoldbackAmt>},
        // Race Setup
        {"lblRace", K::kOther, One<&C::lblRace>},
        {"txtRaceName", K::kRaceName, One<&C::txtRaceName>},
        {"chkDefault", K::kCheck, One<&C::chkDefault>, "Set as default"},
        {"cmdPrev", K::kOther, One<&C::cmdPrev>, "<< Prev"},
        {"cmdNext", K::kOther, One<&C::cmdNext>, "Next >>"},
        {"cmdDelete", K::kOther, One<&C::cmdDelete>, "Delete"},
        {"lblResultsMessage", K::kOther, One<&C::lblResultsMessage>,
         "Results for this race entered.  To edit protected items you must remove the results.", "",
         0, false},
        {"fraRace", K::kOther, One<&C::fraRace>, "Settings for this Race"},
        {"txtRMinBet", K::kMoney, One<&C::txtRMinBet>},
        {"txtRMinPayout", K::kMoney, One<&C::txtRMinPayout>},
        {"txtRBetIncr", K::kMoney, One<&C::txtRBetIncr>},
        {"txtRHoldbackPct", K::kNumber, One<&C::txtRHoldbackPct>},
        {"txtRHoldbackAmt", K::kMoney, One<&C::txtRHoldbackAmt>},
        {"cmdReset", K::kOther, One<&C::cmdReset>, "Reset to Defaults:"},
        // Racer Setup
        {"lblRRRace", K::kOther, One<&C::lblRRRace>},
        {"txtRRRaceName", K::kRRRaceName, One<&C::txtRRRaceName>},
        {"chkRRDefault", K::kCheck, One<&C::chkRRDefault>, "Set as default"},
        {"cmdRRPrev", K::kOther, One<&C::cmdRRPrev>, "<< Prev"},
        {"CmdRRNext", K::kOther, One<&C::CmdRRNext>, "Next >>"},
        {"cmdNew", K::kOther, One<&C::cmdNew>, "New Racer"},
        {"cmdCopyRacers", K::kOther, One<&C::cmdCopyRacers>, "Copy Racers"},
        {"cmdClearRacers", K::kOther, One<&C::cmdClearRacers>, "Remove All:"},
        {"lblRResultsMessage", K::kOther, One<&C::lblRResultsMessage>,
         "Results for this race entered.  To edit racers you must remove the results.", "", 0,
         false},
        // Backup/Recov
        {"chkBackup", K::kCheck, One<&C::chkBackup>, "Prompt for file backup"},
        {"lblSaveAfter1", K::kOther, One<&C::lblSaveAfter1>, "After every"},
        {"txtSaveAfter", K::kNumber, One<&C::txtSaveAfter>},
        {"lblSaveAfter2", K::kOther, One<&C::lblSaveAfter2>, "transactions"},
        {"chkRecoveryFlag", K::kCheck, One<&C::chkRecoveryFlag>, "Use Recovery File"},
        {"lblRecoveryFile", K::kOther, One<&C::lblRecoveryFile>, "Transaction Recovery File:"},
        {"txtRecoveryFile", K::kPlain, One<&C::txtRecoveryFile>},
        {"cmdBrowse", K::kOther, One<&C::cmdBrowse>, "Browse..."},
        {"chkClearRecovery", K::kCheck, One<&C::chkClearRecovery>,
         "Clear Recovery File on file save."},
        {"lblClear1", K::kOther, One<&C::lblClear1>, "Clear data"},
        {"txtClearDays", K::kNumber, One<&C::txtClearDays>},
        {"lblClear2", K::kOther, One<&C::lblClear2>, "days old on File/Save."},
        // Outside the tabs
        {"cmdOK", K::kOther, One<&C::cmdOK>, "OK"},
        {"cmdCancel", K::kOther, One<&C::cmdCancel>, "Cancel"},
        {"cmdHelp", K::kOther, One<&C::cmdHelp>, "Help"},
    };
    // The arrays of Race Defaults, and the same in Race Setup, whose quick bets take any key.
    AddSettingsArrays<&C::chkBetType, &C::txtQuickBet, &C::optRoundTo>(t, "", K::kMoney);
    AddSettingsArrays<&C::chkRBetType, &C::txtRQuickBet, &C::optRRoundTo>(t, "R",
                                                                          K::kMoneyNoFilter);
    return t;
}

}  // namespace

std::string IndexedName(const std::string& name, int index) {
    return name + "(" + std::to_string(index) + ")";
}

std::string RaceOrdinalCaption(int race) {
    switch (race) {
        case 1:
            return "1st Race:";
        case 2:
            return "2nd Race:";
        case 3:
            return "3rd Race:";
        default:
            return Str(race) + "th Race:";
    }
}

std::string SingleText(float f) {
    std::string s;
    AppendFileNumber(s, f);
    return s;
}

const std::vector<ControlRow>& RaceCardControlTable() {
    static const std::vector<ControlRow> table = BuildTable();
    return table;
}

RaceCardControls::RaceCardControls() {
    for (const char* t : kRaceTypes) comRaceTypeList.AddItem(t);
    for (const char* s : kRacerSorts) comRacerSort.AddItem(s);
    for (const ControlRow& row : RaceCardControlTable()) {
        ControlState& c = row.at(*this, row.index);
        c.text = row.caption;
        c.toolTip = row.toolTip;
        c.visible = row.shown;
        byName_[row.name] = {&c, row.kind};
        names_[&c] = row.name;
    }
}

ControlState& RaceCardControls::Ctl(const std::string& name) {
    auto it = byName_.find(name);
    if (it == byName_.end()) Raise(kErrInvalidCall);
    return *it->second.control;
}

ControlKind RaceCardControls::KindOf(const std::string& name) const {
    return byName_.at(name).kind;
}

const std::string& RaceCardControls::NameOf(const ControlState& c) const {
    return names_.at(&c);
}

}  // namespace tt
