#pragma once
// A race card of a chosen size, built straight into the document, for the benchmarks and the
// fuzzer's seeds. The default is a large day: 20 races of 24 racers, 5,000 bettors, and
// 200,000 bets on 60,000 tickets of every bet type, boxed exotics and multi-race bets among
// them, the first half of the races settled.

#include <cstdint>

namespace tt::bench {

struct CardShape {
    int races = 20;          // 1 to 20
    int racersPerRace = 24;  // at least 6, so that a Pick 6 or a boxed Trifecta has its picks
    int bettors = 5000;
    int tickets = 60000;
    int bets = 200000;      // at least one per ticket
    int settledRaces = 10;  // races 1 to this have results, payouts and winnings
    std::uint64_t seed = 20260502;
};

// Clears the document and fills tt::RF with a card of this shape. Tickets are taken in time
// order by bettors drawn at random, so that the bets of one bettor are spread over the slots
// of their races as they are at a betting window.
void MakeLargeCard(const CardShape& shape = {});

}  // namespace tt::bench
