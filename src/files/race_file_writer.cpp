#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "files/recovery_file.h"
#include "files/safe_file.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

// The bytes of the file as they are built: a buffer that grows without clearing what it adds,
// since every byte is written once. A race card of 200,000 bets is about 17 MB.
class Buffer {
  public:
    Buffer() = default;
    ~Buffer() { std::free(data_); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    std::string_view View() const { return {data_, len_}; }
    char* Begin() const { return data_; }
    char* Limit() const { return data_ + cap_; }
    void SetEnd(char* end) { len_ = static_cast<std::size_t>(end - data_); }
    // Makes room for at least n bytes after the first len ones.
    void Grow(std::size_t n) {
        std::size_t cap = std::max({cap_ * 2, len_ + n, std::size_t{4096}});
        void* p = std::realloc(data_, cap);
        if (!p) throw std::bad_alloc();
        data_ = static_cast<char*>(p);
        cap_ = cap;
    }

  private:
    char* data_ = nullptr;
    std::size_t len_ = 0;
    std::size_t cap_ = 0;
};

constexpr char kDigitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

inline char* PutDigits(char* d, std::uint64_t v) {
    if (v < 10) {
        *d = static_cast<char>('0' + v);
        return d + 1;
    }
    if (v < 100) {
        std::memcpy(d, kDigitPairs + 2 * v, 2);
        return d + 2;
    }
    return std::to_chars(d, d + 20, v).ptr;
}

// The fields, each followed by its comma, written at d; they return the end. The caller makes
// room first: at most kMaxNumber bytes for a number.
constexpr std::size_t kMaxNumber = 24;

inline char* PutInt(char* d, std::int64_t v) {
    std::uint64_t a = static_cast<std::uint64_t>(v);
    if (v < 0) {
        *d++ = '-';
        a = ~a + 1;
    }
    d = PutDigits(d, a);
    *d = ',';
    return d + 1;
}

// Up to four decimals, no trailing zeros, no point when the amount is whole.
inline char* PutMoney(char* d, Currency c) {
    const std::int64_t raw = c.Raw();
    if (raw == 0) {  // most winnings and parts of a bet
        d[0] = '0';
        d[1] = ',';
        return d + 2;
    }
    std::uint64_t a = static_cast<std::uint64_t>(raw);
    if (raw < 0) {
        *d++ = '-';
        a = ~a + 1;
    }
    d = PutDigits(d, a / 10000);
    if (unsigned frac = static_cast<unsigned>(a % 10000)) {
        *d = '.';
        std::memcpy(d + 1, kDigitPairs + 2 * (frac / 100), 2);
        std::memcpy(d + 3, kDigitPairs + 2 * (frac % 100), 2);
        // Without the trailing zeros: ".5", ".25", ".125", ".0625".
        d += frac % 100 ? (frac % 10 ? 5 : 4) : (frac % 1000 ? 3 : 2);
    }
    *d = ',';
    return d + 1;
}

inline char* PutFlag(char* d, Flag f) {
    if (f) {
        std::memcpy(d, "#TRUE#,", 7);
        return d + 7;
    }
    std::memcpy(d, "#FALSE#,", 8);
    return d + 8;
}

// The line end in place of the comma after the last field, or after a trailing comma.
inline char* PutEnd(char* d, bool trailingComma) {
    if (!trailingComma) --d;
    d[0] = '\r';
    d[1] = '\n';
    return d + 2;
}

// Writes the fields of the lines. Every field is followed by its comma; the line end takes
// the place of the last one, except where the format keeps a trailing comma. What was written
// is handed back to the buffer at every line end and when the writer goes, also on an error.
class LineWriter {
  public:
    explicit LineWriter(Buffer& out)
        : out_(out), cur_(out.Begin() + out.View().size()), limit_(out.Limit()) {}
    ~LineWriter() { out_.SetEnd(cur_); }
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void Reserve(std::size_t n) { Room(n); }
    // A place for n bytes, to be written in one go and handed back with Done.
    char* Take(std::size_t n) {
        Room(n);
        return cur_;
    }
    void Done(char* end) { cur_ = end; }

