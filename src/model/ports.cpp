#include "model/ports.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
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
        case EXDEV:
            return kErrRenameAcrossDrives;
        case EISDIR:
        case EROFS:
        case EBUSY:
        case ENXIO:
        case ELOOP:
        case ETXTBSY:
            return kErrPathFileAccess;
        case ENAMETOOLONG:
            return kErrBadFileNameOrNumber;
        case ENOMEM:
        case EFBIG:
            return kErrOutOfMemory;
        default:
            return kErrDeviceIO;
    }
}

[[noreturn]] void Fail(int e, bool opening = false) {
    throw AppError(ErrorFromErrno(e, opening));
}

// A descriptor closed when it goes.
class Fd {
  public:
    explicit Fd(int fd) : fd_(fd) {}
    ~Fd() {
        if (fd_ >= 0) ::close(fd_);
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    int get() const { return fd_; }
    // Closes now, reporting a failure of the close (a delayed write error on some disks).
    void Close() {
        int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0 && errno != EINTR) Fail(errno);
    }

  private:
    int fd_;
};

std::string FolderOf(const std::string& path) {
    std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

// Opens a path only when it is a regular file (or missing, where creating is allowed): a
// pipe would block the open, a device could answer anything.
int OpenRegular(const std::string& path, int flags) {
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0) {
        if (!S_ISREG(st.st_mode)) throw AppError(kErrPathFileAccess);
    } else if (errno != ENOENT || !(flags & O_CREAT)) {
        Fail(errno, true);
    }
    int fd;
    do fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
    while (fd < 0 && errno == EINTR);
    if (fd < 0) Fail(errno, true);
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        throw AppError(kErrPathFileAccess);
    }
    // Back to blocking reads and writes.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

void WriteFully(int fd, std::string_view data) {
    const char* p = data.data();
    std::size_t left = data.size();
    while (left > 0) {
        ssize_t n = ::write(fd, p, std::min<std::size_t>(left, std::size_t{1} << 30));
        if (n < 0) {
            if (errno == EINTR) continue;
            Fail(errno);
        }
        if (n == 0) Fail(ENOSPC);
        p += n;
        left -= static_cast<std::size_t>(n);
    }
}

