// Saving and loading a large race card: the writer into memory, the reader over the bytes in
// memory, and, for scale, the bare read of the same bytes from the page cache.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "files/field_reader.h"
#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "large_card.h"
#include "memory_files.h"
#include "model/race_file.h"

namespace {

using namespace tt;

constexpr const char* kPath = "/mem/large.tly";
const DateTime kSaved{2026, 5, 2, 14, 30, 0};

struct World {
    bench::MemoryFileSystem files;
    std::unique_ptr<PortsScope> scope;
    std::string bytes;
    std::string tempPath;

    World() {
        Ports p;
        p.files = &files;
        scope = std::make_unique<PortsScope>(p);
        ResetProcessState();
        bench::MakeLargeCard();
        bytes = BuildRaceFileText(kSaved);
        files.Put(kPath, bytes);
        tempPath = (std::filesystem::temp_directory_path() / "tally-bench-large.tly").string();
        std::ofstream(tempPath, std::ios::binary) << bytes;
    }
    ~World() { std::remove(tempPath.c_str()); }
};

World& TheWorld() {
    static World w;
    return w;
}

void Bytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(TheWorld().bytes.size()));
    state.counters["file_MB"] = static_cast<double>(TheWorld().bytes.size()) / 1e6;
}

void BM_BuildRaceFileText(benchmark::State& state) {
    TheWorld();
    bench::MakeLargeCard();
    for (auto _ : state) {
        std::string text = BuildRaceFileText(kSaved);
        benchmark::DoNotOptimize(text.data());
    }
    Bytes(state);
}
BENCHMARK(BM_BuildRaceFileText)->Unit(benchmark::kMillisecond);

void BM_WriteRaceFile(benchmark::State& state) {
    World& w = TheWorld();
    bench::MakeLargeCard();
    G.FilePath = kPath;
    for (auto _ : state) {
        WriteRaceFile();
        if (G.CancelFlag) state.SkipWithError("the save failed");
    }
    w.files.Put(kPath, w.bytes);
    Bytes(state);
}
BENCHMARK(BM_WriteRaceFile)->Unit(benchmark::kMillisecond);

void BM_OpenRaceFile(benchmark::State& state) {
    TheWorld();
    for (auto _ : state) {
        G.FilePath = kPath;
        G.CancelFlag = false;
        OpenRaceFile();
        if (G.CancelFlag || RF.BettorCount != 5000) state.SkipWithError("the load failed");
    }
    Bytes(state);
}
BENCHMARK(BM_OpenRaceFile)->Unit(benchmark::kMillisecond);

// The save of the card to a file on the disk, as the program does it: with the flushes that
// make it durable (range 1) and without them (range 0), to show what the flushes cost.
void BM_SaveToDisk(benchmark::State& state) {
    World& w = TheWorld();
    bench::MakeLargeCard();
    auto disk = MakeRealFileSystem(state.range(0) != 0);
    Ports p;
    p.files = disk.get();
    PortsScope scope(p);
    G.FilePath = w.tempPath;
    for (auto _ : state) {
        // Saves come minutes apart: the disk has written the last one out before the next.
        state.PauseTiming();
        ::sync();
        state.ResumeTiming();
        WriteRaceFile();
        if (G.CancelFlag) state.SkipWithError("the save failed");
    }
    std::remove(BackupName(w.tempPath).c_str());
    Bytes(state);
}
BENCHMARK(BM_SaveToDisk)->ArgName("fsync")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The record loop alone, over the bytes in place.
void BM_ReadRaceFile20(benchmark::State& state) {
    World& w = TheWorld();
    for (auto _ : state) {
        state.PauseTiming();
        ClearRaceFile();
        state.ResumeTiming();
        FieldReader in(w.bytes);
        ReadProgress progress;
        ReadRaceFile20(in, progress);
        benchmark::DoNotOptimize(progress.count);
    }
    Bytes(state);
}
BENCHMARK(BM_ReadRaceFile20)->Unit(benchmark::kMillisecond);

void BM_BareRead(benchmark::State& state) {
    World& w = TheWorld();
    auto disk = MakeRealFileSystem();
    for (auto _ : state) {
        std::string data = disk->ReadAll(w.tempPath);
        benchmark::DoNotOptimize(data.data());
    }
    Bytes(state);
}
BENCHMARK(BM_BareRead)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
