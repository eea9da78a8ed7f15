#include "support/fakes.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "betting/betting_state.h"
#include "files/race_file_io.h"
#include "model/app_error.h"
#include "model/race_file.h"

namespace tt::test {

int ScriptedMessages::Show(const MessageRequest& request) {
    shown.push_back(request);
    if (!answers_.empty()) {
        int a = answers_.front();
        answers_.pop_front();
        return a;
    }
    static const int kAnswers[4][3] = {
        {kOK, kOK, kOK}, {kOK, kCancel, kCancel}, {kYes, kNo, kNo}, {kYes, kNo, kCancel}};
    int b = request.defaultButton < 0 || request.defaultButton > 2 ? 0 : request.defaultButton;
    return kAnswers[static_cast<int>(request.buttons)][b];
}

std::vector<std::string> ScriptedMessages::Texts() const {
    std::vector<std::string> t;
    for (const auto& s : shown) t.push_back(s.text);
    return t;
}

std::optional<std::string> ScriptedDialogs::Take() {
    if (names_.empty()) return std::nullopt;
    auto n = names_.front();
    names_.pop_front();
    return n;
}

std::optional<std::string> ScriptedDialogs::Open(const FileDialogRequest& request) {
    requests.push_back(request);
    return Take();
}

std::optional<std::string> ScriptedDialogs::Save(const FileDialogRequest& request) {
    requests.push_back(request);
    return Take();
}

std::optional<std::string> MapSettings::Get(const std::string& key) {
    auto it = values.find(key);
    if (it == values.end()) return std::nullopt;
    return it->second;
}

void MapSettings::Set(const std::string& key, const std::string& value) {
    values[key] = value;
    writes.push_back(key);
}

std::string MemoryFiles::ReadAll(const std::string& path) {
    log.push_back("read " + path);
    if (auto it = failRead.find(path); it != failRead.end()) throw AppError(it->second);
    auto it = files.find(path);
    if (it == files.end()) throw AppError(kErrFileNotFound);
    return it->second;
}

void MemoryFiles::WriteAll(const std::string& path, std::string_view data) {
    log.push_back("write " + path);
    if (auto it = failWrite.find(path); it != failWrite.end()) throw AppError(it->second);
    if (writeLimit && data.size() > *writeLimit) {
        files[path] = std::string(data.substr(0, *writeLimit));
        throw AppError(kErrDiskFull);
    }
    files[path] = std::string(data);
}

void MemoryFiles::Append(const std::string& path, std::string_view data) {
    log.push_back("append " + path);
    if (auto it = failWrite.find(path); it != failWrite.end()) throw AppError(it->second);
    files[path].append(data);
}

void MemoryFiles::Rename(const std::string& from, const std::string& to) {
    log.push_back("rename " + from + " " + to);
    if (auto it = failRename.find(from); it != failRename.end()) throw AppError(it->second);
    auto it = files.find(from);
    if (it == files.end()) throw AppError(kErrFileNotFound);
    files[to] = std::move(it->second);
    files.erase(from);
}

void MemoryFiles::Remove(const std::string& path) {
    log.push_back("remove " + path);
    if (auto it = failRemove.find(path); it != failRemove.end()) throw AppError(it->second);
    if (files.erase(path) == 0) throw AppError(kErrFileNotFound);
}

void RecordingShell::CloseChildWindows() {
    ++closeChildren;
    G.CancelFlag = childRefuses;
}

void RecordingShell::ShowForm(const std::string& name, bool modal) {
    formsShown.push_back(modal ? name + " (modal)" : name);
    if (!modal && !IsFormLoaded(name)) loadedForms.push_back(name);
    if (auto it = onShow.find(name); it != onShow.end() && it->second) it->second();
}

void RecordingShell::UnloadForm(const std::string& name) {
    formsUnloaded.push_back(name);
    std::erase(loadedForms, name);
}

bool RecordingShell::IsFormLoaded(const std::string& name) {
    return std::find(loadedForms.begin(), loadedForms.end(), name) != loadedForms.end();
}

FakeWorld::FakeWorld() : scope_(Make()) {
    ResetProcessState();
}

FakeWorld::~FakeWorld() {
    ResetProcessState();
}

Ports FakeWorld::Make() {
    Ports p;
    p.message = &messages;
    p.fileDialog = &dialogs;
    p.settings = &settings;
    p.clock = &clock;
    p.random = &random;
    p.files = &files;
    p.printer = &printer;
    p.shell = &shell;
    return p;
}

std::string ReadSourceFile(const std::string& relativePath) {
    std::ifstream in(std::string(TALLY_SOURCE_DIR) + "/" + relativePath, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::string SavedCard(const std::string& name, bool withRace) {
    ClearRaceFile();
    RF.FileId = 77;
    RF.FileName = name;
    if (withRace) RF.Race(1).RaceName = "Opener";
    std::string text = BuildRaceFileText(DateTime{2026, 3, 1, 12, 0, 0});
    ClearRaceFile();
    return text;
}

}  // namespace tt::test
