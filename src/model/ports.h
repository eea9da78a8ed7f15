#pragma once
// Everything the core asks of the outside world. The program installs implementations over
// Qt, the companion over the console, and the tests scripted fakes, so that the exact text of
// every box, every file written and every printed line can be checked.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/date_time.h"

namespace tt {

// ---- Message boxes ------------------------------------------------------------------------

enum class Buttons { kOK, kOKCancel, kYesNo, kYesNoCancel };
enum class Icon { kNone, kExclamation, kInformation, kQuestion, kCritical };
// The answers, numbered as the questions report them.
enum Answer : int { kOK = 1, kCancel = 2, kYes = 6, kNo = 7 };

inline constexpr const char* kDefaultTitle = "Tamberlin Tally";
// Joints of message parts: a line break, a line feed and a carriage return, and the blank line
// between parts.
inline constexpr const char* kCrLf = "\r\n";
inline constexpr const char* kLfCr = "\n\r";
inline constexpr const char* kPartBreak = "\n\r\n";

struct MessageRequest {
    std::string text;
    Buttons buttons = Buttons::kOK;
    Icon icon = Icon::kNone;
    std::string title;      // empty: "Tamberlin Tally"
    int defaultButton = 0;  // 0 = first button
};

class MessagePort {
  public:
    virtual ~MessagePort() = default;
    virtual int Show(const MessageRequest& request) = 0;
    virtual void Beep() = 0;
};

// ---- File dialogs -------------------------------------------------------------------------

struct FileDialogRequest {
    std::string title;
    std::string filter;  // "Description (*.ext)|*.ext|All (*.*)|*.*"
    std::string initialName;
    std::string defaultExt;
    bool overwritePrompt = false;
};

class FileDialogPort {
  public:
    virtual ~FileDialogPort() = default;
    // Nothing when the user cancels.
    virtual std::optional<std::string> Open(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> Save(const FileDialogRequest& request) = 0;
};

// ---- Per-user settings, section "Settings" of "TamberlinTally" ----------------------------

class SettingsPort {
  public:
    virtual ~SettingsPort() = default;
    virtual std::optional<std::string> Get(const std::string& key) = 0;
    virtual void Set(const std::string& key, const std::string& value) = 0;
};

// ---- Clock and random numbers -------------------------------------------------------------

class ClockPort {
  public:
    virtual ~ClockPort() = default;
    virtual DateTime Now() = 0;              // local time, to the second
    virtual std::int64_t MonotonicMs() = 0;  // for waits
};

class RandomPort {
  public:
    virtual ~RandomPort() = default;
    virtual void Randomize() = 0;  // seeds from the clock
    virtual double Rnd() = 0;      // uniform in [0, 1)
};

// ---- Files --------------------------------------------------------------------------------

// What stands at a path, symbolic links followed.
enum class FileKind { kMissing, kRegular, kOther };

// No bound on the size of a file read.
inline constexpr std::uint64_t kNoReadLimit = ~std::uint64_t{0};

// The file operations of the program, each raising the program's error (file not found, disk
// full, ...) on failure. Only regular files are ever read, written, linked or removed: a
// folder, a pipe, a socket or a device gives the path/file access error before anything is
// opened. Rewriting a file goes through temporaries beside it (see files/safe_file.h); nothing
// here truncates a file that holds data.
class FileSystemPort {
  public:
    virtual ~FileSystemPort() = default;
    // The whole of a regular file; one larger than limit bytes raises out of memory.
    virtual std::string ReadAll(const std::string& path, std::uint64_t limit = kNoReadLimit) = 0;
    // Adds to the end of a regular file, creating it when missing, and flushes it to disk.
    virtual void Append(const std::string& path, std::string_view data) = 0;
    virtual FileKind Kind(const std::string& path) = 0;
    // The file a path names once symbolic links are followed; the path itself otherwise.
    virtual std::string Target(const std::string& path) = 0;
    // Whether two paths name one existing file, whatever links or spellings lead to it.
    virtual bool SameFile(const std::string& a, const std::string& b) {
        return Kind(a) != FileKind::kMissing && Target(a) == Target(b);
    }
    // Creates an empty file in the folder of `beside`, under a name that no file had, and
    // returns that name.
    virtual std::string CreateTemporary(const std::string& beside) = 0;
    // Writes data into a file made by CreateTemporary, gives it the permission bits of `model`
    // when that is a regular file, and flushes it to disk.
    virtual void WriteDurably(const std::string& temporary, std::string_view data,
                              const std::string& model) = 0;
    // A second name for the regular file `from`, in the folder of `beside`, under a name that
    // no file had (a hard link); returns that name.
    virtual std::string LinkTemporary(const std::string& from, const std::string& beside) = 0;
    // Renames a regular file, replacing a regular file at `to`.
    virtual void Rename(const std::string& from, const std::string& to) = 0;
    virtual void Remove(const std::string& path) = 0;
    // Flushes the folder that holds path, so that the names changed in it last.
    virtual void SyncFolder(const std::string& path) = 0;
};

// ---- The printer --------------------------------------------------------------------------

// Fixed-pitch lines; the core lays out the character columns. Heights are in twips.
class PrinterPort {
  public:
    virtual ~PrinterPort() = default;
    virtual void SetFont(const std::string& name, int size) = 0;
    virtual void SetBold(bool bold) = 0;
    virtual int Copies() = 0;
    virtual void SetCopies(int copies) = 0;
    virtual double TextHeight(const std::string& text) = 0;
    virtual double PageHeight() = 0;
    // Prints one line; the document opens by itself with the first line.
    virtual void PrintLine(const std::string& text) = 0;
    virtual void NewPage() = 0;
    virtual void EndDoc() = 0;
    // The printer set-up dialog; false when cancelled.
    virtual bool SetupDialog() = 0;

