// Peak memory of loading the large card, against the size of its file. The card is written to
// a temporary file, and a fresh process of this program loads it, so that nothing of the
// generator is counted. Exits with 1 when the load takes more than four times the file size.
//
//   bench_load_memory               generate, write, load in a child, report
//   bench_load_memory --load FILE   load FILE and report the growth of the peak resident size

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "files/race_file_io.h"
#include "large_card.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace {

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

int Load(const char* path) {
    tt::ResetProcessState();
    const double size = static_cast<double>(std::filesystem::file_size(path));
    const long before = PeakKb();
    tt::G.FilePath = path;
    tt::OpenRaceFile();
    const long after = PeakKb();
    if (tt::G.CancelFlag || tt::RF.BettorCount == 0) {
        std::fprintf(stderr, "the load failed\n");
        return 2;
    }
    const double grown = static_cast<double>(after - before) * 1024.0;
    const double ratio = grown / size;
    std::printf(
        "file %.1f MB, peak resident before %.1f MB, after %.1f MB, growth %.1f MB = %.2f x file\n",
        size / 1e6, before / 1024.0, after / 1024.0, grown / 1e6, ratio);
    return ratio < 4.0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--load") == 0) return Load(argv[2]);

    tt::ResetProcessState();
    tt::bench::MakeLargeCard();
    const std::string text = tt::BuildRaceFileText(tt::DateTime{2026, 5, 2, 14, 30, 0});
    const std::string path = (std::filesystem::temp_directory_path() /
                              ("tally-load-memory-" + std::to_string(getpid()) + ".tly"))
                                 .string();
    std::ofstream(path, std::ios::binary) << text;

    int status = 0;
    pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", argv[0], "--load", path.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    waitpid(child, &status, 0);
    std::remove(path.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : 3;
}
