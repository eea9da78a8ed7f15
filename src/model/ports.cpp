#include "model/ports.h"

#include <QCoreApplication>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <map>
#include <random>

#include "model/app_error.h"

namespace tt {

namespace {

int ErrorFromErrno(int e, bool opening) {
    switch (e) {
        case ENOENT:
            return opening ? kErrFileNotFound : kErrPathNotFound;
        case ENOTDIR:
            return kErrPathNotFound;
        case EACCES:
        case EPERM:
            return kErrPermissionDenied;
        case ENOSPC:
        case EDQUOT:
            return kErrDiskFull;
        case EISDIR:
        case EROFS:
        case EBUSY:
            return kErrPathFileAccess;
        case ENAMETOOLONG:
            return kErrBadFileNameOrNumber;
        case ENOMEM:
            return kErrOutOfMemory;
        default:
            return kErrDeviceIO;
    }
}

class RealFileSystem : public FileSystemPort {
  public:
    std::string ReadAll(const std::string& path) override {
        std::FILE* f = std::fopen(path.c_str(), "rb");
        if (!f) throw AppError(ErrorFromErrno(errno, true));
        std::string data;
        if (std::fseek(f, 0, SEEK_END) == 0) {
            long size = std::ftell(f);
            if (size > 0) data.reserve(static_cast<std::size_t>(size));
            std::fseek(f, 0, SEEK_SET);
        }
        char buf[1 << 16];
        std::size_t n;
        while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) data.append(buf, n);
        bool failed = std::ferror(f);
        int err = errno;
        std::fclose(f);
        if (failed) throw AppError(ErrorFromErrno(err, false));
        return data;
    }

    void WriteAll(const std::string& path, std::string_view data) override {
        Write(path, data, "wb");
    }

    void Append(const std::string& path, std::string_view data) override {
        Write(path, data, "ab");
    }

    void Rename(const std::string& from, const std::string& to) override {
        if (std::rename(from.c_str(), to.c_str()) != 0) {
            int e = errno;
            if (e == ENOENT) {
                // The source missing is "file not found"; a missing target directory is not.
                std::FILE* f = std::fopen(from.c_str(), "rb");
                if (!f) throw AppError(kErrFileNotFound);
                std::fclose(f);
                throw AppError(kErrPathNotFound);
            }
            throw AppError(ErrorFromErrno(e, false));
        }
    }

    void Remove(const std::string& path) override {
        if (std::remove(path.c_str()) != 0) throw AppError(ErrorFromErrno(errno, true));
    }

  private:
    static void Write(const std::string& path, std::string_view data, const char* mode) {
        std::FILE* f = std::fopen(path.c_str(), mode);
        if (!f) throw AppError(ErrorFromErrno(errno, true));
        std::size_t done = data.empty() ? 0 : std::fwrite(data.data(), 1, data.size(), f);
        int err = done == data.size() ? 0 : errno;
        if (std::fflush(f) != 0 && err == 0) err = errno ? errno : EIO;
        if (std::fclose(f) != 0 && err == 0) err = errno ? errno : EIO;
        if (err != 0 || done != data.size())
            throw AppError(ErrorFromErrno(err ? err : ENOSPC, false));
    }
};

class SystemClock : public ClockPort {
  public:
    DateTime Now() override {
        std::time_t t = std::time(nullptr);
        std::tm tm{};
        localtime_r(&t, &tm);
        DateTime d;
        d.year = tm.tm_year + 1900;
        d.month = tm.tm_mon + 1;
        d.day = tm.tm_mday;
        d.hour = tm.tm_hour;
        d.minute = tm.tm_min;
        d.second = tm.tm_sec;
        return d;
    }
    std::int64_t MonotonicMs() override {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }
};

class SystemRandom : public RandomPort {
  public:
    void Randomize() override {
        gen_.seed(static_cast<std::uint64_t>(
            std::chrono::high_resolution_clock::now().time_since_epoch().count()));
    }
    double Rnd() override {
        // The distribution can round up to 1.0; the document wants [0, 1).
        double r;
        do r = std::uniform_real_distribution<double>(0.0, 1.0)(gen_);
        while (r >= 1.0);
        return r;
    }

  private:
    std::mt19937_64 gen_{12345};
};

class MemorySettings : public SettingsPort {
  public:
    std::optional<std::string> Get(const std::string& key) override {
        auto it = values_.find(key);
        if (it == values_.end()) return std::nullopt;
        return it->second;
    }
    void Set(const std::string& key, const std::string& value) override { values_[key] = value; }

