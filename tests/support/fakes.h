#pragma once
// Scripted ports for the tests: message boxes answered in advance and recorded, settings in a
// map, a clock set by hand, fixed random numbers, an in-memory file system that can be made
// to fail, a printer that records its lines, and a shell that records what it was told.

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/ports.h"

namespace tt::test {

class ScriptedMessages : public MessagePort {
  public:
    // Answers the next boxes in turn; a box with no answer left takes its default button.
    void Answer(int answer) { answers_.push_back(answer); }
    int Show(const MessageRequest& request) override;
    void Beep() override { ++beeps; }

    std::vector<MessageRequest> shown;
    int beeps = 0;
    // The texts of the boxes shown, in order.
    std::vector<std::string> Texts() const;
    void Clear() {
        shown.clear();
        beeps = 0;
        answers_.clear();
    }

  private:
    std::deque<int> answers_;
};

class ScriptedDialogs : public FileDialogPort {
  public:
    // The next dialogs return these names; nothing means the user cancels.
    void Next(std::optional<std::string> name) { names_.push_back(std::move(name)); }
    std::optional<std::string> Open(const FileDialogRequest& request) override;
    std::optional<std::string> Save(const FileDialogRequest& request) override;
    std::vector<FileDialogRequest> requests;

  private:
    std::optional<std::string> Take();
    std::deque<std::optional<std::string>> names_;
};

class MapSettings : public SettingsPort {
  public:
    std::optional<std::string> Get(const std::string& key) override;
    void Set(const std::string& key, const std::string& value) override;
    std::map<std::string, std::string> values;
    std::vector<std::string> writes;  // keys in the order written
};

class FixedClock : public ClockPort {
  public:
    DateTime now{2026, 5, 2, 14, 30, 0};
    std::int64_t ms = 0;
    std::int64_t stepMs = 0;  // added at every reading, so that waits end
    DateTime Now() override { return now; }
    std::int64_t MonotonicMs() override { return ms += stepMs; }
};

class FixedRandom : public RandomPort {
  public:
    std::vector<double> values{0.5};
    std::size_t next = 0;
    int randomized = 0;
    void Randomize() override { ++randomized; }
    double Rnd() override { return values[next++ % values.size()]; }
};

// Files held in memory, with faults to order. A path can be made to fail on read, on the
// writing of its new text, on the flush of that text, on a link or a rename, on the creation
// of a temporary beside it, or on removal, with a given error number; the disk can fill up
// after a number of bytes; any path can hold something that is not a regular file.
//
// The log names each step: "read P", "append P", "create T" (a temporary beside P),
// "write P" (the new text for P into its temporary), "link P T", "rename A B", "remove P".
class MemoryFiles : public FileSystemPort {
  public:
    std::map<std::string, std::string> files;
    std::set<std::string> others;                    // folders, pipes, sockets, devices
    std::map<std::string, std::string> permissions;  // the mode of a file, as text
    // By the path a step works on: the file read, appended to, linked, renamed (either name)
    // or removed; for create, write and flush, the file whose temporary it is.
    std::map<std::string, int> failRead, failWrite, failSync, failCreate, failLink, failRename,
        failRemove;
    std::optional<std::size_t> writeLimit;  // bytes written before the disk is full
    std::optional<int> failFolderSync;
    std::vector<std::string> log;
    int folderSyncs = 0;

    // The temporaries still on the disk.
    std::vector<std::string> Temporaries() const;

    std::string ReadAll(const std::string& path, std::uint64_t limit) override;
    void Append(const std::string& path, std::string_view data) override;
    FileKind Kind(const std::string& path) override;
    std::string Target(const std::string& path) override { return path; }
    std::string CreateTemporary(const std::string& beside) override;
    void WriteDurably(const std::string& temporary, std::string_view data,
                      const std::string& model) override;
    std::string LinkTemporary(const std::string& from, const std::string& beside) override;
    void Rename(const std::string& from, const std::string& to) override;
    void Remove(const std::string& path) override;
    void SyncFolder(const std::string& path) override;