// Six characters for the name of a temporary.
std::string NameSuffix() {
    static std::mt19937_64 gen{
        std::random_device{}() ^ static_cast<std::uint64_t>(::getpid()) << 20 ^
        static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
    static const char kChars[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::string s = ".";
    for (int i = 0; i < 6; ++i) s += kChars[gen() % (sizeof kChars - 1)];
    return s + ".tmp";
}

class RealFileSystem : public FileSystemPort {
  public:
    explicit RealFileSystem(bool flush) : flush_(flush) {}

    std::string ReadAll(const std::string& path, std::uint64_t limit) override {
        Fd fd(OpenRegular(path, O_RDONLY));
        struct stat st {};
        if (::fstat(fd.get(), &st) != 0) Fail(errno);
        if (static_cast<std::uint64_t>(st.st_size) > limit) throw AppError(kErrOutOfMemory);
        std::string data;
        data.reserve(static_cast<std::size_t>(st.st_size));
        char buf[1 << 16];
        for (;;) {
            ssize_t n = ::read(fd.get(), buf, sizeof buf);
            if (n < 0) {
                if (errno == EINTR) continue;
                Fail(errno);
            }
            if (n == 0) break;
            // A file that grows while it is read stops at the limit all the same.
            if (data.size() + static_cast<std::size_t>(n) > limit) throw AppError(kErrOutOfMemory);
            data.append(buf, static_cast<std::size_t>(n));
        }
        return data;
    }

    void Append(const std::string& path, std::string_view data) override {
        Fd fd(OpenRegular(path, O_WRONLY | O_APPEND | O_CREAT));
        WriteFully(fd.get(), data);
        if (flush_ && !data.empty() && ::fsync(fd.get()) != 0) Fail(errno);
        fd.Close();
    }

    FileKind Kind(const std::string& path) override {
        struct stat st {};
        if (::stat(path.c_str(), &st) != 0) {
            if (errno == ENOENT) return FileKind::kMissing;
            Fail(errno, true);
        }
        return S_ISREG(st.st_mode) ? FileKind::kRegular : FileKind::kOther;
    }

    std::string Target(const std::string& path) override {
        std::string p = path;
        // A chain of links, followed a step at a time, as far as the system itself would.
        for (int hops = 0; hops < 40; ++hops) {
            struct stat st {};
            if (::lstat(p.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return p;
            std::string link(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 4096), '\0');
            ssize_t n = ::readlink(p.c_str(), link.data(), link.size());
            if (n < 0) Fail(errno);
            link.resize(static_cast<std::size_t>(n));
            p = link.starts_with('/') ? link : FolderOf(p) + "/" + link;
        }
        throw AppError(kErrPathFileAccess);
    }

    bool SameFile(const std::string& a, const std::string& b) override {
        struct stat sa {
        }, sb{};
        return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 &&
               sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
    }

    std::string CreateTemporary(const std::string& beside) override {
        for (int tries = 0;; ++tries) {
            std::string name = beside + NameSuffix();
            int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (fd >= 0) {
                ::close(fd);
                return name;
            }
            if (errno != EEXIST || tries >= 100) Fail(errno, true);
        }
    }

    void WriteDurably(const std::string& temporary, std::string_view data,
                      const std::string& model) override {
        Fd fd(OpenRegular(temporary, O_WRONLY | O_TRUNC | O_NOFOLLOW));
        WriteFully(fd.get(), data);
        struct stat st {};
        if (::stat(model.c_str(), &st) == 0 && S_ISREG(st.st_mode) &&
            ::fchmod(fd.get(), st.st_mode & 07777) != 0)
            Fail(errno);
        if (flush_ && ::fsync(fd.get()) != 0) Fail(errno);
        fd.Close();
    }

    std::string LinkTemporary(const std::string& from, const std::string& beside) override {
        if (Kind(from) != FileKind::kRegular) throw AppError(kErrPathFileAccess);
        for (int tries = 0;; ++tries) {
            std::string name = beside + NameSuffix();
            if (::link(from.c_str(), name.c_str()) == 0) return name;
            if (errno != EEXIST || tries >= 100) Fail(errno);
        }
    }

    void Rename(const std::string& from, const std::string& to) override {
        if (Kind(from) == FileKind::kOther) throw AppError(kErrPathFileAccess);
        if (Kind(to) == FileKind::kOther) throw AppError(kErrPathFileAccess);
        if (std::rename(from.c_str(), to.c_str()) != 0) {
            int e = errno;
            if (e == ENOENT) {
                // The source missing is "file not found"; a missing target directory is not.
                if (Kind(from) == FileKind::kMissing) throw AppError(kErrFileNotFound);
                throw AppError(kErrPathNotFound);
            }
            Fail(e);
        }
    }

    void Remove(const std::string& path) override {
        struct stat st {};
        if (::lstat(path.c_str(), &st) != 0) Fail(errno, true);
        if (!S_ISREG(st.st_mode)) throw AppError(kErrPathFileAccess);
        if (::unlink(path.c_str()) != 0) Fail(errno, true);
    }

    void SyncFolder(const std::string& path) override {
        if (!flush_) return;
        int fd = ::open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0) Fail(errno);
        Fd closer(fd);
        // Some file systems cannot flush a folder and say so; their renames are as durable as
        // they get.
        if (::fsync(fd) != 0 && errno != EINVAL && errno != EROFS) Fail(errno);
    }

  private:
    bool flush_;
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
    RealFileSystem files{true};
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

std::unique_ptr<FileSystemPort> MakeRealFileSystem(bool flush) {
    return std::make_unique<RealFileSystem>(flush);
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
