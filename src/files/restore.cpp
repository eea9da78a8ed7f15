#include "files/restore.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <utility>

#include "files/field_reader.h"
#include "files/safe_file.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

RecoveryReadStatus ReadRecoveryRows(std::string_view data, std::vector<RecoveryRow>& rows) {
    rows.clear();
    // A line of the log takes some 120 bytes or more.
    rows.reserve(data.size() / 120);
    FieldReader in(data);
    while (!in.AtEnd()) {
        if (in.Next() != kRecoveryTag) continue;
        if (in.Next() != kRecoveryVersion) return RecoveryReadStatus::kWrongVersion;
        RecoveryRow row;
        row.When = in.ReadDate();
        row.FileId = in.ReadInt16();
        // The rest of another card's record falls through as ignored fields.
        if (row.FileId != RF.FileId) continue;
        ReadRecoveryRest(in, row);
        rows.push_back(std::move(row));
    }
    return RecoveryReadStatus::kRead;
}

void WrongRecoveryVersion() {
    Beep();
    MsgBox(JoinParts({"Recovery File is not for this version of the software!",
                      "Recovery will be turned off!"}),
           Buttons::kOK, Icon::kExclamation);
    RF.RecoveryFlag = false;
}

bool AskRestoreQuestion() {
    return MsgBox(JoinParts({"All rows marked with a 'Yes' in the Include column, are about to be "
                             "restored.",
                             "Do you want to continue?"}),
                  Buttons::kOKCancel) == kOK;
}

namespace {

bool ValidRace(std::int64_t race) {
    return race >= 0 && race < RaceTable<BetRec>::kRaces;
}

const BetRec& ReadBet(std::int64_t race, std::int64_t slot) {
    return std::as_const(RF.Bet)(race, slot);
}

// A set of slot numbers whose lowest member is found in a few word steps: one bit a slot, and
// above it levels of one bit a non-empty word, up to a single word.
class SlotSet {
  public:
    // Room for slots 0 to last; members are kept.
    void Reserve(std::int64_t last) {
        if (last < capacity_) return;
        std::int64_t want = std::max<std::int64_t>(last + 1, capacity_ * 2);
        want = (want + 63) & ~std::int64_t{63};
        std::vector<std::uint64_t> bits =
            levels_.empty() ? std::vector<std::uint64_t>{} : std::move(levels_[0]);
        bits.resize(static_cast<std::size_t>(want / 64));
        levels_.clear();
        levels_.push_back(std::move(bits));
        while (levels_.back().size() > 1) {
            const std::vector<std::uint64_t>& below = levels_.back();
            std::vector<std::uint64_t> above((below.size() + 63) / 64);
            for (std::size_t w = 0; w < below.size(); ++w)
                if (below[w] != 0) above[w / 64] |= std::uint64_t{1} << (w % 64);
            levels_.push_back(std::move(above));
        }
        capacity_ = want;
    }

    void Insert(std::int64_t i) {
        auto k = static_cast<std::size_t>(i);
        for (auto& level : levels_) {
            std::uint64_t& word = level[k / 64];
            const bool wasEmpty = word == 0;
            word |= std::uint64_t{1} << (k % 64);
            if (!wasEmpty) return;
            k /= 64;
        }
    }

    void Erase(std::int64_t i) {
        auto k = static_cast<std::size_t>(i);
        for (auto& level : levels_) {
            std::uint64_t& word = level[k / 64];
            word &= ~(std::uint64_t{1} << (k % 64));
            if (word != 0) return;
            k /= 64;
        }
    }

    // The lowest member, or nothing.
    std::optional<std::int64_t> First() const {
        if (levels_.empty() || levels_.back()[0] == 0) return std::nullopt;
        std::size_t k = 0;
        for (auto level = levels_.rbegin(); level != levels_.rend(); ++level)
            k = k * 64 + static_cast<std::size_t>(std::countr_zero((*level)[k]));
        return static_cast<std::int64_t>(k);
    }

