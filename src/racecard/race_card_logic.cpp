#include "racecard/race_card_logic.h"

#include "files/file_commands.h"
#include "files/recovery_file.h"
#include "model/common.h"
#include "model/help_ids.h"
#include "model/ports.h"

namespace tt {

namespace {

RaceCardLogic* g_active = nullptr;

}  // namespace

RaceCardLogic::RaceCardLogic() {
    caption = "Race Card Setup";
    g_active = this;
}

RaceCardLogic::~RaceCardLogic() {
    if (g_active == this) g_active = nullptr;
}

RaceCardLogic* RaceCardLogic::Active() {
    return g_active;
}

// ---- Assignments by the window's code ----------------------------------------------------

void RaceCardLogic::SetText(ControlState& c, std::string text) {
    if (c.text == text) return;
    c.text = std::move(text);
    if (!loading_) Text_Change(NameOf(c));
}

void RaceCardLogic::SetValue(ControlState& c, int value) {
    if (c.value == value) return;
    c.value = value;
    if (!loading_) Check_Click(NameOf(c));
}

void RaceCardLogic::ChooseOption(std::array<ControlState, 5>& group, int index, bool fire) {
    bool was = group[static_cast<std::size_t>(index)].value != 0;
    for (int i = 0; i < 5; ++i) group[static_cast<std::size_t>(i)].value = i == index ? -1 : 0;
    // Choosing the button that is already chosen clicks nothing.
    if (!fire || was) return;
    FormChanged = true;
    RaceRec& target = &group == &optRRoundTo ? WorkRace(G.CurrentRace) : WorkRace(0);
    target.RoundTo = kRoundCodes[static_cast<std::size_t>(index)];
}

void RaceCardLogic::SetRoundTo(std::array<ControlState, 5>& group, int code) {
    for (int i = 0; i < 5; ++i)
        if (kRoundCodes[static_cast<std::size_t>(i)] == code) {
            ChooseOption(group, i, !loading_);
            return;
        }
}

// ---- Mechanical events ---------------------------------------------------------------------

void RaceCardLogic::Text_Change(const std::string& name) {
    switch (KindOf(name)) {
        case ControlKind::kRaceName:
            txtRaceName_Change();
            break;
        case ControlKind::kRRRaceName:
            break;
        default:
            FormChanged = true;
            break;
    }
}

void RaceCardLogic::Text_GotFocus(const std::string& name) {
    switch (KindOf(name)) {
        case ControlKind::kRaceName:
            txtRaceName_GotFocus();
            break;
        case ControlKind::kRRRaceName:
            txtRRRaceName_GotFocus();
            break;
        case ControlKind::kMoney:
        case ControlKind::kMoneyNoFilter:
        case ControlKind::kNumber:
        case ControlKind::kFont:
            selectText = name;
            break;
        default:
            break;
    }
}

void RaceCardLogic::Text_KeyPress(const std::string& name, int& key) {
    switch (KindOf(name)) {
        case ControlKind::kMoney:
        case ControlKind::kNumber:
        case ControlKind::kFont:
            key = NumericKeyFilter(key, false);
            break;
        default:
            break;
    }
}

void RaceCardLogic::Text_LostFocus(const std::string& name) {
    const ControlKind kind = KindOf(name);
    ControlState& c = Ctl(name);
    switch (kind) {
        case ControlKind::kMoney:
        case ControlKind::kMoneyNoFilter:
            SetText(c, MoneyText(Val(c.text)));
            break;
        case ControlKind::kFont:
            if (&c == &txtReportFontSize)
                txtReportFontSize_LostFocus();
            else
                txtTicketFontSize_LostFocus();
            break;
        default:
            break;
    }
}

void RaceCardLogic::txtReportFontSize_LostFocus() {
    double v = Val(txtReportFontSize.text);
    if (v > 72 || v < 2) {
        Beep();
        MsgBox("Report font must be between 2 and 72! (8 is recommended.)", Buttons::kOK,
               Icon::kExclamation);
        SetFocus("txtReportFontSize");
    }
}

void RaceCardLogic::txtTicketFontSize_LostFocus() {
    double v = Val(txtTicketFontSize.text);
    if (v > 72 || v < 2) {
        Beep();
        MsgBox("Ticket font must be between 2 and 72!  (10 is recommended.)", Buttons::kOK,
               Icon::kExclamation);
        SetFocus("txtTicketFontSize");
    }
}

void RaceCardLogic::Check_Click(const std::string& name) {
    FormChanged = true;
    const ControlState* c = &Ctl(name);
    if (c == &chkRecoveryFlag)
        chkRecoveryFlag_Click();
    else if (c == &chkClearRecovery)
        chkClearRecovery_Click();
    else if (c == &chkBackup)
        chkBackup_Click();
    else if (c == &chkPrintBets)
        chkPrintBets_Click();
    else if (c == &chkUsePostPosition)
        chkUsePostPosition_Click();
    else if (c == &chkUseProgramNbr)
        chkUseProgramNbr_Click();
    else if (c == &chkDefault)
        chkDefault_Click();
    else if (c == &chkRRDefault)
        chkRRDefault_Click();
}

void RaceCardLogic::Option_Click(const std::string& name) {
    for (int i = 0; i < 5; ++i) {
        const std::string suffix = kRoundSuffixes[static_cast<std::size_t>(i)];
        if (name == "optRoundTo" + suffix) {
            optRoundTo[static_cast<std::size_t>(i)].value = 0;
            ChooseOption(optRoundTo, i, true);
            return;
        }
        if (name == "optRRoundTo" + suffix) {
            optRRoundTo[static_cast<std::size_t>(i)].value = 0;
            ChooseOption(optRRoundTo, i, true);
            return;
        }
    }
    Raise(kErrInvalidCall);
}

void RaceCardLogic::chkRecoveryFlag_Click() {
    RecoveryRule();
}
void RaceCardLogic::chkClearRecovery_Click() {
    RecoveryRule();
}
void RaceCardLogic::chkBackup_Click() {
    BackupRule();
}
void RaceCardLogic::chkPrintBets_Click() {
    PrintingRule();
}
void RaceCardLogic::comRaceType_Change() {
    FormChanged = true;
}

// ---- Visibility rules ---------------------------------------------------------------------

void RaceCardLogic::RecoveryRule() {
    const bool recovery = IsChecked(chkRecoveryFlag);
    lblRecoveryFile.visible = txtRecoveryFile.visible = chkClearRecovery.visible =
        cmdBrowse.visible = recovery;
    const bool clear = recovery && IsChecked(chkClearRecovery);
    lblClear1.visible = lblClear2.visible = txtClearDays.visible = clear;
    if (!recovery || txtRecoveryFile.text.empty()) return;
    CloseRecoveryChannel();
    try {
        Files().Append(txtRecoveryFile.text, {});
    } catch (const std::exception&) {
        MsgBox("Error opening the Recovery File");
        SetFocus("txtRecoveryFile");
        return;
    }
    // The file is touched once more, as the log does when its settings change.
    try {
        Files().Append(txtRecoveryFile.text, {});
    } catch (const std::exception&) {
    }
}

void RaceCardLogic::BackupRule() {
    lblSaveAfter1.visible = lblSaveAfter2.visible = txtSaveAfter.visible = IsChecked(chkBackup);
}

void RaceCardLogic::PrintingRule() {
    const bool print = IsChecked(chkPrintBets);
    lblPrint2.visible = lblPrint3.visible = txtMaxTransInPrinter.visible = print;
    lblTicketFontSize.visible = txtTicketFontSize.visible = print;
}

// ---- Load -----------------------------------------------------------------------------------

void RaceCardLogic::Form_Load() {
    // Filling the window from the document is no edit by the user.
    loading_ = true;
    WorkRacer.ReDim(RF.MaxRacers);
    CopyToWork(Copies());

    txtFileName.text = RF.FileName;
    txtSaveAfter.text = Str(RF.SaveAfter.Value());
    txtRecoveryFile.text = RF.RecoveryFile;
    txtClearDays.text = NumText(RF.ClearDays.Value());
    chkRecoveryFlag.value = RF.RecoveryFlag ? 1 : 0;
    chkClearRecovery.value = RF.ClearRecovery ? 1 : 0;
    chkBackup.value = RF.SaveAfter > 0 ? 1 : 0;
    comRaceType.text = RF.RaceType;
    txtMaxTransInPrinter.text = NumText(RF.MaxTransInPrinter.Value());
    txtReportFontSize.text = NumText(RF.ReportFontSize.Value());
    txtTicketFontSize.text = NumText(RF.TicketFontSize.Value());
    chkPrintBets.value = RF.PrintBets ? 1 : 0;
    chkUseBetNbr.value = RF.UseBetNbr ? 1 : 0;
    chkUseProgramNbr.value = RF.UseProgramNbr ? 1 : 0;
    chkUsePostPosition.value = RF.UsePostPosition ? 1 : 0;
    chkDefaultToDummy.value = RF.DefaultToDummy ? 1 : 0;
    chkCollectZero.value = RF.CollectZero ? 1 : 0;
    if (!RF.RacerSort.empty()) {
        comRacerSortText = RF.RacerSort;
        comRacerSort.SetListIndex(-1);
        for (int i = 0; i < comRacerSort.ListCount(); ++i)
            if (comRacerSort.List(i) == RF.RacerSort) comRacerSort.SetListIndex(i);
    }

    const RaceRec& d = WorkRace(0);
    txtMinBet.text = MoneyText(d.MinBet);
    txtMinPayout.text = MoneyText(d.MinPayout);
    txtBetIncr.text = MoneyText(d.BetIncr);
    txtHoldbackPct.text = SingleText(d.HoldbackPct);
    txtHoldbackAmt.text = MoneyText(d.HoldbackAmt);
    for (int q = 1; q <= 5; ++q) txtQuickBet[q].text = MoneyText(d.QuickBet(q));
    for (int t = 1; t <= kBetTypes; ++t) chkBetType[t].value = d.BetType(t) ? 1 : 0;
    SetRoundTo(optRoundTo, d.RoundTo);
    loading_ = false;

    if (RF.DefaultRace == 0) RF.DefaultRace = 1;
    G.CurrentRace = RF.DefaultRace;
    GoToRace(G.CurrentRace);

    RecoveryRule();
    BackupRule();
    PrintingRule();
    SSTab1 = kGeneral;
    FormChanged = false;
}

// ---- Tabs -----------------------------------------------------------------------------------

void RaceCardLogic::SSTab1_Click(int previousTab) {
    if (!ValidateWindow()) return;
    if (previousTab == kRaces) {
        StoreRaceFromWindow(Window(), Copies(), G.CurrentRace);
    } else if (previousTab == kRacers) {
        WorkRace(G.CurrentRace).RaceName = txtRRRaceName.text;
        SetText(txtRaceName, txtRRRaceName.text);
    }
    StoreDefaultsFromWindow(Window(), Copies());
    const std::string name = WorkRace(G.CurrentRace).RaceName;
    SetText(txtRaceName, name);
    SetText(txtRRRaceName, name);
}

void RaceCardLogic::SSTab1_DblClick() {
    if (ValidateWindow()) StoreDefaultsFromWindow(Window(), Copies());
}

int RaceCardLogic::HelpContext() const {
    return help::kRaceCardGeneral + SSTab1;
}

// ---- Validation -----------------------------------------------------------------------------

bool RaceCardLogic::ValidateWindow() {
    G.CancelFlag = false;
    const std::optional<WindowFailure> failure = CheckWindow(Window());
    if (!failure) return true;
    Beep();
    MsgBox(failure->text, Buttons::kOK, failure->exclamation ? Icon::kExclamation : Icon::kNone);
    SSTab1 = failure->tab;
    SetFocus(failure->focus);
    if (failure->selectText) selectText = failure->focus;
    G.CancelFlag = true;
    return false;
}

// ---- OK, Cancel ----------------------------------------------------------------------------

void RaceCardLogic::cmdOK_Click() {
    // A failure shows here and once more below: the window has always done so.
    ValidateWindow();
    DrawFileId();
    G.CancelFlag = false;
    if (!ValidateWindow()) return;
    StoreRaceFromWindow(Window(), Copies(), G.CurrentRace);
    StoreDefaultsFromWindow(Window(), Copies());
    SaveWork(Window(), Copies());
    G.FileChanged = true;
    FormChanged = false;
    if (RF.RecoveryFlag) TestRecoveryFile();
    Unload();
    AdjustMenuForRaceCard();
}

void RaceCardLogic::Form_QueryUnload(bool& cancel) {
    switch (KeepChangesQuestion(FormChanged, caption)) {
        case kCancel:
            cancel = true;
            G.CancelFlag = true;
            return;
        case kYes:
            if (!ValidateWindow()) {
                cancel = true;
                return;
            }
            cmdOK_Click();
            if (!unloaded) cancel = true;
            return;
        default:
            return;
    }
}

void RaceCardLogic::cmdCancel_Click() {
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (!cancel) Unload();
}

void RaceCardLogic::cmdBrowse_Click() {
    FileDialogRequest req;
    req.title = "Recovery File";
    req.filter = kRecoveryFileFilter;
    req.defaultExt = ".tlr";
    if (!txtRecoveryFile.text.empty())
        req.initialName = txtRecoveryFile.text;
    else if (!G.FilePath.empty())
        req.initialName = G.FilePath.substr(0, G.FilePath.find('.'));
    auto name = Dialogs().Save(req);
    if (name && !name->empty()) SetText(txtRecoveryFile, *name);
}

// ---- Sort options ---------------------------------------------------------------------------

void RaceCardLogic::comRacerSort_Click() {
    auto refuse = [&](const char* first, const char* second) {
        Beep();
        MsgBox(std::string(first) + kCrLf + second, Buttons::kOK, Icon::kExclamation);
        comRacerSortText = "Betting Number";
        comRacerSort.SetListIndex(0);
    };
    if (comRacerSortText == "Post Position" && !IsChecked(chkUsePostPosition))
        refuse("Post Position cannot be used to sort unless",
               "the 'Use Post Positions' box is checked!");
    else if (comRacerSortText == "Program Number" && !IsChecked(chkUseProgramNbr))
        refuse("Program Number cannot be used to sort unless",
               "the 'Use Program Numbers' box is checked!");
    MoveRacerToWindow(G.CurrentRace);
}

void RaceCardLogic::chkUsePostPosition_Click() {
    if (!IsChecked(chkUsePostPosition) && comRacerSortText == "Post Position") {
        Beep();
        MsgBox(std::string("Post Position's must be used when 'Post Position'") + kCrLf +
                   "is being used to sort the racers",
               Buttons::kOK, Icon::kExclamation);
        SetValue(chkUsePostPosition, 1);
    }
    MoveRacerToWindow(G.CurrentRace);
}

void RaceCardLogic::chkUseProgramNbr_Click() {
    if (!IsChecked(chkUseProgramNbr) && comRacerSortText == "Program Number") {
        Beep();
        MsgBox(std::string("Program Number's must be used when 'Program Number'") + kCrLf +
                   "is being used to sort the racers",
               Buttons::kOK, Icon::kExclamation);
        SetValue(chkUseProgramNbr, 1);
    }
    MoveRacerToWindow(G.CurrentRace);
}

}  // namespace tt