    LineWriter& Text(std::string_view s) {
        Room(s.size() + 3);
        char* d = cur_;
        *d++ = '"';
        if (!s.empty()) std::memcpy(d, s.data(), s.size());
        d += s.size();
        *d++ = '"';
        *d++ = ',';
        cur_ = d;
        return *this;
    }
    LineWriter& Int(std::int64_t v) {
        Room(kMaxNumber);
        cur_ = PutInt(cur_, v);
        return *this;
    }
    LineWriter& Money(Currency c) {
        Room(kMaxNumber);
        cur_ = PutMoney(cur_, c);
        return *this;
    }
    LineWriter& Single(float f) {
        scratch_.clear();
        AppendFileNumber(scratch_, f);
        return Raw(scratch_);
    }
    LineWriter& Double(double v) {
        scratch_.clear();
        AppendFileNumber(scratch_, v);
        return Raw(scratch_);
    }
    LineWriter& Bool(Flag f) {
        Room(8);
        cur_ = PutFlag(cur_, f);
        return *this;
    }
    LineWriter& Date(const DateTime& d) { return Raw("#" + d.Text() + "#"); }
    // Ends the line; a trailing comma stands before the line end where the format has one.
    void End(bool trailingComma = false) {
        Room(2);
        cur_ = PutEnd(cur_, trailingComma);
    }

  private:
    void Room(std::size_t n) {
        if (static_cast<std::size_t>(limit_ - cur_) >= n) return;
        out_.SetEnd(cur_);
        out_.Grow(n);
        cur_ = out_.Begin() + out_.View().size();
        limit_ = out_.Limit();
    }
    LineWriter& Raw(std::string_view s) {
        Room(s.size() + 1);
        std::memcpy(cur_, s.data(), s.size());
        cur_ += s.size();
        *cur_++ = ',';
        return *this;
    }
    Buffer& out_;
    char* cur_;
    char* limit_;
    std::string scratch_;
};

// The two lines of a bet with the copy of its ticket: 26 numbers, a flag and the tag.
constexpr std::size_t kMaxBetLines = 26 * kMaxNumber + 8 + 16;

char* PutBet(char* d, int race, const BetRec& bet, const TicketRec& t) {
    std::memcpy(d, "\"%Bet   `\",", 11);
    d += 11;
    d = PutInt(d, race);
    d = PutMoney(d, bet.BetAmt);
    d = PutInt(d, bet.BetType);
    d = PutFlag(d, bet.Boxed);
    d = PutMoney(d, bet.BetCost);
    d = PutMoney(d, bet.BetWinnings);
    d = PutMoney(d, bet.WinPart);
    d = PutMoney(d, bet.PlacePart);
    d = PutMoney(d, bet.ShowPart);
    d = PutInt(d, bet.CorrectPicks);
    d = PutInt(d, bet.WinningCombos);
    d = PutEnd(d, false);
    for (int k = 1; k <= 6; ++k) d = PutInt(d, bet.Pick(k));
    d = PutInt(d, bet.TicketIdx);
    d = PutInt(d, t.TicketNbr);
    d = PutInt(d, t.TicketRace);
    d = PutMoney(d, t.TicketCost);
    d = PutMoney(d, t.Collected);
    d = PutMoney(d, t.Distributed);
    d = PutMoney(d, t.Winnings);
    return PutEnd(d, false);
}

// How many bets ahead the writer fetches the bet and ticket it will write.
constexpr std::size_t kPrefetch = 12;

void Clean(std::string& s) {
    if (s.find('"') != std::string::npos) s = CleanText(std::move(s));
}

void BuildRaceFile(Buffer& buffer, const DateTime& saved);

}  // namespace

std::string CleanText(std::string text) {
    return ReplaceAll(std::move(text), "\"", "'");
}

std::string ReplaceAll(std::string text, std::string_view search, std::string_view replacement) {
    if (search.empty()) return text;
    const std::size_t n = std::min(search.size(), replacement.size());
    std::size_t from = 0;
    for (std::size_t pos; (pos = text.find(search, from)) != std::string::npos;) {
        text.replace(pos, n, replacement.substr(0, n));
        // An occurrence can only reappear overlapping the overwritten place. One that still
        // stands exactly there would never go away: go on behind it.
        bool stillThere = text.compare(pos, search.size(), search) == 0;
        from = stillThere ? pos + 1 : (pos >= search.size() ? pos - search.size() + 1 : 0);
    }
    return text;
}

