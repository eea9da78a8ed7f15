// A generated card settled race by race under each answer to the handling question: the
// results window and the engine call give the same file, and it is the file the program has
// always given. The expected files stand in tests/payouts/data; TALLY_WRITE_GOLDEN=1 writes
// them anew from the build under test.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "files/race_file_io.h"
#include "large_card.h"
#include "model/race_file.h"
#include "payouts/edit_results_logic.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/record_result.h"
#include "payouts/settle_race.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

const DateTime kSaved{2026, 6, 1, 18, 0, 0};
constexpr int kRaces = 8;
constexpr int kRacers = 7;

// A card of eight races with bets of every type, varied a little so that fields, scratches,
// types not offered and short results all come up.
void MakeCard(std::uint64_t seed) {
    bench::CardShape shape;
    shape.races = kRaces;
    shape.racersPerRace = kRacers;
    shape.bettors = 12;
    shape.tickets = 70;
    shape.bets = 240;
    shape.settledRaces = 0;
    shape.seed = seed;
    bench::MakeLargeCard(shape);
    RF.Racer(2, 2).BetNbr = 1;        // a field: 1 and 1A
    RF.Race(3).BetType(2) = false;    // no Place: its bets come back
    RF.Race(4).BetType(4) = false;    // no Exacta
    RF.Race(6).BetType(6) = false;    // no Daily Double from race 6
    RF.Racer(7, 3).Scratched = true;  // a scratch in a leg of the Picks
}

// Five finishers for a race, running racers only; every third race has three.
std::array<std::int64_t, 6> Finish(int race, std::uint64_t seed) {
    std::array<std::int64_t, 6> slots{};
    std::uint64_t x = seed * 2654435761u + static_cast<std::uint64_t>(race) * 40503u;
    const int count = race % 3 == 0 ? 3 : 5;
    for (int k = 1; k <= count; ++k) {
        for (;;) {
            x = x * 6364136223846793005ull + 1442695040888963407ull;
            const std::int64_t n = 1 + static_cast<std::int64_t>((x >> 33) % kRacers);
            bool taken = bool(RF.Racer(race, n).Scratched);
            for (int j = 1; j < k; ++j) taken = taken || slots[static_cast<std::size_t>(j)] == n;
            if (!taken) {
                slots[static_cast<std::size_t>(k)] = n;
                break;
            }
        }
    }
    return slots;
}

class SettleGolden : public ::testing::TestWithParam<std::tuple<std::uint64_t, const char*>> {
  protected:
    void SetUp() override {
        handling = std::get<1>(GetParam());
        const PoolHandling h = handling == std::string("Most")      ? PoolHandling::kMost
                               : handling == std::string("Payback") ? PoolHandling::kPayback
                                                                    : PoolHandling::kNoPay;
        // Where the dialog allows the answer; else its own choice stands.
        policy = DialogHandling(h);
    }

    // Every race given its finish and settled through the engine.
    std::string ByEngine(std::uint64_t seed) {
        MakeCard(seed);
        for (int race = 1; race <= kRaces; ++race) {
            const auto finish = Finish(race, seed);
            EXPECT_EQ(RecordResult(race, finish, [](ResultQuestion) { return true; }).status,
                      ResultStatus::kStored);
            SettleRace(race, policy);
        }
        return BuildRaceFileText(kSaved);
    }

    // The same finishes chosen and saved in the results window.
    std::string ByWindow(std::uint64_t seed) {
        MakeCard(seed);
        for (int race = 1; race <= kRaces; ++race) {
            const auto slots = Finish(race, seed);
            G.CurrentRace = race;
            EditResultsLogic window;
            window.handling = policy;
            window.Form_Load();
            for (int k = 1; k <= 5; ++k) {
                ListData& list = window.comRacerName[static_cast<std::size_t>(k)].list;
                for (int i = 0; i < list.ListCount(); ++i)
                    if (list.ItemData(i) == slots[static_cast<std::size_t>(k)])
                        list.SetListIndex(i);
                window.comRacerName_Click(k);
            }
            window.cmdOK_Click();
            EXPECT_TRUE(window.unloaded) << "race " << race;
        }
        return BuildRaceFileText(kSaved);
    }

    std::string GoldenPath(std::uint64_t seed) const {
        return std::string(TALLY_SOURCE_DIR) + "/tests/payouts/data/settled-" + handling + "-" +
               std::to_string(seed) + ".tly";
    }

    FakeWorld world;
    std::string handling;
    HandlingPolicy policy;
};

TEST_P(SettleGolden, WindowAndEngineGiveTheKeptFile) {
    const std::uint64_t seed = std::get<0>(GetParam());
    const std::string engine = ByEngine(seed);
    const std::string window = ByWindow(seed);
    EXPECT_EQ(engine, window);

    if (std::getenv("TALLY_WRITE_GOLDEN"))
        std::ofstream(GoldenPath(seed), std::ios::binary) << engine;
    std::ifstream in(GoldenPath(seed), std::ios::binary);
    ASSERT_TRUE(in) << GoldenPath(seed);
    std::ostringstream kept;
    kept << in.rdbuf();
    EXPECT_TRUE(kept.str() == engine) << "the settled card differs from " << GoldenPath(seed);
}

INSTANTIATE_TEST_SUITE_P(Cards, SettleGolden,
                         ::testing::Combine(::testing::Values(11u, 29u),
                                            ::testing::Values("Most", "Payback", "NoPay")));

}  // namespace
}  // namespace tt::test