    // Beyond the printer itself, the same pages in a print preview or in a PDF file: the
    // report runs on a printer bound to the preview or to the file, as often as the preview
    // needs its pages, and ends nothing itself. False where this printer has no such output or
    // it could not be made.
    using Report = std::function<void(PrinterPort&)>;
    virtual bool Preview(const Report& report) {
        (void)report;
        return false;
    }
    virtual bool SaveAsPdf(const std::string& path, const Report& report) {
        (void)path;
        (void)report;
        return false;
    }
};

// ---- The main window as the core sees it --------------------------------------------------

class ShellPort {
  public:
    virtual ~ShellPort() = default;
    virtual void SetBusy(bool busy) = 0;  // the busy mouse pointer
    virtual void DoEvents() = 0;          // yield to the event loop
    virtual void SetTitle(const std::string& title) = 0;
    virtual void ShowMru(const std::array<std::string, 4>& captions) = 0;
    // The commands that need an open card, and those that need a race.
    virtual void EnableFileGroup(bool on) = 0;
    virtual void EnableRaceGroup(bool on) = 0;
    // Unloads the child windows; one that refuses sets CancelFlag to -1.
    virtual void CloseChildWindows() = 0;
    virtual void ShowLogo() = 0;
    // Shows a window by its name ("frmRaceCard", "frmEditRacer", ...), modally or as a child
    // window; a modal one returns when it closes.
    virtual void ShowForm(const std::string& name, bool modal) = 0;
    // Unloads a window by its name when it is loaded.
    virtual void UnloadForm(const std::string& name) = 0;
    virtual bool IsFormLoaded(const std::string& name) = 0;
    // The text of the first panel of the status bar.
    virtual std::string StatusText() = 0;
    // The name of the active child window ("frmListBets", ...), empty when none is.
    virtual std::string ActiveChild() { return {}; }
    // Unloads the odds and payout displays (and, at exit, the betting window).
    virtual void UnloadDisplays(bool withTransaction) = 0;
};

// ---- The installed ports ------------------------------------------------------------------

struct Ports {
    MessagePort* message = nullptr;
    FileDialogPort* fileDialog = nullptr;
    SettingsPort* settings = nullptr;
    ClockPort* clock = nullptr;
    RandomPort* random = nullptr;
    FileSystemPort* files = nullptr;
    PrinterPort* printer = nullptr;
    ShellPort* shell = nullptr;
};

// The ports in use. Unset ports fall back to defaults: the real file system, the system clock
// and random generator, settings in memory, a printer and a shell that do nothing, and message
// boxes that answer with their default button.
Ports& CurrentPorts();
MessagePort& Msg();
FileDialogPort& Dialogs();
SettingsPort& Settings();
ClockPort& Clock();
RandomPort& Random();
FileSystemPort& Files();
PrinterPort& Printer();
ShellPort& Shell();

// Installs a set of ports for as long as it lives, and puts back the previous set after.
class PortsScope {
  public:
    explicit PortsScope(const Ports& ports);
    ~PortsScope();
    PortsScope(const PortsScope&) = delete;
    PortsScope& operator=(const PortsScope&) = delete;

  private:
    Ports saved_;
};

// The real file system. Without `flush`, nothing waits for the disk (for measurements).
std::unique_ptr<FileSystemPort> MakeRealFileSystem(bool flush = true);
std::unique_ptr<ClockPort> MakeSystemClock();
std::unique_ptr<RandomPort> MakeSystemRandom();
// Settings kept in memory for as long as the port lives: nothing reaches the desktop's store.
std::unique_ptr<SettingsPort> MakeMemorySettings();

// ---- Helpers over the ports ---------------------------------------------------------------

int MsgBox(const std::string& text, Buttons buttons = Buttons::kOK, Icon icon = Icon::kNone,
           const std::string& title = {}, int defaultButton = 0);
void Beep(int times = 1);
// Joins message parts with the blank line (LF CR LF).
std::string JoinParts(std::initializer_list<std::string> parts);

}  // namespace tt