std::string BuildRaceFileText(const DateTime& saved) {
    Buffer buffer;
    BuildRaceFile(buffer, saved);
    return std::string(buffer.View());
}

namespace {

void BuildRaceFile(Buffer& buffer, const DateTime& saved) {
    LineWriter w(buffer);

    w.Text("%Header`").Text(kProduct).Text(kFormatVersion).Date(saved).End();

    Clean(RF.FileName);
    Clean(RF.RaceType);
    w.Text("%Parms `")
        .Int(RF.FileId)
        .Text(RF.FileName)
        .Text(RF.RaceType)
        .Int(RF.DefaultRace)
        .Int(RF.SaveAfter)
        .Bool(RF.PrintBets)
        .Int(RF.MaxTransInPrinter)
        .Bool(RF.UseBetNbr)
        .Bool(RF.UseProgramNbr)
        .Bool(RF.UsePostPosition)
        .Text(RF.RacerSort)
        .Int(RF.MaxRaces)
        .Int(RF.TicketCount)
        .Bool(RF.DefaultToDummy)
        .Text(RF.RecoveryFile)
        .Bool(RF.RecoveryFlag)
        .Bool(RF.ClearRecovery)
        .Int(RF.ClearDays)
        .Int(RF.ReportFontSize)
        .Int(RF.TicketFontSize)
        .Bool(RF.CollectZero)
        .End();

    for (int r = 0; r <= kMaxRace; ++r) {
        RaceRec& race = RF.Race(r);
        Clean(race.RaceName);
        w.Text("%Race  `")
            .Int(r)
            .Text(race.RaceName)
            .Money(race.MinBet)
            .Money(race.MinPayout)
            .Money(race.BetIncr)
            .Int(race.RoundTo)
            .Money(race.HoldbackAmt)
            .Single(race.HoldbackPct);
        for (int t = 1; t <= kBetTypes; ++t) w.Bool(race.BetType(t)).Int(race.CorrectPaid(t));
        for (int k = 0; k <= 5; ++k) w.Int(race.Result(k));
        w.End(true);
        for (int q = 1; q <= 5; ++q) w.Money(race.QuickBet(q));
        w.End(true);
        for (int n = 1; n <= RF.MaxRacers; ++n) {
            if (std::as_const(RF).Racer(r, n).BetNbr == 0) continue;
            RacerRec& racer = RF.Racer(r, n);
            Clean(racer.RacerName);
            Clean(racer.ProgramNbr);
            Clean(racer.PostPosition);
            w.Text("%Racer `")
                .Int(racer.BetNbr)
                .Text(racer.PostPosition)
                .Text(racer.ProgramNbr)
                .Text(racer.RacerName)
                .Double(racer.Odds)
                .Bool(racer.Scratched)
                .End();
        }
    }

    // Each bettor's bets, race by race and slot by slot. The slots are grouped by the bettor of
    // their ticket in two passes rather than scanned once for every bettor. Bets and tickets
    // are only read: slots a race never stored stay unstored.
    const RaceFile& card = RF;
    const int bettors = RF.BettorCount;
    const std::int64_t slots = RF.MaxBets;
    struct Entry {
        const BetRec* bet;
        const TicketRec* ticket;
        int race;
    };
    std::vector<std::int64_t> start(static_cast<std::size_t>(bettors) + 2, 0);
    std::vector<Entry> order;
    if (bettors >= 1 && slots >= 1) {
        std::vector<std::int16_t> owner(static_cast<std::size_t>(kMaxRace * slots));
        for (int r = 1; r <= kMaxRace; ++r)
            for (std::int64_t n = 1; n <= slots; ++n) {
                int b = card.Ticket(card.Bet(r, n).TicketIdx).TicketBettor;
                owner[static_cast<std::size_t>((r - 1) * slots + n - 1)] =
                    static_cast<std::int16_t>(b);
                if (b >= 1 && b <= bettors) ++start[static_cast<std::size_t>(b) + 1];
            }
        for (int b = 1; b <= bettors; ++b)
            start[static_cast<std::size_t>(b) + 1] += start[static_cast<std::size_t>(b)];
        order.resize(static_cast<std::size_t>(start[static_cast<std::size_t>(bettors) + 1]));
        std::vector<std::int64_t> fill(start.begin(), start.end());
        for (int r = 1; r <= kMaxRace; ++r)
            for (std::int64_t n = 1; n <= slots; ++n) {
                int b = owner[static_cast<std::size_t>((r - 1) * slots + n - 1)];
                if (b >= 1 && b <= bettors) {
                    const BetRec& bet = card.Bet(r, n);
                    order[static_cast<std::size_t>(fill[static_cast<std::size_t>(b)]++)] = {
                        &bet, &card.Ticket(bet.TicketIdx), r};
                }
            }
    }
    // Room for the bets and the payouts in one go; a bet takes about 90 bytes.
    w.Reserve(order.size() * 128 + static_cast<std::size_t>(bettors) * 128 + 20 * 4096);
    for (int b = 1; b <= bettors; ++b) {
        BettorRec& bettor = RF.Bettor(b);
        Clean(bettor.BettorName);
        Clean(bettor.BettorInfo);
        Clean(bettor.BettorEmail);
        Clean(bettor.BettorPhone);
        w.Text("%Bettor`")
            .Text(bettor.BettorName)
            .Text(bettor.BettorInfo)
            .Text(bettor.BettorEmail)
            .Text(bettor.BettorPhone)
            .End();
        const auto last = static_cast<std::size_t>(start[static_cast<std::size_t>(b) + 1]);
        for (auto i = static_cast<std::size_t>(start[static_cast<std::size_t>(b)]); i < last; ++i) {
            // The bets of a bettor lie all over the table: fetch the ones a few steps ahead
            // while this one is written.
            if (i + kPrefetch < order.size()) {
                const Entry& ahead = order[i + kPrefetch];
                const char* bet = reinterpret_cast<const char*>(ahead.bet);
                __builtin_prefetch(bet);
                __builtin_prefetch(bet + sizeof(BetRec) - 1);
                __builtin_prefetch(ahead.ticket);
            }
            const int r = order[i].race;
            const BetRec& bet = *order[i].bet;
            const TicketRec& t = *order[i].ticket;
            w.Done(PutBet(w.Take(kMaxBetLines), r, bet, t));
        }
    }

    for (int r = 1; r <= kMaxRace; ++r) {
        w.Text("%Payout`").Int(r);
        for (int t = 1; t <= kBetTypes; ++t)
            for (int p = 1; p <= 6; ++p) {
                const PayoutRec& pay = card.Payout(r, t, p);
                w.Double(pay.PayRatio).Money(pay.WinningAmt).Money(pay.PoolAmt);
            }
        w.End(true);
    }
}

}  // namespace

void WriteRaceFile() {
    G.CancelFlag = false;
    Shell().SetBusy(true);
    try {
        // The whole text first: a card that cannot be written leaves the file as it was.
        Buffer buffer;
        BuildRaceFile(buffer, Clock().Now());
        FileReplacement file(G.FilePath);
        file.Stage(buffer.View());
        Shell().SetBusy(false);
        const bool backedUp = MakeBackup(file, G.FilePath);
        if (G.CancelFlag) return;
        Shell().SetBusy(true);
        file.Commit();
        if (!backedUp) DropBackup(G.FilePath);
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        Shell().SetBusy(false);
        // The number of a cancelled dialog is never reported.
        if (err.Number() == kErrCancel) return;
        Beep();
        MsgBox(JoinParts({"Error saving file", err.Text()}));
        G.CancelFlag = true;
        return;
    }
    AddMRU(G.FilePath);
    if (RF.RecoveryFlag && RF.ClearRecovery) ClearOldRecovery(RF.ClearDays);
    G.FileChanged = false;
    G.TransSinceSave = 0;
    Shell().SetBusy(false);
}

}  // namespace tt
