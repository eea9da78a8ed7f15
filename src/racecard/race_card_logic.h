#pragma once
// "Race Card Setup": the card's settings, its races and their racers. The window works on
// private copies of the races and racers; only OK writes them back, so Cancel drops them.
//
// Where the window's own code assigns a control, the control's Change or Click event follows,
// as the event handlers of the window rely on it (the option buttons store their rounding code
// that way, the text boxes mark the window as changed).

#include <array>
#include <string>

#include "model/form_state.h"
#include "model/race_file.h"
#include "racecard/race_card_controls.h"

namespace tt {

inline constexpr const char* kRecoveryFileFilter =
    "Tamberlin Tally Recovery Files (*.tlr)|*.tlr|All (*.*)|*.*";

// A racer slot as a freed slot holds it.
void FreeRacerSlot(RacerRec& racer);

class RaceCardLogic : public FormState, public RaceCardControls {
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

    // ---- Operations ---------------------------------------------------------------------
    void CopyToWork();
    void MoveRaceToWindow(int race);
    void StoreRaceFromWindow(int race);
    void StoreDefaultsFromWindow();
    // Sets CancelFlag; returns whether the window passed.
    bool ValidateWindow();
    void SaveWork();
    void GoToRace(int race);
    void BuildRaceLists();
    void ResetRaceToDefaults();
    // Refills the Racer Setup tab from the copy; the racer editor calls it too.
    void MoveRacerToWindow(int race);
    // Grows Racer and the copy to hold slots up to MaxRacers + 1, keeping their contents.
    void GrowRacers();

    // ---- State --------------------------------------------------------------------------
    FixedArray<RaceRec, 0, 21> WorkRace;
    RaceTable<RacerRec> WorkRacer;  // (race, slot), slot 0 never copied
    bool FormChanged = false;
    int SavedGridRow = 0;
    // The text box whose text the form should select, "" for none; the form clears it.
    std::string selectText;

  private:
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
    void ApplyRaceProtection(int race);
    void Step(int delta);
    bool Fail(const std::string& text, bool exclamation, int tab, const std::string& focusName,
              bool selectIt);
    // The racers of the current race in the copy.
    bool CurrentRaceHasNamedRacer() const;

    bool loading_ = false;
};

}  // namespace tt
