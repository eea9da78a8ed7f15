// Finishing a transaction of three tickets on the large card (200,000 bets): a new ticket of
// three bets, an edit that adds a bet, and a cash of a settled ticket, each in its own race.
// The whole finish, and the writing of the tickets alone against the word-for-word writing that
// looks at every slot of the race for each ticket and each bet.
//
// Argument: 0 the card as generated (a bet in 250 taken back, so free slots come early in each
// race); 1 every slot in use, so that the first free slot is past the race's last bet.

#include <benchmark/benchmark.h>

#include "betting/betting_state.h"
#include "betting/finish_transaction.h"
#include "large_card.h"
#include "literal_writer.h"
#include "model/race_file.h"

namespace {

using namespace tt;

void MakeCard(bool full) {
    ResetProcessState();
    ResetBettingState();
    bench::MakeLargeCard();
    RF.SaveAfter = 0;
    RF.RecoveryFlag = false;
    RF.PrintBets = true;
    if (!full) return;
    for (int r = 1; r <= kMaxRace; ++r)
        for (std::int64_t s = 1; s <= RF.Race(r).BetCount; ++s)
            if (RF.Bet(r, s).BetType == 0) RF.Bet(r, s).BetType = 1;
}

TranTicket& Append() {
    Betting.TranTicketCount = Betting.TranTicketCount + 1;
    Betting.TranTickets.ReDimPreserve(Betting.TranTicketCount);
    return Betting.TranTickets(Betting.TranTicketCount);
}

void AddBet(std::int32_t ticket, int race, int type, std::int16_t pick) {
    Betting.TranBetCount = Betting.TranBetCount + 1;
    Betting.TranBets.ReDimPreserve(Betting.TranBetCount);
    TempBet& b = Betting.TranBets(Betting.TranBetCount);
    b.BetAmt = b.BetCost = Currency::FromInt(2);
    b.BetType = type;
    b.Pick(1) = pick;
    b.TicketNbr = ticket;
    b.Race = race;
}

// An existing ticket as the ticket windows bring it in.
TranTicket& BringIn(std::int32_t number, const char* action) {
    const TicketRec& k = RF.Ticket(number);
    TranTicket& t = Append();
    t.TicketNbr = number;
    t.Race = k.TicketRace;
    t.Bettor = k.TicketBettor;
    t.OldCost = t.NewAmtBet = k.TicketCost;
    t.OldCollected = t.NewCollected = k.Collected;
    t.OldDistributed = t.NewDistributed = k.Distributed;
    t.Winnings = k.Winnings;
    t.Action = action;
    for (std::int64_t s = k.FirstBet; s >= 1 && s <= k.LastBet; ++s) {
        const BetRec& bet = RF.Bet(k.TicketRace, s);
        if (bet.TicketIdx != number) continue;
        Betting.TranBetCount = Betting.TranBetCount + 1;
        Betting.TranBets.ReDimPreserve(Betting.TranBetCount);
        TempBet& b = Betting.TranBets(Betting.TranBetCount);
        b.BetAmt = bet.BetAmt;
        b.BetType = bet.BetType;
        b.Boxed = bool(bet.Boxed);
        b.BetCost = bet.BetCost;
        for (int p = 1; p <= 6; ++p) b.Pick(p) = bet.Pick(p);
        b.TicketNbr = number;
        b.Race = k.TicketRace;
        b.OrigBetIdx = s;
    }
    return t;
}

// The next ticket after `from` in the race, wrapping round.
std::int32_t NextTicketOf(int race, std::int32_t& from) {
    for (std::int32_t i = 0; i < RF.TicketCount; ++i) {
        from = from % RF.TicketCount + 1;
        if (RF.Ticket(from).TicketRace == race && RF.Ticket(from).TicketBettor != 0) return from;
    }
    return 0;
}

// Three tickets: new in race 15, an edit in race 12 that adds a bet, a cash in race 5.
void MakeTransaction(std::int32_t& editFrom, std::int32_t& cashFrom) {
    ClearTransactionLists();
    Betting.NewTicketCount = 1;
    const std::int32_t number = RF.TicketCount + 1;
    TranTicket& t = Append();
    t.Action = kNewTicket;
    t.TicketNbr = number;
    t.Race = 15;
    t.Bettor = 17;
    for (std::int16_t p = 1; p <= 3; ++p) AddBet(number, 15, p, p);
    Betting.TranTickets(1).NewAmtBet = Betting.TranTickets(1).NewCollected = Currency::FromInt(6);

    const std::int32_t edited = NextTicketOf(12, editFrom);
    TranTicket& e = BringIn(edited, kEditTicket);
    AddBet(edited, 12, 2, 5);
    e.NewAmtBet = e.NewCollected = e.OldCost + Currency::FromInt(2);
    e.NewDistributed = e.Winnings;

    TranTicket& c = BringIn(NextTicketOf(5, cashFrom), kCashTicket);
    c.NewDistributed = c.Winnings;
    c.NewCollected = c.OldCost;
}

void BM_FinishTransaction(benchmark::State& state) {
    MakeCard(state.range(0) != 0);
    std::int32_t editFrom = 0, cashFrom = 0;
    FinishChoices choices;
    choices.countForSave = nullptr;
    for (auto _ : state) {
        state.PauseTiming();
        MakeTransaction(editFrom, cashFrom);
        const Currency due = TransactionTotal();
        state.ResumeTiming();
        FinishOutcome done = FinishTransaction(due, due, choices);
        benchmark::DoNotOptimize(done);
    }
    state.counters["max_bets"] = static_cast<double>(RF.MaxBets);
}

template <void (*Write)()>
void BM_WriteTickets(benchmark::State& state) {
    MakeCard(state.range(0) != 0);
    std::int32_t editFrom = 0, cashFrom = 0;
    for (auto _ : state) {
        state.PauseTiming();
        MakeTransaction(editFrom, cashFrom);
        SettleTicketsInFull();
        state.ResumeTiming();
        Write();
    }
}

BENCHMARK(BM_FinishTransaction)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WriteTickets<WriteTransactionTickets>)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WriteTickets<test::WriteTransactionTicketsLiterally>)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