  private:
    std::vector<std::vector<std::uint64_t>> levels_;
    std::int64_t capacity_ = 0;
};

// The bet slots of the races being restored into, indexed once: for each race the free slots
// (type 0) among 1 to MaxBets, and for each ticket of a race the slots that carry its number.
// A slot that later passes to another ticket stays on its old ticket's list and is passed over
// there, since a wipe only touches slots that still carry the ticket.
class SlotIndex {
  public:
    SlotIndex() { heads_.reserve(1024); }

    // Every slot of the race with this ticket number: type 0 and ticket 0.
    void Wipe(std::int64_t race, std::int32_t ticket) {
        auto it = heads_.find(Key(race, ticket));
        if (it == heads_.end()) return;
        SlotSet& free = races_[static_cast<std::size_t>(race)].free;
        for (std::int32_t e = it->second; e >= 0; e = entries_[static_cast<std::size_t>(e)].next) {
            const std::int64_t slot = entries_[static_cast<std::size_t>(e)].slot;
            BetRec& bet = RF.Bet(race, slot);
            if (bet.TicketIdx != ticket) continue;
            bet.BetType = 0;
            bet.TicketIdx = 0;
            free.Insert(slot);
        }
        heads_.erase(it);
    }

    // The first free slot of the race among 1 to MaxBets.
    std::optional<std::int64_t> FirstFree(std::int64_t race) const {
        return races_[static_cast<std::size_t>(race)].free.First();
    }

    // A slot just filled from a record.
    void Filled(std::int64_t race, std::int64_t slot) {
        const BetRec& bet = ReadBet(race, slot);
        SlotSet& free = races_[static_cast<std::size_t>(race)].free;
        if (bet.BetType == 0)
            free.Insert(slot);
        else
            free.Erase(slot);
        Add(race, slot, bet);
    }

    // Indexes the race's slots 1 to MaxBets the first time the race is reached.
    void Reach(std::int64_t race) {
        Race& r = races_[static_cast<std::size_t>(race)];
        if (r.built) return;
        r.built = true;
        r.upTo = 0;
        Extend(race);
    }

    // MaxBets grew: the reached races take in their new slots.
    void Grew() {
        for (std::size_t race = 0; race < races_.size(); ++race)
            if (races_[race].built) Extend(static_cast<std::int64_t>(race));
    }

  private:
    struct Race {
        bool built = false;
        std::int64_t upTo = 0;  // slots 1 to upTo are indexed
        SlotSet free;
    };
    struct Entry {
        std::int32_t slot;
        std::int32_t next;
    };

    static std::uint64_t Key(std::int64_t race, std::int32_t ticket) {
        return (static_cast<std::uint64_t>(race) << 32) | static_cast<std::uint32_t>(ticket);
    }

    void Extend(std::int64_t race) {
        Race& r = races_[static_cast<std::size_t>(race)];
        const std::int64_t last = RF.MaxBets;
        r.free.Reserve(last);
        for (std::int64_t slot = r.upTo + 1; slot <= last; ++slot) {
            const BetRec& bet = ReadBet(race, slot);
            if (bet.BetType == 0) r.free.Insert(slot);
            Add(race, slot, bet);
        }
        r.upTo = std::max(r.upTo, last);
    }

    void Add(std::int64_t race, std::int64_t slot, const BetRec& bet) {
        // A free slot without a ticket is left alone by every wipe.
        if (bet.TicketIdx == 0 && bet.BetType == 0) return;
        auto [it, fresh] = heads_.try_emplace(Key(race, bet.TicketIdx), -1);
        entries_.push_back({static_cast<std::int32_t>(slot), it->second});
        it->second = static_cast<std::int32_t>(entries_.size() - 1);
    }

