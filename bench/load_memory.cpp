// Peak memory of a load against the size of the file: at most four times the file and 64 MB.
// Each file is loaded by a fresh process of this program, so that nothing of the generator is
// counted. Exits with 1 when a load breaks the rule.
//
//   bench_load_memory                 the large card and hand-made hostile files
//   bench_load_memory --corpus DIR... every file of the folders (a fuzzing corpus)
//   bench_load_memory --load FILE     load FILE and report the growth of the peak resident size

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
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

int Load(const char* path) {
    // A card names its recovery file, which the load makes when it is missing: away from here.
    const fs::path file = fs::absolute(path);
    fs::current_path(fs::temp_directory_path());
    path = file.c_str();
    ReadOn answers;
    tt::Ports ports;
    ports.message = &answers;
    tt::PortsScope scope(ports);
    tt::ResetProcessState();
    const double size = static_cast<double>(fs::file_size(path));
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
    return grown <= allowed ? 0 : 1;
}

// Loads a file in a fresh process; 0 when the rule holds.
int LoadInChild(const char* self, const std::string& path) {
    std::fflush(stdout);
    pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", self, "--load", path.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 3;
}

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

    int broken = 0, count = 0;
    if (argc >= 3 && std::strcmp(argv[1], "--corpus") == 0) {
        for (int i = 2; i < argc; ++i)
            for (const auto& e : fs::directory_iterator(argv[i])) {
                if (!e.is_regular_file()) continue;
                ++count;
                if (LoadInChild(argv[0], e.path().string()) != 0) ++broken;
            }
    } else {
        tt::ResetProcessState();
        tt::bench::MakeLargeCard();
        auto files = HostileFiles();
        files.emplace_back("large-card.tly",
                           tt::BuildRaceFileText(tt::DateTime{2026, 5, 2, 14, 30, 0}));
        for (const auto& [name, text] : files) {
            const std::string path = TempPath(name);
            std::ofstream(path, std::ios::binary) << text;
            ++count;
            if (LoadInChild(argv[0], path) != 0) ++broken;
            std::remove(path.c_str());
        }
    }
    std::printf("%d files, %d over four times their size and 64 MB\n", count, broken);
    return broken == 0 ? 0 : 1;
}
