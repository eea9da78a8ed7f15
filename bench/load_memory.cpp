// Peak memory of a load against the size of the file: at most four times the file and 64 MB.
// Each file is loaded by a fresh process of this program, so that nothing of the generator is
// counted. Exits with 1 when a load breaks the rule or a load fails; a file that is gone by the
// time its turn comes (a fuzzer still at work on the corpus deletes the inputs it shortens) is
// counted apart, as neither.
//
//   bench_load_memory                 the large card and hand-made hostile files
//   bench_load_memory --corpus DIR... every file of the folders (a fuzzing corpus)
//   bench_load_memory --load FILE     load FILE and report the growth of the peak resident size

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "files/race_file_io.h"
#include "large_card.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace {

namespace fs = std::filesystem;

constexpr double kSlackBytes = 64.0 * 1024 * 1024;

// The high-water mark of the resident size, in kB. Unlike getrusage's, it starts afresh at
// exec, so the parent's card is not counted.
long PeakKb() {
    std::FILE* f = std::fopen("/proc/self/status", "r");
    if (!f) return 0;
    char line[256];
    long kb = 0;
    while (std::fgets(line, sizeof line, f))
        if (std::sscanf(line, "VmHWM: %ld kB", &kb) == 1) break;
    std::fclose(f);
    return kb;
}

// Every question answered OK, as a user who reads on.
class ReadOn : public tt::MessagePort {
  public:
    int Show(const tt::MessageRequest& r) override {
        return r.buttons == tt::Buttons::kYesNo || r.buttons == tt::Buttons::kYesNoCancel ? tt::kYes
                                                                                          : tt::kOK;
    }
    void Beep() override {}
};

// What a child's exit status says.
constexpr int kWithin = 0;
constexpr int kOver = 1;
constexpr int kGone = 2;

int Load(const char* path) {
    const fs::path file = fs::absolute(path);
    std::error_code gone;
    const double size = static_cast<double>(fs::file_size(file, gone));
    if (gone) {
        std::printf("%s: gone\n", file.filename().c_str());
        return kGone;
    }
    // A card names its recovery file, which the load makes when it is missing: in the run's
    // own folder, which the parent removes, or else in the temporary folder.
    const char* work = std::getenv("TALLY_LOAD_MEMORY_DIR");
    fs::current_path(work ? fs::path(work) : fs::temp_directory_path());
    path = file.c_str();
    ReadOn answers;
    tt::Ports ports;
    ports.message = &answers;
    tt::PortsScope scope(ports);
    tt::ResetProcessState();
    const long before = PeakKb();
    tt::G.FilePath = path;
    tt::OpenRaceFile();
    const long after = PeakKb();
    const double grown = static_cast<double>(after - before) * 1024.0;
    const double allowed = 4.0 * size + kSlackBytes;
    std::printf("%s: file %.3f MB, %s, growth %.1f MB of %.1f MB allowed (%.0f%%)\n",
                fs::path(path).filename().c_str(), size / 1e6,
                tt::G.CancelFlag || tt::G.FilePath.empty() ? "refused" : "loaded", grown / 1e6,
                allowed / 1e6, 100.0 * grown / allowed);
    return grown <= allowed ? kWithin : kOver;
}

// Loads a file in a fresh process; kWithin when the rule holds, kOver, kGone, or anything else
// for a load that failed.
int LoadInChild(const char* self, const std::string& path) {
    std::fflush(stdout);
    pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", self, "--load", path.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128;
    if (code == kWithin || code == kOver || code == kGone) return code;
    std::printf("%s: failed, %s %d\n", fs::path(path).filename().c_str(),
                WIFEXITED(status) ? "exit" : "signal",
                WIFEXITED(status)     ? code
                : WIFSIGNALED(status) ? WTERMSIG(status)
                                      : 0);
    return code;
}

struct Tally {
    int files = 0, over = 0, gone = 0, failed = 0;
    void Count(int outcome) {
        ++files;
        if (outcome == kOver)
            ++over;
        else if (outcome == kGone)
            ++gone;
        else if (outcome != kWithin)
            ++failed;
    }
};

std::string TempPath(const std::string& name) {
    return (fs::temp_directory_path() /
            ("tally-load-memory-" + std::to_string(getpid()) + "-" + name))
        .string();
}

const char* const kHeader = "\"%Header`\",\"Tamberlin Tally\",\"2.01\",#2026-05-01 09:15:00#\r\n";

std::string Parms(long ticketCount) {
    return "\"%Parms `\",77,\"Card\",\"Horses\",1,5,#FALSE#,1,#TRUE#,#FALSE#,#FALSE#,"
           "\"Betting Number\",20," +
           std::to_string(ticketCount) + ",#FALSE#,\"\",#FALSE#,#FALSE#,0,8,10,#FALSE#\r\n";
}

// Hostile files of the kinds that once took memory out of all proportion.
std::vector<std::pair<std::string, std::string>> HostileFiles() {
    std::vector<std::pair<std::string, std::string>> files;
    // A ticket count near the limit in a file of a few hundred bytes.
    files.emplace_back("huge-ticket-count.tly", kHeader + Parms(16777214));
    // All bets in one race, in the shortest form the reader takes.
    std::string one = kHeader + Parms(300000) + "\"%Bettor`\",\"A\",\"\",\"\",\"\"\r\n";
    for (int i = 1; i <= 300000; ++i)
        one += "%Bet   `,20,,,,,,,,,,\r\n,,,,,," + std::to_string(i) + ",,,,,,\r\n";
    files.emplace_back("one-race-many-bets.tly", one);
    // Bets whose tickets lie far apart in a large ticket table.
    std::string sparse = kHeader + Parms(16000000) + "\"%Bettor`\",\"A\",\"\",\"\",\"\"\r\n";
    for (int i = 1; i <= 100000; ++i)
        sparse += "%Bet   `," + std::to_string(1 + i % 20) + ",,,,,,,,,,\r\n,,,,,," +
                  std::to_string(i * 97 % 16000000) + ",,,,,,\r\n";
    files.emplace_back("tickets-far-apart.tly", sparse);
    return files;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--load") == 0) return Load(argv[2]);

    std::string work = TempPath("XXXXXX");
    if (!mkdtemp(work.data())) {
        std::perror("mkdtemp");
        return 2;
    }
    setenv("TALLY_LOAD_MEMORY_DIR", work.c_str(), 1);
    Tally tally;
    if (argc >= 3 && std::strcmp(argv[1], "--corpus") == 0) {
        for (int i = 2; i < argc; ++i)
            for (const auto& e : fs::directory_iterator(argv[i]))
                if (e.is_regular_file()) tally.Count(LoadInChild(argv[0], e.path().string()));
    } else {
        tt::ResetProcessState();
        tt::bench::MakeLargeCard();
        auto files = HostileFiles();
        files.emplace_back("large-card.tly",
                           tt::BuildRaceFileText(tt::DateTime{2026, 5, 2, 14, 30, 0}));
        for (const auto& [name, text] : files) {
            const std::string path = TempPath(name);
            std::ofstream(path, std::ios::binary) << text;
            tally.Count(LoadInChild(argv[0], path));
            std::remove(path.c_str());
        }
    }
    std::error_code ignored;
    fs::remove_all(work, ignored);
    std::printf("%d files, %d over four times their size and 64 MB", tally.files, tally.over);
    if (tally.gone) std::printf(", %d gone before their turn", tally.gone);
    if (tally.failed) std::printf(", %d failed to load", tally.failed);
    std::printf("\n");
    return tally.over == 0 && tally.failed == 0 ? 0 : 1;
}
