#pragma once
// "Race Card Setup": the card's settings, its races and their racers. The window works on
// private copies of the races and racers; only OK writes them back, so Cancel drops them.
//
// This class holds the window's events: race_card_logic.cpp those of the whole window and of
// the General Setup, Race Defaults and Backup/Recov tabs, race_card_race_setup.cpp and
// race_card_racer_setup.cpp those of the two tabs so named. The controls with their captions are
// in race_card_controls.h; the checks, the stores into the copies and OK's write back into the
// document are in race_card_rules.h.
//
// Where the window's own code assigns a control, the control's Change or Click event follows,
// as the event handlers of the window rely on it (the option buttons store their rounding code
// that way, the text boxes mark the window as changed).

#include <array>
#include <string>

#include "model/form_state.h"
#include "racecard/race_card_controls.h"
#include "racecard/race_card_rules.h"

namespace tt {

inline constexpr const char* kRecoveryFileFilter =
    "Tamberlin Tally Recovery Files (*.tlr)|*.tlr|All (*.*)|*.*";

class RaceCardLogic : public FormState, public RaceCardControls, public WorkCopies {
  public:
    RaceCardLogic();
    ~RaceCardLogic();
    RaceCardLogic(const RaceCardLogic&) = delete;
    RaceCardLogic& operator=(const RaceCardLogic&) = delete;

    // The race card that is open, for the racer windows it opens; null when none is.
    static RaceCardLogic* Active();

    // ---- Events -------------------------------------------------------------------------
    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    // The tab was changed by the user; SSTab1 already holds the new tab.
    void SSTab1_Click(int previousTab);
    void SSTab1_DblClick();

    // Text boxes, by control name ("txtMinBet", "txtQuickBet(2)"). For Change the form has put
    // the typed text into the control first.
    void Text_Change(const std::string& name);
    void Text_GotFocus(const std::string& name);
    void Text_KeyPress(const std::string& name, int& key);
    void Text_LostFocus(const std::string& name);
    // Check boxes by name; the form has set the new value first.
    void Check_Click(const std::string& name);
    // An option button chosen by the user.
    void Option_Click(const std::string& name);

    void txtRaceName_Change();
    void txtRaceName_GotFocus();
    void txtRRRaceName_GotFocus();
    void txtReportFontSize_LostFocus();
    void txtTicketFontSize_LostFocus();
    void chkRecoveryFlag_Click();
    void chkClearRecovery_Click();
    void chkBackup_Click();
    void chkPrintBets_Click();
    void chkUsePostPosition_Click();
    void chkUseProgramNbr_Click();
    void chkDefault_Click();
    void chkRRDefault_Click();
    void comRaceType_Change();
    // comRacerSort_Change is the same action.
    void comRacerSort_Click();
    void comRaceName_Click();
    void comRaceName_DropDown();
    void comRRRaceName_Click();
    void comRRRaceName_DropDown();
    void cmdNext_Click();
    void cmdPrev_Click();
    void cmdRRPrev_Click() { cmdPrev_Click(); }
    void CmdRRNext_Click() { cmdNext_Click(); }
    void cmdDelete_Click();
    void cmdReset_Click();
    void cmdBrowse_Click();
    void cmdNew_Click();
    void cmdCopyRacers_Click();
    void cmdClearRacers_Click();
    void flxRacers_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click();
    // The help topic of the open tab.
    int HelpContext() const;

    // ---- Operations of the window -------------------------------------------------------
    void MoveRaceToWindow(int race);
    // Runs the checks of the window: a failure is shown, sends the user to its box and sets
    // CancelFlag. Returns whether the window passed.
    bool ValidateWindow();
    void GoToRace(int race);
    void BuildRaceLists();
    void ResetRaceToDefaults();
    // Refills the Racer Setup tab from the copy; the racer editor calls it too.
    void MoveRacerToWindow(int race);
    // Grows Racer and the copy to hold slots up to MaxRacers + 1, keeping their contents.
    void GrowRacers();

    // ---- State --------------------------------------------------------------------------
    bool FormChanged = false;
    int SavedGridRow = 0;
    // The text box whose text the form should select, "" for none; the form clears it.
    std::string selectText;

  private:
    const RaceCardControls& Window() const { return *this; }
    WorkCopies& Copies() { return *this; }

    // Assignments by the window's code, followed by the control's event unless loading.
    void SetText(ControlState& c, std::string text);
    void SetValue(ControlState& c, int value);
    // Chooses the option button of a rounding code in a group; a code outside the table leaves
    // the group alone.
    void SetRoundTo(std::array<ControlState, 5>& group, int code);
    void ChooseOption(std::array<ControlState, 5>& group, int index, bool fire);

    void RecoveryRule();
    void BackupRule();
    void PrintingRule();
    void RefreshDefaultChecks();
    void SelectRaceInLists(int race);
    void Step(int delta);
    // The racers of the current race in the copy.
    bool CurrentRaceHasNamedRacer() const;

    bool loading_ = false;
};

}  // namespace tt