  private:
    std::map<std::string, std::string> values_;
};

class DefaultMessages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        static const int kAnswers[4][3] = {
            {kOK, kOK, kOK}, {kOK, kCancel, kCancel}, {kYes, kNo, kNo}, {kYes, kNo, kCancel}};
        int b = r.defaultButton < 0 || r.defaultButton > 2 ? 0 : r.defaultButton;
        return kAnswers[static_cast<int>(r.buttons)][b];
    }
    void Beep() override {}
};

class NoDialogs : public FileDialogPort {
  public:
    std::optional<std::string> Open(const FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::string> Save(const FileDialogRequest&) override { return std::nullopt; }
};

class NoPrinter : public PrinterPort {
  public:
    void SetFont(const std::string&, int) override {}
    void SetBold(bool) override {}
    int Copies() override { return copies_; }
    void SetCopies(int c) override { copies_ = c; }
    double TextHeight(const std::string&) override { return 240; }
    double PageHeight() override { return 15840; }
    void PrintLine(const std::string&) override {}
    void NewPage() override {}
    void EndDoc() override {}
    bool SetupDialog() override { return false; }

  private:
    int copies_ = 1;
};

class NoShell : public ShellPort {
  public:
    void SetBusy(bool) override {}
    void DoEvents() override {
        if (QCoreApplication::instance()) QCoreApplication::processEvents();
    }
    void SetTitle(const std::string&) override {}
    void ShowMru(const std::array<std::string, 4>&) override {}
    void EnableFileGroup(bool) override {}
    void EnableRaceGroup(bool) override {}
    void CloseChildWindows() override {}
    void ShowLogo() override {}
    void ShowForm(const std::string&, bool) override {}
    void UnloadForm(const std::string&) override {}
    bool IsFormLoaded(const std::string&) override { return false; }
    std::string StatusText() override { return {}; }
    void UnloadDisplays(bool) override {}
};

struct Defaults {
    DefaultMessages message;
    NoDialogs dialogs;
    MemorySettings settings;
    SystemClock clock;
    SystemRandom random;
    RealFileSystem files;
    NoPrinter printer;
    NoShell shell;
};

Defaults& TheDefaults() {
    static Defaults d;
    return d;
}

Ports& Installed() {
    static Ports p;
    return p;
}

}  // namespace

Ports& CurrentPorts() {
    return Installed();
}

MessagePort& Msg() {
    return Installed().message ? *Installed().message : TheDefaults().message;
}
FileDialogPort& Dialogs() {
    return Installed().fileDialog ? *Installed().fileDialog : TheDefaults().dialogs;
}
SettingsPort& Settings() {
    return Installed().settings ? *Installed().settings : TheDefaults().settings;
}
ClockPort& Clock() {
    return Installed().clock ? *Installed().clock : TheDefaults().clock;
}
RandomPort& Random() {
    return Installed().random ? *Installed().random : TheDefaults().random;
}
FileSystemPort& Files() {
    return Installed().files ? *Installed().files : TheDefaults().files;
}
PrinterPort& Printer() {
    return Installed().printer ? *Installed().printer : TheDefaults().printer;
}
ShellPort& Shell() {
    return Installed().shell ? *Installed().shell : TheDefaults().shell;
}

PortsScope::PortsScope(const Ports& ports) : saved_(Installed()) {
    Installed() = ports;
}
PortsScope::~PortsScope() {
    Installed() = saved_;
}

std::unique_ptr<FileSystemPort> MakeRealFileSystem() {
    return std::make_unique<RealFileSystem>();
}
std::unique_ptr<ClockPort> MakeSystemClock() {
    return std::make_unique<SystemClock>();
}
std::unique_ptr<RandomPort> MakeSystemRandom() {
    return std::make_unique<SystemRandom>();
}
std::unique_ptr<SettingsPort> MakeMemorySettings() {
    return std::make_unique<MemorySettings>();
}

int MsgBox(const std::string& text, Buttons buttons, Icon icon, const std::string& title,
           int defaultButton) {
    MessageRequest r;
    r.text = text;
    r.buttons = buttons;
    r.icon = icon;
    r.title = title.empty() ? kDefaultTitle : title;
    r.defaultButton = defaultButton;
    return Msg().Show(r);
}

void Beep(int times) {
    for (int i = 0; i < times; ++i) Msg().Beep();
}

std::string JoinParts(std::initializer_list<std::string> parts) {
    std::string out;
    bool first = true;
    for (const auto& p : parts) {
        if (!first) out += kPartBreak;
        out += p;
        first = false;
    }
    return out;
}

}  // namespace tt
