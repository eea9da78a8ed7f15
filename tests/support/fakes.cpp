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

void MemoryFiles::Check(const std::map<std::string, int>& failures, const std::string& path) const {
    if (auto it = failures.find(path); it != failures.end()) throw AppError(it->second);
    if (others.count(path)) throw AppError(kErrPathFileAccess);
}

std::vector<std::string> MemoryFiles::Temporaries() const {
    std::vector<std::string> t;
    for (const auto& [name, beside] : besides_)
        if (files.count(name)) t.push_back(name);
    return t;
}

std::string MemoryFiles::ReadAll(const std::string& path, std::uint64_t limit) {
    log.push_back("read " + path);
    Check(failRead, path);
    auto it = files.find(path);
    if (it == files.end()) throw AppError(kErrFileNotFound);
    if (it->second.size() > limit) throw AppError(kErrOutOfMemory);
    return it->second;
}

void MemoryFiles::Append(const std::string& path, std::string_view data) {
    log.push_back("append " + path);
    Check(failWrite, path);
    files[path].append(data);
}

FileKind MemoryFiles::Kind(const std::string& path) {
    if (others.count(path)) return FileKind::kOther;
    return files.count(path) ? FileKind::kRegular : FileKind::kMissing;
}

std::string MemoryFiles::NewName(const std::string& beside) {
    std::string name = beside + ".tmp" + std::to_string(++made_);
    besides_[name] = beside;
    return name;
}

std::string MemoryFiles::CreateTemporary(const std::string& beside) {
    log.push_back("create " + beside);
    if (auto it = failCreate.find(beside); it != failCreate.end()) throw AppError(it->second);
    std::string name = NewName(beside);
    files[name];
    return name;
}

void MemoryFiles::WriteDurably(const std::string& temporary, std::string_view data,
                               const std::string& model) {
    const std::string beside = besides_.count(temporary) ? besides_[temporary] : temporary;
    log.push_back("write " + beside);
    if (auto it = failWrite.find(beside); it != failWrite.end()) throw AppError(it->second);
    if (writeLimit && data.size() > *writeLimit) {
        files[temporary] = std::string(data.substr(0, *writeLimit));
        throw AppError(kErrDiskFull);
    }
    files[temporary] = std::string(data);
    if (auto it = permissions.find(model); it != permissions.end() && files.count(model))
        permissions[temporary] = it->second;
    if (auto it = failSync.find(beside); it != failSync.end()) throw AppError(it->second);
}

std::string MemoryFiles::LinkTemporary(const std::string& from, const std::string& beside) {
    Check(failLink, from);
    auto it = files.find(from);
    if (it == files.end()) throw AppError(kErrFileNotFound);
    std::string name = NewName(beside);
    log.push_back("link " + from + " " + name);
    files[name] = it->second;
    if (auto p = permissions.find(from); p != permissions.end()) permissions[name] = p->second;
    return name;
}

void MemoryFiles::Rename(const std::string& from, const std::string& to) {
    log.push_back("rename " + from + " " + to);
    Check(failRename, from);
    Check(failRename, to);
    auto it = files.find(from);
    if (it == files.end()) throw AppError(kErrFileNotFound);
    files[to] = std::move(it->second);
    files.erase(from);
    if (auto p = permissions.find(from); p != permissions.end()) {
        permissions[to] = p->second;
        permissions.erase(p);
    } else {
        permissions.erase(to);
    }
}

void MemoryFiles::Remove(const std::string& path) {
    log.push_back("remove " + path);
    Check(failRemove, path);
    if (files.erase(path) == 0) throw AppError(kErrFileNotFound);
    permissions.erase(path);
}

void MemoryFiles::SyncFolder(const std::string&) {
    ++folderSyncs;
    if (failFolderSync) throw AppError(*failFolderSync);
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