    std::array<Race, RaceTable<BetRec>::kRaces> races_;
    std::unordered_map<std::uint64_t, std::int32_t> heads_;
    std::vector<Entry> entries_;
};

// MaxBets := to and the bet table grown to (0 to 21, 0 to to + 1), in that order.
void GrowBets(SlotIndex& index, Int32 to) {
    RF.MaxBets = to;
    RF.Bet.ReDimPreserve(RF.MaxBets + 1);
    index.Grew();
}

// The bets of a ticket whose sum cannot be made: summed as one pass over its race would, so
// that the error comes where it does there.
void SumTicketSlowly(std::int64_t t) {
    TicketRec& tk = RF.Ticket(t);
    for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
        const BetRec& b = ReadBet(tk.TicketRace, n);
        if (b.TicketIdx != t || b.BetType == 0) continue;
        tk.TicketCost += b.BetCost;
        tk.Winnings += b.BetWinnings;
        if (n < tk.FirstBet) tk.FirstBet = static_cast<std::int32_t>(n);
        if (n > tk.LastBet) tk.LastBet = static_cast<std::int32_t>(n);
    }
}

// Step 5: every ticket 1 to TicketCount summed again from the bets of its race, in one pass
// over the bets. A ticket that cannot be summed (no such slot, no such race, an overflow)
// raises its error after the tickets before it are done, as ticket by ticket would.
void RebuildTickets() {
    const std::int64_t count = RF.TicketCount;
    if (count < 1) return;
    const std::int64_t reach = std::max<std::int64_t>(std::min(count, RF.Ticket.UBound()), 0);
    const bool anyBets = RF.MaxBets >= 1;

    struct Sum {
        std::int64_t cost = 0, winnings = 0;
        std::int32_t first = 999'999'999, last = 0;
        std::int16_t race = -1;
        bool overflow = false;
    };
    std::vector<Sum> sums(static_cast<std::size_t>(reach + 1));
    std::int64_t bad = reach < count ? reach + 1 : count + 1;
    std::array<bool, RaceTable<BetRec>::kRaces> races{};
    for (std::int64_t t = 1; t <= reach; ++t) {
        const std::int64_t race = std::as_const(RF.Ticket)(t).TicketRace;
        if (ValidRace(race)) {
            sums[static_cast<std::size_t>(t)].race = static_cast<std::int16_t>(race);
            races[static_cast<std::size_t>(race)] = true;
        } else if (anyBets && t < bad) {
            bad = t;
        }
    }
    for (std::size_t race = 0; race < races.size(); ++race) {
        if (!races[race]) continue;
        const auto r = static_cast<std::int64_t>(race);
        for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
            const BetRec& b = ReadBet(r, n);
            if (b.BetType == 0 || b.TicketIdx < 1 || b.TicketIdx > reach) continue;
            Sum& s = sums[static_cast<std::size_t>(b.TicketIdx.Value())];
            if (s.race != r) continue;
            s.overflow |= __builtin_add_overflow(s.cost, b.BetCost.Raw(), &s.cost);
            s.overflow |= __builtin_add_overflow(s.winnings, b.BetWinnings.Raw(), &s.winnings);
            s.first = std::min(s.first, static_cast<std::int32_t>(n));
            s.last = std::max(s.last, static_cast<std::int32_t>(n));
        }
    }
    for (std::int64_t t = 1; t < bad; ++t)
        if (sums[static_cast<std::size_t>(t)].overflow) {
            bad = t;
            break;
        }

    for (std::int64_t t = 1; t < bad; ++t) {
        const Sum& s = sums[static_cast<std::size_t>(t)];
        TicketRec& tk = RF.Ticket(t);
        tk.TicketCost = Currency::FromRaw(s.cost);
        tk.Winnings = Currency::FromRaw(s.winnings);
        tk.FirstBet = s.first;
        tk.LastBet = s.last;
    }
    if (bad > count) return;
    TicketRec& tk = RF.Ticket(bad);
    tk.TicketCost = Currency();
    tk.Winnings = Currency();
    tk.FirstBet = 999'999'999;
    tk.LastBet = 0;
    SumTicketSlowly(bad);
}

}  // namespace

