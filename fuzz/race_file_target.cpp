// The race file reader on any bytes. The bytes are the file; every question is answered with
// its default button, so a later or older version is read on. A card that loads is saved again
// and the saved bytes loaded once more. Any message is fine; a crash, a hang, an exception that
// escapes or memory out of proportion is not.

#include <cstddef>
#include <cstdint>
#include <string>

#include "files/race_file_io.h"
#include "memory_files.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace {

constexpr const char* kPath = "/fuzz/card.tly";

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

void Load(FuzzWorld& world, std::string bytes) {
    world.files.files.clear();
    world.files.files[kPath] = std::move(bytes);
    tt::G.FilePath = kPath;
    tt::G.CancelFlag = false;
    tt::OpenRaceFile();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzWorld world;
    tt::ResetProcessState();
    Load(world, std::string(reinterpret_cast<const char*>(data), size));
    if (tt::G.CancelFlag || tt::G.FilePath.empty()) return 0;
    std::string saved;
    try {
        saved = tt::BuildRaceFileText(world.clock.Now());
    } catch (const tt::AppError&) {
        return 0;  // a ticket index the table no longer holds, as the save would report it
    }
    Load(world, std::move(saved));
    return 0;
}
