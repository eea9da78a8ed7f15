// The race file reader and writer on any bytes. The bytes are the file; every question is
// answered with OK or Yes, so a later or older version is read on. A card that loads is saved
// over its file and the saved bytes loaded and saved once more. Any message is fine; a crash,
// a hang, an exception that escapes, memory out of proportion, a save that does not come back
// to the same bytes or a failed save that touched the disk is not.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "files/field_reader.h"
#include "files/race_file_io.h"
#include "memory_files.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace {

constexpr const char* kPath = "/fuzz/card.tly";
constexpr const char* kBackup = "/fuzz/card.bkp";

class DefaultAnswers : public tt::MessagePort {
  public:
    int Show(const tt::MessageRequest& r) override {
        return r.buttons == tt::Buttons::kYesNo || r.buttons == tt::Buttons::kYesNoCancel ? tt::kYes
                                                                                          : tt::kOK;
    }
    void Beep() override {}
};

class StillClock : public tt::ClockPort {
  public:
    tt::DateTime Now() override { return {2026, 5, 2, 14, 30, 0}; }
    std::int64_t MonotonicMs() override { return ms_ += 1000; }

  private:
    std::int64_t ms_ = 0;
};

class SameRandom : public tt::RandomPort {
  public:
    void Randomize() override {}
    double Rnd() override { return 0.25; }
};

struct FuzzWorld;
FuzzWorld& world();

struct FuzzWorld {
    tt::bench::MemoryFileSystem files;
    DefaultAnswers messages;
    StillClock clock;
    SameRandom random;
    tt::PortsScope scope{Make()};

    tt::Ports Make() {
        tt::Ports p;
        p.files = &files;
        p.message = &messages;
        p.clock = &clock;
        p.random = &random;
        return p;
    }
};

FuzzWorld& world() {
    static FuzzWorld w;
    return w;
}

void Load(std::string_view bytes) {
    tt::ResetProcessState();
    world().files.Clear();
    world().files.Put(kPath, std::string(bytes));
    tt::G.FilePath = kPath;
    tt::G.CancelFlag = false;
    tt::OpenRaceFile();
}

bool Loaded() {
    return !tt::G.CancelFlag && !tt::G.FilePath.empty();
}

// The version in the header, as the reader finds it.
std::string VersionOf(std::string_view bytes) {
    tt::FieldReader in(bytes);
    try {
        while (!in.AtEnd())
            if (in.Next() == "%Header`") {
                in.Next();
                return in.ReadText();
            }
    } catch (const std::exception&) {
    }
    return {};
}

// Saves the loaded card over the file it came from, through the program's save.
void Save() {
    tt::G.FilePath = kPath;
    tt::G.FileChanged = true;
    tt::WriteRaceFile();
}

[[noreturn]] void Fault(const char* what) {
    std::fprintf(stderr, "round trip: %s\n", what);
    std::abort();
}

}  // namespace

// A card that loads saves, and its saved bytes load and save again to the same bytes (or, in
// the two cases below, come to rest at the second save). A card that cannot be saved (a
// %Parms after its bets leaves tickets beyond the table) fails with the file as it was and nothing
// else on the disk; a translated 1.0 card whose last record reset TicketCount saves but cannot be
// read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view original(reinterpret_cast<const char*>(data), size);
    Load(original);
    if (!Loaded()) return 0;
    // Two things the format does make a card change once more after its first save: RacerSort
    // and RecoveryFile are written as they stand, and one that holds a double quote reads back
    // cut short there; and a bet naming ticket 0 gives that ticket a bettor, after which every
    // empty slot up to MaxBets is written as one of that bettor's bets, and read back as a bet.
    // Such a card must come to rest at its second save.
    const bool changesOnce = tt::RF.RacerSort.find('"') != std::string::npos ||
                             tt::RF.RecoveryFile.find('"') != std::string::npos ||
                             tt::RF.Ticket(0).TicketBettor != 0;
    auto& disk = world().files;
    const auto before = disk.Snapshot();
    Save();
    const auto after = disk.Snapshot();
    if (tt::G.CancelFlag) {
        if (after != before) Fault("a failed save touched the disk");
        if (tt::G.FileChanged != tt::Flag(true)) Fault("a failed save marked the card saved");
        return 0;
    }
    // The card and its backup change, and the recovery file when the save clears it.
    for (const auto& [name, bytes] : after) {
        if (name == kPath || name == tt::RF.RecoveryFile) continue;
        auto was = before.find(name);
        if (name == kBackup ? bytes != original : was == before.end() || was->second != bytes)
            Fault("the save left other than the card and its backup");
    }
    const std::string first = disk.Get(kPath);
    Load(first);
    if (!Loaded()) {
        if (VersionOf(original) != "1.0") Fault("a saved card does not load");
        return 0;
    }
    Save();
    if (tt::G.CancelFlag) Fault("a saved card loads but does not save");
    std::string previous = first;
    if (changesOnce && disk.Get(kPath) != first) {
        previous = disk.Get(kPath);
        Load(previous);
        if (!Loaded()) Fault("a card saved twice does not load");
        Save();
    }
    if (disk.Get(kPath) != previous) {
        // TALLY_FUZZ_DUMP=DIR keeps both saves for a look at where they part.
        if (const char* dump = std::getenv("TALLY_FUZZ_DUMP")) {
            std::ofstream(std::string(dump) + "/first.tly", std::ios::binary) << previous;
            std::ofstream(std::string(dump) + "/second.tly", std::ios::binary) << disk.Get(kPath);
        }
        Fault("a saved card saves to other bytes");
    }
    return 0;
}
