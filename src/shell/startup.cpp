#include "shell/startup.h"

#include <algorithm>

#include "files/file_commands.h"
#include "files/recovery_file.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

void PrepareDocument() {
    G.FileChanged = false;
    InitialiseTables();
    FillBetTypeNames();
}

namespace {
double ReadSingleSetting(const char* key, double fallback) {
    auto v = Settings().Get(key);
    if (!v) return fallback;
    auto f = ParseSingleField(*v);
    if (v->empty() || !f) throw AppError(kErrTypeMismatch);
    return *f;
}
}  // namespace

Placement ReadMainPlacement() {
    Placement p;
    p.left = ReadSingleSetting("MainLeft", 1000);
    p.top = ReadSingleSetting("MainTop", 1000);
    p.width = ReadSingleSetting("MainWidth", 4000);
    p.height = ReadSingleSetting("MainHeight", 4000);
    return p;
}

void LoadRecentFiles() {
    for (int i = 0; i < 4; ++i)
        G.Mru[static_cast<std::size_t>(i)] = Settings().Get("MRU" + std::to_string(i)).value_or("");
    Shell().ShowMru(G.Mru);
}

void StoreMainPlacement(const Placement& p) {
    G.MainTop = RoundToInt32(p.top);
    G.MainHeight = RoundToInt32(p.height);
    G.MainLeft = RoundToInt32(p.left);
    G.MainWidth = RoundToInt32(p.width);
}

void SaveMainPlacement(const Placement& p) {
    Settings().Set("MainLeft", NumText(p.left));
    Settings().Set("MainTop", NumText(p.top));
    Settings().Set("MainWidth", NumText(p.width));
    Settings().Set("MainHeight", NumText(p.height));
}

Placement CenterOnScreen(Placement form, double screenWidth, double screenHeight) {
    form.left = std::max(0.0, (screenWidth - form.width) / 2);
    form.top = std::max(0.0, (screenHeight - form.height) / 2);
    return form;
}

Placement CenterInMain(Placement form) {
    form.top = std::max(0.0, (G.MainHeight - 1500 - form.height) / 2);
    form.left = std::max(0.0, (G.MainWidth - form.width) / 2);
    return form;
}

Placement PlaceLogo(Placement form) {
    form = CenterInMain(form);
    form.left = std::min(form.left, 1500.0);
    form.top = std::min(form.top, 1000.0);
    return form;
}

std::vector<std::string> InitialOpenEntries() {
    std::vector<std::string> entries;
    for (const auto& m : G.Mru)
        if (!m.empty()) entries.push_back(m);
    entries.push_back(kMoreFiles);
    entries.push_back(kStartNewFile);
    return entries;
}

bool InitialOpenChoose(const std::string& entry, bool hasSelection) {
    if (!hasSelection) {
        Beep();
        MsgBox("Please make a selection.", Buttons::kOK, Icon::kExclamation);
        return false;
    }
    if (entry == kStartNewFile) {
        mnuFileNew_Click();
    } else if (entry == kMoreFiles) {
        mnuFileOpen_Click();
    } else {
        G.LastFile = entry;
        InitialOpen();
    }
    return true;
}

bool MainUnload(bool normalState, const Placement& current) {
    G.CancelFlag = false;
    if (SaveFileChanges(bool(G.FileChanged)) == kCancel) {
        Shell().ShowLogo();
        return false;
    }
    if (!G.CancelFlag) {
        G.FilePath.clear();
        ClearRaceFile();
        DisableFileCommands();
        UpdateTitle();
        if (normalState) SaveMainPlacement(current);
    }
    if (G.CancelFlag) return false;
    CloseRecoveryChannel();
    Shell().UnloadDisplays(true);
    return true;
}

}  // namespace tt
