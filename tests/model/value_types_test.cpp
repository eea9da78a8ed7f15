// Currency, checked integers, Flag, table bounds and time stamps.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "error_of.h"
#include "model/date_time.h"
#include "model/race_file.h"
#include "model/tables.h"
#include "support/fakes.h"

namespace tt {
namespace {

using test::ErrorOf;
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();

TEST(Currency, FromDoubleScalesInDoubleThenRoundsHalfToEven) {
    EXPECT_EQ(Currency::FromDouble(1234.5).Raw(), 12345000);
    EXPECT_EQ(Currency::FromDouble(0.00025).Raw(), 2);  // 2.5
    EXPECT_EQ(Currency::FromDouble(0.00035).Raw(), 4);  // 3.5
    EXPECT_EQ(Currency::FromDouble(2.00005).Raw(), 20000);
    EXPECT_EQ(Currency::FromDouble(-0.00025).Raw(), -2);
    EXPECT_EQ(Currency::FromDouble(-0.00035).Raw(), -4);
    // 0.00015 times 10,000 is 1.4999999999999998 in double: no decimal shortcut.
    EXPECT_EQ(Currency::FromDouble(0.00015).Raw(), 1);
    EXPECT_EQ(Currency::FromDouble(-922337203685477.5808).Raw(), kMin);
}

TEST(Currency, OverflowAndNonNumbersAreError6) {
    EXPECT_EQ(ErrorOf([] { Currency::FromDouble(922337203685477.5808); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { Currency::FromDouble(1e300); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { Currency::FromDouble(std::nan("")); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { Currency::FromDouble(-HUGE_VAL); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { Currency::FromInt(922337203685478); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { (void)(Currency::FromRaw(kMax) + Currency::FromRaw(1)); }),
              kErrOverflow);
    EXPECT_EQ(ErrorOf([] { (void)(Currency::FromRaw(kMin) - Currency::FromRaw(1)); }),
              kErrOverflow);
    EXPECT_EQ(ErrorOf([] { (void)-Currency::FromRaw(kMin); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { (void)(Currency::FromRaw(kMax / 2 + 1) * 2); }), kErrOverflow);
    EXPECT_EQ((Currency::FromInt(3) * 3).Raw(), 90000);
    EXPECT_EQ(Abs(Currency::FromRaw(-7)).Raw(), 7);
}

TEST(CheckedInt, SixteenAndThirtyTwoBitsOverflowInsteadOfWrapping) {
    Int16 a = 32767;
    EXPECT_EQ(ErrorOf([&] { (void)(a + 1); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([&] { ++a; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([&] { a += 1; }), kErrOverflow);
    EXPECT_EQ(a, 32767);
    Int16 b = -32768;
    EXPECT_EQ(ErrorOf([&] { (void)(b - 1); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([&] { (void)-b; }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { (void)(Int16(200) * Int16(200)); }), kErrOverflow);
    EXPECT_EQ(Int16(181) * Int16(181), 32761);
    EXPECT_EQ(ErrorOf([] { (void)(Int32(2147483647) + 1); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] {
                  Int16 n = Int32(40000);
                  (void)n;
              }),
              kErrOverflow);
    // Wide operands do not overflow the arithmetic itself.
    EXPECT_EQ(ErrorOf([] { (void)(Int32(1) + kMax); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { (void)(Int16(2) * (std::int64_t{1} << 62)); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] {
                  Int32 n = std::numeric_limits<std::uint64_t>::max();
                  (void)n;
              }),
              kErrOverflow);
}

TEST(CheckedInt, MixedWidthsWidenToTheLarger) {
    auto s = Int16(32767) + Int32(1);
    static_assert(std::is_same_v<decltype(s), Int32>);
    EXPECT_EQ(s, 32768);
    auto d = Int32(-40000) - Int16(5);
    static_assert(std::is_same_v<decltype(d), Int32>);
    EXPECT_EQ(d, -40005);
    EXPECT_EQ(Int16(300) * Int32(300), 90000);
}

TEST(CheckedInt, RoundingToIntegersGoesToEven) {
    EXPECT_EQ(RoundToInt16(2.5), 2);
    EXPECT_EQ(RoundToInt16(3.5), 4);
    EXPECT_EQ(RoundToInt16(-2.5), -2);
    EXPECT_EQ(RoundToInt16(32767.4), 32767);
    EXPECT_EQ(ErrorOf([] { RoundToInt16(32767.5); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { RoundToInt32(std::nan("")); }), kErrOverflow);
    EXPECT_EQ(RoundToInt32(-2147483648.4), -2147483647 - 1);
}

TEST(CheckedInt, ABettorPastTheLastOneOverflowsBeforeTheTableGrows) {
    test::FakeWorld world;
    RF.BettorCount = 32767;
    EXPECT_EQ(ErrorOf([] { RF.Bettor.ReDimPreserve(RF.BettorCount + 1); }), kErrOverflow);
    EXPECT_EQ(RF.Bettor.UBound(), 1);
}

TEST(FlagValue, StoresOnlyMinusOneAndZero) {
    EXPECT_EQ(Flag(true).Raw(), -1);
    EXPECT_EQ(Flag().Raw(), 0);
    Flag f = 5;  // any non-zero value is true
    EXPECT_EQ(f.Raw(), -1);
    EXPECT_TRUE(bool(f));
    EXPECT_EQ(Flag(false), Flag());
}

TEST(Tables, BadIndexIsError9AndOversizeIsError7) {
    Table1<std::int8_t> t;
    t.ReDim(1);
    EXPECT_EQ(ErrorOf([&] { t(2); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { t(-1); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { t.ReDim(-1); }), kErrSubscript);
    t(1) = 7;
    t.ReDimPreserve(3);
    EXPECT_EQ(t(1), 7);
    t.ReDim(16777215);  // exactly 16,777,216 elements
    EXPECT_EQ(t.UBound(), 16777215);
    t.ReDim(2);
    EXPECT_EQ(ErrorOf([&] { t.ReDim(16777216); }), kErrOutOfMemory);
    EXPECT_EQ(ErrorOf([&] { t.ReDimPreserve(kMax); }), kErrOutOfMemory);
    EXPECT_EQ(t.UBound(), 2);

    RaceTable<std::int8_t> r;
    EXPECT_EQ(ErrorOf([&] { r(0, 0); }), kErrSubscript);
    r.ReDim(762599);  // 22 races of 762,600 slots: 16,777,200 elements
    EXPECT_EQ(ErrorOf([&] { r.ReDim(762600); }), kErrOutOfMemory);
    r.ReDim(1);
    EXPECT_EQ(ErrorOf([&] { r(22, 0); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { r(21, 2); }), kErrSubscript);
    r(21, 1) = 4;
    r.ReDimPreserve(5);
    EXPECT_EQ(r(21, 1), 4);

    FixedArray<int, 1, 10> f;
    EXPECT_EQ(ErrorOf([&] { f(0); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { f(11); }), kErrSubscript);
    PayoutTable p;
    p(21, 11, 7).PayRatio = -3.0;
    EXPECT_EQ(ErrorOf([&] { p(22, 0, 0); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { p(0, 12, 0); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { p(0, 0, -1); }), kErrSubscript);
}

TEST(Tables, StorageFollowsUseAndSlotsStayPut) {
    // Racers: in pages, made as they are written; a slot never moves while the bound stays.
    RaceTable<std::int64_t> r;
    r.ReDim(100000);
    const RaceTable<std::int64_t>& read = r;
    EXPECT_EQ(read(5, 99999), 0);
    std::int64_t& first = r(3, 1);
    first = 11;
    for (std::int64_t n = 2; n <= 100000; ++n) r(3, n) = n;
    EXPECT_EQ(&first, &r(3, 1));
    EXPECT_EQ(first, 11);
    // A shrink empties what it drops, so growing again shows empty slots.
    r.ReDimPreserve(40);
    r.ReDimPreserve(100);
    EXPECT_EQ(r(3, 40), 40);
    EXPECT_EQ(r(3, 41), 0);
    RaceTable<std::int64_t> copy = r;
    copy(3, 1) = 12;
    EXPECT_EQ(r(3, 1), 11);

    // Bets and tickets: in zeroed memory, where a bound far above use takes no memory.
    const std::size_t before = ResidentBytes();
    ZeroedTable1<std::int64_t> t;
    t.ReDim(16777215);  // 128 MB of address space
    const ZeroedTable1<std::int64_t>& tickets = t;
    for (std::int64_t i = 1; i <= 16777215; i += 4096) EXPECT_EQ(tickets(i), 0);
    t(16777215) = 5;
    EXPECT_LT(ResidentBytes(), before + (8u << 20));
    EXPECT_EQ(t(16777215), 5);
    EXPECT_EQ(ErrorOf([&] { t(16777216); }), kErrSubscript);
    t.ReDimPreserve(10);
    t.ReDimPreserve(16777215);
    EXPECT_EQ(t(16777215), 0);

    ZeroedRaceTable<std::int64_t> bets;
    bets.ReDim(2);
    bets(21, 2) = 7;
    for (std::int64_t ub = 3; ub <= 5000; ++ub) bets.ReDimPreserve(ub);  // one at a time
    EXPECT_EQ(bets(21, 2), 7);
    EXPECT_EQ(bets(0, 5000), 0);
    EXPECT_EQ(ErrorOf([&] { bets(22, 0); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { bets.ReDim(762600); }), kErrOutOfMemory);
}

// The records kept in zeroed memory are empty when all their bytes are zero.
TEST(Tables, ZeroBytesAreAnEmptyBetAndTicket) {
    const BetRec bet{};
    const TicketRec ticket{};
    EXPECT_EQ(std::memcmp(&bet, std::string(sizeof bet, '\0').data(), sizeof bet), 0);
    EXPECT_EQ(std::memcmp(&ticket, std::string(sizeof ticket, '\0').data(), sizeof ticket), 0);
}

TEST(DateTimeStamp, ParsesWritesAndCountsDays) {
    auto t = DateTime::Parse("2026-05-02 14:30:05");
    ASSERT_TRUE(t);
    EXPECT_EQ(t->Text(), "2026-05-02 14:30:05");
    EXPECT_EQ(DateTime::Parse("2024-02-29")->Text(), "2024-02-29 00:00:00");
    for (const char* bad : {"2026-02-29", "2026-13-01", "2026-05-02 24:00:00", "2026-5-2",
                            "2026-05-02T14:30:05", "2026-05-02 14:30", "", "2026-05-02 14:30:05x"})
        EXPECT_FALSE(DateTime::Parse(bad)) << bad;
    EXPECT_DOUBLE_EQ(DateTime{}.Serial(), 0.0);
    EXPECT_DOUBLE_EQ(DateTime::Parse("1900-01-01")->Serial(), 2.0);
    EXPECT_DOUBLE_EQ(DateTime::Parse("2026-05-02 12:00:00")->Serial(), 46144.5);
    EXPECT_EQ(DateTime::Parse("1970-01-01 00:00:01")->SecondsSinceEpoch(), 1);
    EXPECT_EQ(DateTime::FromSecondsSinceEpoch(-1).Text(), "1969-12-31 23:59:59");
    EXPECT_LT(*DateTime::Parse("2026-05-02 14:30:05"), *DateTime::Parse("2026-05-02 14:30:06"));
}

}  // namespace
}  // namespace tt
