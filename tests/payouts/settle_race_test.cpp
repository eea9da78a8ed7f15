// The engine's seams: a question left without an answer keeps the handling in force, the
// listeners of a settled race are told, and a result is checked and stored without a window.

#include "payout_card.h"
#include "payouts/record_result.h"

namespace tt::test {
namespace {

using SettleRaceSeams = PayoutCard;

TEST_F(SettleRaceSeams, AQuestionWithoutAnswerKeepsTheHandlingInForce) {
    // Race 1: Win has a winner, the Exacta nobody in order but one correct pick.
    Race(1, {1, 4}, {1, 2, 3});
    Bet(1, 1, 2.00, {1});
    Bet(1, 4, 2.00, {1, 3}), Bet(1, 4, 2.00, {3, 1});
    Race(2, {2, 3}, {1, 2, 3, 4});
    Bet(2, 2, 2.00, {4}), Bet(2, 3, 2.00, {4});
    Race(3, {3}, {1, 2, 3, 4});
    Bet(3, 3, 2.00, {4});
    for (int race : {1, 2, 3}) {
        RF.Race(race).Result(1) = 1, RF.Race(race).Result(2) = 2, RF.Race(race).Result(3) = 3;
    }
    std::vector<HandlingQuestion> questions;
    auto dismiss = [&](const HandlingQuestion& q) -> std::optional<PoolHandling> {
        questions.push_back(q);
        return std::nullopt;
    };
    SettleRace(1, dismiss);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_EQ(questions[0].race, 1);
    EXPECT_EQ(questions[0].type, BetType::kExacta);
    EXPECT_EQ(questions[0].bestCorrect, 1);
    // The Win pool before it had winners: the most correct picks are paid.
    EXPECT_EQ(RF.Race(1).CorrectPaid(4), 1);
    EXPECT_GT(Ratio(1, 4), 0);

    // Place answered No Pay, then Show dismissed: No Pay is still in force for Show.
    int asks = 0;
    SettleRace(2, [&](const HandlingQuestion&) -> std::optional<PoolHandling> {
        if (++asks == 1) return PoolHandling::kNoPay;
        return std::nullopt;
    });
    EXPECT_EQ(asks, 2);
    EXPECT_EQ(Ratio(2, 2, 1), kNoPay);
    EXPECT_EQ(Ratio(2, 3, 1), kNoPay);
    EXPECT_EQ(Won(2), Cs({0, 0}));

    // Every settlement starts afresh: dismissed alone, Show pays the stakes back.
    SettleRace(3, [](const HandlingQuestion&) { return std::optional<PoolHandling>(); });
    EXPECT_EQ(Ratio(3, 3, 1), kPayback);
    EXPECT_EQ(Won(3), Cs({2}));
}

TEST_F(SettleRaceSeams, ListenersAreToldOfTheSettledRaceWhileSubscribed) {
    Race(1, {1}, {1, 2});
    Race(2, {1}, {1, 2});
    RF.Race(1).Result(1) = 1;
    std::vector<int> told;
    {
        SettledSubscription first([&](int race) { told.push_back(race); });
        SettledSubscription second([&](int race) { told.push_back(-race); });
        SettleRace(2, policy);
        G.CurrentRace = 7;  // whatever was current, the settled race becomes current
        SettleRace(1, policy);
        EXPECT_EQ(G.CurrentRace, 1);
    }
    SettleRace(1, policy);
    EXPECT_EQ(told, (std::vector<int>{2, -2, 1, -1}));
}

TEST_F(SettleRaceSeams, RecordResultChecksAndStoresWithoutAWindow) {
    // Slots 1 and 2 are the field 1 and 1A; slot 4 is scratched.
    Race(1, {1, 2}, {1, 1, 2, 3});
    RF.Racer(1, 4).Scratched = true;
    EXPECT_TRUE(CanFinish(1, 3));
    EXPECT_FALSE(CanFinish(1, 4));
    EXPECT_FALSE(CanFinish(1, 0));
    EXPECT_FALSE(CanFinish(1, 5));

    std::vector<ResultQuestion> asked;
    auto yes = [&](ResultQuestion q) {
        asked.push_back(q);
        return true;
    };
    // The field first and second is one bet number: Place needs another.
    EXPECT_EQ(RecordResult(1, {0, 1, 2, 0, 0, 0}, yes).status, ResultStatus::kNoSecond);
    ResultOutcome same = RecordResult(1, {0, 3, 1, 0, 3, 0}, yes);
    EXPECT_EQ(same.status, ResultStatus::kSameRacer);
    EXPECT_EQ(same.first, 1);
    EXPECT_EQ(same.second, 4);
    EXPECT_EQ(RF.Race(1).Result(1), 0);

    EXPECT_EQ(RecordResult(1, {0, 1, 2, 3, 0, 0}, yes).status, ResultStatus::kStored);
    EXPECT_EQ(RecordResult(1, {0, 1, 2, 3, 0, 0}, yes).status, ResultStatus::kUnchanged);
    EXPECT_TRUE(asked.empty());

    // Later places without a winner: asked, and on OK every place is cleared.
    ResultOutcome cleared = RecordResult(1, {0, 0, 2, 3, 0, 0}, yes);
    EXPECT_EQ(cleared.status, ResultStatus::kStored);
    EXPECT_TRUE(cleared.cleared);
    EXPECT_EQ(asked, std::vector<ResultQuestion>{ResultQuestion::kNoWinner});
    for (int k = 1; k <= 5; ++k) EXPECT_EQ(RF.Race(1).Result(k), 0);
    EXPECT_EQ(ResultQuestionText(ResultQuestion::kNoWinner),
              "Winning Horse not entered!\n\rAll other positions will be set to 'Not Available'");
}

}  // namespace
}  // namespace tt::test
