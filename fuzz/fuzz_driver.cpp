// A small mutation fuzzer for builds without libFuzzer: it runs the race file target on seeds
// and on deterministic mutations of them, under a memory limit and a time limit per input.
// An input that crashes, hangs or runs out of memory is written to fuzz-failure.tly in the
// working directory before the program stops with an error.
//
//   fuzz_race_file_driver [--iterations N] [--seed S] [--write-seeds DIR] [FILE or DIR]...
//
// FILE and DIR add seeds (*.tly of a directory); a generated card and a few hand-made files are
// always among them.

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "files/race_file_io.h"
#include "large_card.h"
#include "model/race_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#if defined(__SANITIZE_ADDRESS__)
#define TALLY_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALLY_ASAN 1
#endif
#endif

namespace {

constexpr std::size_t kMaxLen = 64 * 1024;
constexpr unsigned kSecondsPerInput = 10;

// The input being run, for the signal handlers.
const std::string* g_current = nullptr;
bool g_outOfMemory = false;

void SaveCurrent() {
    if (!g_current) return;
    int fd = open("fuzz-failure.tly", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0) return;
    const char* p = g_current->data();
    std::size_t left = g_current->size();
    while (left > 0) {
        ssize_t n = write(fd, p, left);
        if (n <= 0) break;
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    close(fd);
}

void OnSignal(int sig) {
    SaveCurrent();
    const char* msg = sig == SIGALRM ? "fuzz: an input ran too long, saved as fuzz-failure.tly\n"
                                     : "fuzz: an input crashed, saved as fuzz-failure.tly\n";
    ssize_t ignored = write(2, msg, std::strlen(msg));
    (void)ignored;
    signal(sig, SIG_DFL);
    raise(sig);
}

void OnNoMemory() {
    g_outOfMemory = true;
    std::set_new_handler(nullptr);
    throw std::bad_alloc();
}

std::string ReadFile(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> BuiltInSeeds() {
    std::vector<std::string> seeds;
    tt::ResetProcessState();
    tt::bench::CardShape shape;
    shape.races = 4;
    shape.racersPerRace = 6;
    shape.bettors = 6;
    shape.tickets = 12;
    shape.bets = 30;
    shape.settledRaces = 2;
    tt::bench::MakeLargeCard(shape);
    seeds.push_back(tt::BuildRaceFileText({2026, 5, 2, 14, 30, 0}));

    const std::string header10 =
        "\"%Header`\",\"Tamberlin Tally\",\"1.0\",#2001-05-01 10:00:00#\r\n";
    std::string race10 = "\"%Race  `\",1,\"First\",1,1,0.1,-2,0,0";
    for (int t = 1; t <= 10; ++t) race10 += ",#TRUE#,0";
    race10 += ",0,0,0,0,0,0\r\n";
    seeds.push_back(
        header10 + "\"%Parms `\",55,\"Old\",\"Dogs\",1,3\r\n" + race10 +
        "\"%Racer `\",1,\"1\",\"1\",\"Rex\",3,#FALSE#\r\n\"%Bettor`\",\"Ann\",\"\",\"\",\"\"\r\n"
        "\"%Bet   `\",1,2,1,#FALSE#,2,#TRUE#,4,#FALSE#,1,0,0,0,0,0\r\n");
    seeds.push_back("\"%Header`\",\"Tamberlin Tally\",\"2.01\",#2026-05-02 14:30:00#\r\n");
    return seeds;
}

// ---- Mutations -----------------------------------------------------------------------------

class Mutator {
  public:
    Mutator(std::uint64_t seed, const std::vector<std::string>& seeds)
        : rng_(seed), seeds_(seeds) {}

    std::string Next() {
        std::string s = seeds_[Below(seeds_.size())];
        const int rounds = 1 + static_cast<int>(Below(4));
        for (int i = 0; i < rounds; ++i) Mutate(s);
        if (s.size() > kMaxLen) s.resize(kMaxLen);
        return s;
    }

  private:
    std::size_t Below(std::size_t n) { return n == 0 ? 0 : static_cast<std::size_t>(rng_() % n); }

    // Start and length of a random line.
    std::pair<std::size_t, std::size_t> Line(const std::string& s) {
        if (s.empty()) return {0, 0};
        std::size_t at = Below(s.size());
        std::size_t b = s.rfind('\n', at);
        b = b == std::string::npos ? 0 : b + 1;
        std::size_t e = s.find('\n', at);
        e = e == std::string::npos ? s.size() : e + 1;
        return {b, e - b};
    }

    void Mutate(std::string& s) {
        static const char kChars[] = ",\"\r\n#%`-.0123456789 \tE";
        static const char* const kNumbers[] = {
            "-1",         "0",          "1",          "20",       "21",
            "22",         "32767",      "32768",      "-32769",   "65536",
            "2147483647", "2147483648", "2000000000", "16777215", "99999",
            "1e308",      "0.00001",    "",           "-0",       "922337203685477.5808",
            "#TRUE#",     "\"x\"",      "1.00",       "3.0"};
        switch (Below(10)) {
            case 0:
                if (!s.empty()) s[Below(s.size())] ^= static_cast<char>(1u << Below(8));
                break;
            case 1:
                if (!s.empty()) s[Below(s.size())] = kChars[Below(sizeof kChars - 1)];
                break;
            case 2:
                if (!s.empty()) {
                    std::size_t at = Below(s.size());
                    s.erase(at, 1 + Below(16));
                }
                break;
            case 3: {
                const std::string& from = seeds_[Below(seeds_.size())];
                if (from.empty()) break;
                std::size_t at = Below(from.size());
                s.insert(Below(s.size() + 1), from.substr(at, 1 + Below(64)));
                break;
            }
            case 4: {  // a line again, elsewhere
                auto [b, n] = Line(s);
                std::string line = s.substr(b, n);
                auto [to, m] = Line(s);
                (void)m;
                s.insert(to, line);
                break;
            }
            case 5: {  // a number replaced
                std::size_t at = Below(s.size());
                std::size_t b = s.find_first_of("0123456789", at);
                if (b == std::string::npos) break;
                std::size_t e = s.find_first_not_of("0123456789.", b);
                if (e == std::string::npos) e = s.size();
                s.replace(b, e - b, kNumbers[Below(std::size(kNumbers))]);
                break;
            }
            case 6:
                s.resize(Below(s.size() + 1));
                break;
            case 7: {  // the front of one input and the back of another
                const std::string& other = seeds_[Below(seeds_.size())];
                s = s.substr(0, Below(s.size() + 1)) + other.substr(Below(other.size() + 1));
                break;
            }
            case 8: {  // a line left out
                auto [b, n] = Line(s);
                s.erase(b, n);
                break;
            }
            default: {  // random bytes
                std::string junk(1 + Below(32), '\0');
                for (char& c : junk) c = static_cast<char>(rng_());
                s.insert(Below(s.size() + 1), junk);
                break;
            }
        }
    }

    std::mt19937_64 rng_;
    const std::vector<std::string>& seeds_;
};

long PeakKb() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss;
}

}  // namespace

int main(int argc, char** argv) {
    long iterations = 5000;
    std::uint64_t seed = 1;
    std::string writeSeeds;
    std::vector<std::string> seeds = BuiltInSeeds();
    for (int i = 1; i < argc; ++i) {
        std::string a = argv[i];
        if (a == "--iterations" && i + 1 < argc) {
            iterations = std::atol(argv[++i]);
        } else if (a == "--seed" && i + 1 < argc) {
            seed = std::strtoull(argv[++i], nullptr, 10);
        } else if (a == "--write-seeds" && i + 1 < argc) {
            writeSeeds = argv[++i];
        } else if (std::filesystem::is_directory(a)) {
            for (const auto& e : std::filesystem::directory_iterator(a))
                if (e.path().extension() == ".tly") seeds.push_back(ReadFile(e.path()));
        } else if (std::filesystem::is_regular_file(a)) {
            seeds.push_back(ReadFile(a));
        } else {
            std::fprintf(stderr, "fuzz: no such file or option: %s\n", a.c_str());
            return 2;
        }
    }
    if (!writeSeeds.empty()) {
        std::filesystem::create_directories(writeSeeds);
        for (std::size_t i = 0; i < seeds.size(); ++i)
            std::ofstream(
                std::filesystem::path(writeSeeds) / ("seed-" + std::to_string(i) + ".tly"),
                std::ios::binary)
                << seeds[i];
        return 0;
    }

#ifndef TALLY_ASAN
    // 1.5 GiB of address space; under the address sanitizer its shadow memory would not fit.
    const rlim_t bytes = 1536ull << 20;
    rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_AS, &limit);
#endif
    for (int sig : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL, SIGALRM}) signal(sig, OnSignal);

    const auto start = std::chrono::steady_clock::now();
    Mutator mutator(seed, seeds);
    std::string input;
    for (long i = 0; i < iterations + static_cast<long>(seeds.size()); ++i) {
        input = i < static_cast<long>(seeds.size()) ? seeds[static_cast<std::size_t>(i)]
                                                    : mutator.Next();
        g_current = &input;
        std::set_new_handler(OnNoMemory);
        alarm(kSecondsPerInput);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        alarm(0);
        if (g_outOfMemory) {
            SaveCurrent();
            std::fprintf(stderr, "fuzz: an input ran out of memory, saved as fuzz-failure.tly\n");
            return 1;
        }
    }
    g_current = nullptr;
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("fuzz: %ld inputs in %.1f s, peak resident %.0f MB\n",
                iterations + static_cast<long>(seeds.size()), seconds, PeakKb() / 1024.0);
    return 0;
}