  private:
    void Check(const std::map<std::string, int>& failures, const std::string& path) const;
    std::string NewName(const std::string& beside);
    std::map<std::string, std::string> besides_;  // temporary -> the file it stands beside
    int made_ = 0;
};

class RecordingPrinter : public PrinterPort {
  public:
    std::vector<std::string> lines;      // "<new page>" and "<end doc>" mark the breaks
    std::vector<std::size_t> boldLines;  // indexes into lines of those printed bold
    std::string font;
    int fontSize = 0;
    bool bold = false;
    int copies = 1;
    double textHeight = 240;
    double pageHeight = 15840;
    bool setupAnswer = true;

    void SetFont(const std::string& name, int size) override {
        font = name;
        fontSize = size;
    }
    void SetBold(bool b) override { bold = b; }
    int Copies() override { return copies; }
    void SetCopies(int c) override { copies = c; }
    double TextHeight(const std::string&) override { return textHeight; }
    double PageHeight() override { return pageHeight; }
    void PrintLine(const std::string& text) override {
        if (bold) boldLines.push_back(lines.size());
        lines.push_back(text);
    }
    void NewPage() override { lines.push_back("<new page>"); }
    void EndDoc() override { lines.push_back("<end doc>"); }
    bool SetupDialog() override { return setupAnswer; }
    // A preview or a PDF file records its pages here between "<preview>" or "<pdf PATH>" and
    // "<end>"; a preview runs the report as often as previewRuns says.
    int previewRuns = 1;
    bool pdfAnswer = true;
    bool Preview(const Report& report) override {
        for (int i = 0; i < previewRuns; ++i) {
            lines.push_back("<preview>");
            report(*this);
            lines.push_back("<end>");
        }
        return true;
    }
    bool SaveAsPdf(const std::string& path, const Report& report) override {
        if (!pdfAnswer) return false;
        lines.push_back("<pdf " + path + ">");
        report(*this);
        lines.push_back("<end>");
        return true;
    }
};

class RecordingShell : public ShellPort {
  public:
    std::string title;
    std::array<std::string, 4> mru;
    std::optional<bool> fileGroup, raceGroup;
    int closeChildren = 0, logoShown = 0, unloads = 0, doEvents = 0;
    bool busy = false;
    bool childRefuses = false;
    std::string statusText = "Status";
    std::string activeChild;
    std::vector<std::string> formsShown;  // "frmRaceCard (modal)", "frmListBets"
    std::vector<std::string> formsUnloaded;
    std::vector<std::string> loadedForms;
    // What a window does when shown, by name: a test runs the window's logic here.
    std::map<std::string, std::function<void()>> onShow;

    void SetBusy(bool b) override { busy = b; }
    void DoEvents() override { ++doEvents; }
    void SetTitle(const std::string& t) override { title = t; }
    void ShowMru(const std::array<std::string, 4>& c) override { mru = c; }
    void EnableFileGroup(bool on) override { fileGroup = on; }
    void EnableRaceGroup(bool on) override { raceGroup = on; }
    void CloseChildWindows() override;
    void ShowLogo() override { ++logoShown; }
    void ShowForm(const std::string& name, bool modal) override;
    void UnloadForm(const std::string& name) override;
    bool IsFormLoaded(const std::string& name) override;
    std::string StatusText() override { return statusText; }
    std::string ActiveChild() override { return activeChild; }
    void UnloadDisplays(bool) override { ++unloads; }
};

// Every port scripted, installed for the life of the object, over a fresh document.
class FakeWorld {
  public:
    FakeWorld();
    ~FakeWorld();
    FakeWorld(const FakeWorld&) = delete;
    FakeWorld& operator=(const FakeWorld&) = delete;

    ScriptedMessages messages;
    ScriptedDialogs dialogs;
    MapSettings settings;
    FixedClock clock;
    FixedRandom random;
    MemoryFiles files;
    RecordingPrinter printer;
    RecordingShell shell;

  private:
    Ports Make();
    PortsScope scope_;
};

// The bytes of a file in the source tree, such as an example card.
std::string ReadSourceFile(const std::string& relativePath);

// A small card as the writer saves it: file ID 77, the name given, and a race 1 "Opener" when
// asked. The document is left clear.
std::string SavedCard(const std::string& name, bool withRace);

}  // namespace tt::test
