// `tally settle` on a copy of the large card, killed with SIGKILL at random moments of its run:
// whenever it dies, the card's path holds the complete old card or the complete new one, and
// the backup, when there is one, the complete old card.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <thread>

#include "files/race_file_io.h"
#include "large_card.h"
#include "model/race_file.h"
#include "support/companion_run.h"

namespace tt::test {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

#if defined(__SANITIZE_ADDRESS__)
constexpr int kKills = 30;  // each run takes many times longer under the sanitizers
#else
constexpr int kKills = 60;
#endif

// Starts the companion on the card; its output goes nowhere.
pid_t StartSettle(const std::string& card, const std::string& out) {
    pid_t pid = fork();
    if (pid == 0) {
        std::freopen("/dev/null", "w", stdout);
        std::freopen("/dev/null", "w", stderr);
        std::vector<std::string> args = {TALLY_BINARY, "settle",    card,         "--race", "11",
                                         "--result",   "1,2,3,4,5", "--handling", "most"};
        if (!out.empty()) {
            args.push_back("-o");
            args.push_back(out);
        }
        std::vector<char*> argv;
        for (auto& a : args) argv.push_back(a.data());
        argv.push_back(nullptr);
        execv(TALLY_BINARY, argv.data());
        _exit(127);
    }
    return pid;
}

int Wait(pid_t pid) {
    // Every kill waits for its process, so no zombie is left.
    int status = 0;
    waitpid(pid, &status, 0);
    return status;
}

TEST(KillDuringSave, ThePathHoldsTheOldCardOrTheNewOneWhole) {
    QTemporaryDir dir;
    const std::string card = dir.filePath("large.tly").toStdString();
    const std::string backup = dir.filePath("large.bkp").toStdString();

    ResetProcessState();
    bench::MakeLargeCard();
    const std::string old = BuildRaceFileText(DateTime{2026, 5, 2, 14, 30, 0});
    ResetProcessState();

    // The new card, from a run left to finish; the time of the save in its first line is the
    // only thing that differs between runs.
    WriteFile(card, old);
    const std::string reference = dir.filePath("reference.tly").toStdString();
    const auto start = Clock::now();
    pid_t pid = StartSettle(card, reference);
    // Watch for the temporaries of the save, to know when it runs.
    Clock::duration saveStart{}, saveEnd{};
    int status = 0;
    while (waitpid(pid, &status, WNOHANG) == 0) {
        bool temporary = false;
        for (const auto& e : fs::directory_iterator(dir.path().toStdString()))
            temporary = temporary || e.path().extension() == ".tmp";
        if (temporary) {
            if (saveStart == Clock::duration{}) saveStart = Clock::now() - start;
            saveEnd = Clock::now() - start;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    const auto runtime = Clock::now() - start;
    ASSERT_GT(saveEnd, saveStart) << "the save was never seen";
    const std::string settled = WithoutHeader(ReadFile(reference));
    ASSERT_NE(settled, WithoutHeader(old));
    fs::remove(reference);

    // Two kills in three land around the save, which comes a little earlier when nobody is
    // watching the folder; the others anywhere.
    using us = std::chrono::microseconds;
    auto micros = [](Clock::duration d) { return std::chrono::duration_cast<us>(d).count(); };
    const std::int64_t margin = micros(saveEnd - saveStart) / 4;
    std::mt19937_64 rng(20260502);
    std::uniform_int_distribution<std::int64_t> anywhere(0, micros(runtime) * 6 / 5);
    std::uniform_int_distribution<std::int64_t> inSave(micros(saveStart) * 3 / 5,
                                                       micros(saveEnd) + margin);
    int asOld = 0, midSave = 0, asNew = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        SCOPED_TRACE(kill);
        fs::remove(backup);
        WriteFile(card, old);
        pid_t pid = StartSettle(card, "");
        std::this_thread::sleep_for(us(kill % 3 == 2 ? anywhere(rng) : inSave(rng)));
        ::kill(pid, SIGKILL);
        Wait(pid);

        std::vector<std::string> left;
        for (const auto& e : fs::directory_iterator(dir.path().toStdString())) {
            const std::string name = e.path().string();
            if (name != card && name != backup) left.push_back(name);
        }
        const std::string now = ReadFile(card);
        if (now == old) {
            ++(left.empty() ? asOld : midSave);
        } else {
            ASSERT_EQ(now.rfind("\"%Header`\",\"Tamberlin Tally\",\"2.01\",#", 0), 0u);
            ASSERT_TRUE(WithoutHeader(now) == settled) << "the card at its path is neither";
            ++(left.empty() ? asNew : midSave);
        }
        if (fs::exists(backup)) {
            ASSERT_TRUE(ReadFile(backup) == old);
        }
        // A temporary left by the kill holds nothing the path needs.
        for (const std::string& name : left) fs::remove(name);
    }
    std::printf(
        "kills: %d, before the save or in it with the old card whole: %d, "
        "with temporaries left: %d, after it with the new card whole: %d\n",
        kKills, asOld, midSave, asNew);
    EXPECT_EQ(asOld + midSave + asNew, kKills);
}

}  // namespace
}  // namespace tt::test
