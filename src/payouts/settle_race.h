#pragma once
// Where a race is settled: its result turned into what every bet returns, the Payout rows and
// the ticket sums. The engine never asks anything itself: a pool that nobody won is put to the
// caller's handling policy, and whoever shows payouts is told when a race has been settled.

#include <functional>
#include <optional>

#include "model/bet_type.h"

namespace tt {

// What happens to a pool that has no winning bet.
enum class PoolHandling {
    kMost,     // pay the bets with the most correct picks
    kPayback,  // give every bettor the stake back
    kNoPay,    // pay nothing
};

// A pool without winners: the race being settled, the pool's bet type, and the most correct
// picks any bet of it reached (Win, Place and Show have no partly correct bets).
struct HandlingQuestion {
    int race = 0;
    BetType type = BetType::kNone;
    int bestCorrect = 0;
};

// Answers the question for one pool. No answer (the question dismissed) leaves the handling in
// force: that of the pool before in the same settlement, paying the most correct at its start.
using HandlingPolicy = std::function<std::optional<PoolHandling>(const HandlingQuestion&)>;

// Whether paying the most correct picks can be chosen: not for Win, Place and Show, and not
// when no bet has a correct pick.
bool MostCorrectOffered(const HandlingQuestion& question);

// Settles a race that has a result, or takes back the winnings of one that has none; also the
// multi-race groups within five races of it. Sets FileChanged. The race becomes the current
// race, as it always has been for the windows that follow.
void SettleRace(int race, const HandlingPolicy& policy);

// Told after each settlement with the race settled; an open payout display shows it next.
using SettledListener = std::function<void(int race)>;
class SettledSubscription {
  public:
    explicit SettledSubscription(SettledListener listener);
    ~SettledSubscription();
    SettledSubscription(const SettledSubscription&) = delete;
    SettledSubscription& operator=(const SettledSubscription&) = delete;

  private:
    int id_;
};

}  // namespace tt