void RestoreTickets(const std::vector<RecoveryRow>& rows) {
    SlotIndex index;
    std::optional<Int32> lastTicket;
    DateTime lastDate;
    for (const RecoveryRow& row : rows) {
        if (!row.Include || row.Action == "Canc") continue;
        const Int32 t = row.TicketNbr;
        const std::int64_t race = row.Race;
        G.CurrentTicket = t;

        // A new version of the ticket wipes the bets of the one before in the row's race.
        if (!lastTicket || *lastTicket != t || row.When != lastDate) {
            if (ValidRace(race)) {
                index.Reach(race);
                index.Wipe(race, t);
            } else if (RF.MaxBets >= 1) {
                Raise(kErrSubscript);
            }
            lastTicket = t;
            lastDate = row.When;
        }

        if (RF.TicketCount < t) {
            RF.TicketCount = t;
            RF.Ticket.ReDimPreserve(t + 1);
        }

        // A bettor the card does not have; the count grows by one however large the number.
        if (row.Bettor > RF.BettorCount) {
            RF.Bettor.ReDimPreserve(row.Bettor + 1);
            RF.BettorCount += 1;
            RF.Bettor(row.Bettor).BettorName = "Restore Bettor " + Str(row.Bettor.Value());
        }

        TicketRec& tk = RF.Ticket(t);
        tk.TicketCost = row.BetAmt;
        tk.TicketBettor = row.Bettor;
        tk.TicketRace = row.Race;
        tk.TicketNbr = t;
        tk.Collected = row.Collected;
        tk.Distributed = row.Distributed;

        // The bet's own slot, unless it is gone or another ticket's live bet stands there.
        Int32 s = row.OrigBetIdx;
        if (s != 0 && s > RF.MaxBets) GrowBets(index, s);
        bool fresh = s == 0;
        if (!fresh) {
            const BetRec& there = ReadBet(race, s);
            fresh = there.TicketIdx != t && there.BetType != 0;
        }
        if (fresh) {
            std::optional<std::int64_t> free;
            if (ValidRace(race)) {
                index.Reach(race);
                free = index.FirstFree(race);
            } else if (RF.MaxBets >= 1) {
                Raise(kErrSubscript);
            }
            if (free) {
                s = static_cast<std::int32_t>(*free);
            } else {
                GrowBets(index, RF.MaxBets + 1);
                s = RF.MaxBets;
            }
        }

        // An occupied slot can only be this ticket's own and keeps what it has.
        BetRec& bet = RF.Bet(race, s);
        if (bet.BetType == 0) {
            bet.BetAmt = row.BetAmt;
            bet.Boxed = row.Boxed;
            bet.BetCost = row.BetCost;
            bet.TicketIdx = t;
            bet.BetType = row.BetType;
            for (int k = 1; k <= 6; ++k) bet.Pick(k) = row.Pick(k);
            index.Reach(race);
            index.Filled(race, s);
        }

        if (s < tk.FirstBet || tk.FirstBet == 0) tk.FirstBet = s;
        if (s > tk.LastBet) tk.LastBet = s;
    }
    RebuildTickets();
}

bool RewriteRecoveryLog(std::string_view text) {
    if (Files().Kind(RF.RecoveryFile) != FileKind::kMissing) {
        const std::string old = ReadRecoveryText();
        try {
            CheckRecoveryText(old);
        } catch (const AppError& err) {
            RecoveryFailure("processing", err.Number(), err.Text(), err.Source());
            return false;
        }
    }
    ReplaceFileContents(RF.RecoveryFile, text);
    return true;
}

RestoreStatus RestoreMarkedRows(const std::vector<RecoveryRow>& rows,
                                const RestoreConfirm& confirm) {
    if (!confirm()) return RestoreStatus::kCancelled;
    Shell().SetBusy(true);
    try {
        RestoreTickets(rows);
    } catch (...) {
        Shell().SetBusy(false);
        throw;
    }
    G.FileChanged = true;
    Shell().SetBusy(false);
    Beep();
    MsgBox("Restore process completed successfully.");
    return RestoreStatus::kRestored;
}

}  // namespace tt
