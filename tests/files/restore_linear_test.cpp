// The linear restore against the restore's loops word for word, on random cards and random
// logs: the same document afterwards, and the same error at the same point when a record
// cannot be restored.

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <optional>
#include <random>

#include "files/restore.h"
#include "model/race_file.h"
#include "restore_literal.h"
#include "support/fakes.h"

namespace tt {
namespace {

using test::LiteralRestore;
using test::RestoredState;

class RandomDay {
  public:
    explicit RandomDay(std::uint32_t seed) : rng_(seed) {}

    // A small card with bets, deleted bets and tickets spread over three races.
    void MakeCard(bool hostile) {
        ClearRaceFile();
        RF.FileId = 77;
        RF.MaxBets = Pick(0, 12);
        RF.Bet.ReDim(RF.MaxBets + 1);
        RF.TicketCount = Pick(0, 6);
        RF.Ticket.ReDim(RF.TicketCount + 1);
        RF.BettorCount = Pick(0, 3);
        RF.Bettor.ReDim(RF.BettorCount + 1);
        for (int b = 1; b <= RF.BettorCount; ++b)
            RF.Bettor(b).BettorName = "Bettor " + std::to_string(b);
        for (int t = 1; t <= RF.TicketCount; ++t) {
            TicketRec& tk = RF.Ticket(t);
            tk.TicketNbr = t;
            tk.TicketRace = hostile && Chance(0.02) ? 22 : Pick(0, 3);
            tk.TicketBettor = Pick(0, RF.BettorCount);
            tk.TicketCost = Currency::FromRaw(Pick(0, 9) * 10000);
        }
        for (int r = 1; r <= 3; ++r)
            for (int n = 1; n <= RF.MaxBets; ++n) {
                if (!Chance(0.6)) continue;
                BetRec& b = RF.Bet(r, n);
                b.BetType = Pick(0, 3);
                b.TicketIdx = Pick(0, 6);
                b.BetAmt = Currency::FromRaw(Pick(1, 5) * 10000);
                b.BetCost = hostile && Chance(0.05)
                                ? Currency::FromRaw(std::numeric_limits<std::int64_t>::max() / 2 +
                                                    Pick(0, 99))
                                : Currency::FromRaw(Pick(1, 20) * 10000);
                b.BetWinnings = Currency::FromRaw(Pick(0, 3) * 5000);
                b.Pick(1) = Pick(1, 8);
            }
    }

    // Versions of tickets, one to four rows each, a few seconds apart so that a ticket and a
    // time come back.
    std::vector<RecoveryRow> MakeLog(bool hostile) {
        static const char* const kActions[] = {"New ", "Edit", "Cash", "Canc", "ReEd", "ENew"};
        std::vector<RecoveryRow> rows;
        const int versions = Pick(0, 12);
        for (int v = 0; v < versions; ++v) {
            RecoveryRow row;
            row.When = DateTime{2026, 5, 2, 14, 30, Pick(0, 2)};
            row.FileId = 77;
            row.Action = kActions[Pick(0, 5)];
            row.TicketNbr = hostile && Chance(0.01) ? -1 : Pick(0, 8);
            row.Race = hostile && Chance(0.01) ? 22 : Pick(0, 3);
            row.Bettor = Pick(0, 6);
            row.Collected = Currency::FromRaw(Pick(0, 9) * 10000);
            row.Distributed = Currency::FromRaw(Pick(0, 3) * 10000);
            const int bets = Pick(1, 4);
            for (int k = 0; k < bets; ++k) {
                row.BetAmt = Currency::FromRaw(Pick(1, 5) * 10000);
                row.BetType = Pick(0, 5);
                row.Boxed = Chance(0.2);
                row.BetCost = Currency::FromRaw(hostile && Chance(0.2)
                                                    ? std::numeric_limits<std::int64_t>::max() / 2
                                                    : Pick(1, 20) * 10000);
                row.OrigBetIdx = Chance(0.4)    ? 0
                                 : Chance(0.05) ? (hostile && Chance(0.5) ? -2 : 40)
                                                : Pick(1, RF.MaxBets + 4);
                row.Pick(1) = Pick(0, 8);
                row.Pick(2) = Pick(0, 8);
                row.Include = Chance(0.85);
                rows.push_back(row);
            }
        }
        return rows;
    }

  private:
    int Pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
    bool Chance(double p) { return std::bernoulli_distribution(p)(rng_); }
    std::mt19937 rng_;
};

// Runs a restore and reports the error it raised, if any.
template <class Restore>
std::optional<int> Run(Restore restore, const std::vector<RecoveryRow>& rows) {
    try {
        restore(rows);
    } catch (const AppError& e) {
        return e.Number();
    }
    return std::nullopt;
}

// The error both raised, if any.
std::optional<int> Compare(std::uint32_t seed, bool hostile) {
    test::FakeWorld world;
    RandomDay day(seed);
    day.MakeCard(hostile);
    const std::vector<RecoveryRow> rows = day.MakeLog(hostile);
    const RaceFile card = RF;

    const std::optional<int> literalError = Run(LiteralRestore, rows);
    const std::string literal = RestoredState();
    RF = card;
    G.CurrentTicket = 0;
    const std::optional<int> fastError = Run(RestoreTickets, rows);
    const std::string fast = RestoredState();

    EXPECT_EQ(fastError, literalError) << "seed " << seed;
    EXPECT_EQ(fast, literal) << "seed " << seed;
    return literalError;
}

TEST(RestoreLinear, SameDocumentAsTheLoopsOnRandomLogs) {
    for (std::uint32_t seed = 1; seed <= 3000 && !HasFailure(); ++seed)
        EXPECT_EQ(Compare(seed, false), std::nullopt) << "seed " << seed;
}

TEST(RestoreLinear, SameErrorAtTheSamePointOnHostileLogs) {
    std::map<int, int> errors;
    for (std::uint32_t seed = 1; seed <= 3000 && !HasFailure(); ++seed)
        if (std::optional<int> error = Compare(seed, true)) ++errors[*error];
    // Bad races and tickets, and sums past the largest amount, all came up.
    EXPECT_GT(errors[kErrSubscript], 20);
    EXPECT_GT(errors[kErrOverflow], 20);
}

}  // namespace
}  // namespace tt
