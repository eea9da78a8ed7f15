// Reading typed numbers, number text, the money patterns, RoundPlaces and the number fields
// of the race file.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "error_of.h"
#include "model/checked_int.h"
#include "model/common.h"
#include "model/number_text.h"

namespace tt {
namespace {

using test::ErrorOf;

TEST(Val, ReadsTheLeadingNumberOnly) {
    EXPECT_EQ(Val("1,000.00"), 1.0);
    EXPECT_EQ(Val(" -2.5x"), -2.5);
    EXPECT_EQ(Val("."), 0.0);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("    "), 0.0);
    EXPECT_EQ(Val("1E5"), 1.0);
    EXPECT_EQ(Val("12 34"), 12.0);
    EXPECT_EQ(Val("+7"), 7.0);
    EXPECT_EQ(Val("-.5"), -0.5);
    EXPECT_EQ(Val("5."), 5.0);
    EXPECT_EQ(Val("- 5"), 0.0);
    EXPECT_EQ(Val("abc"), 0.0);
    // Too small to hold reads as 0; too large is an overflow.
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ErrorOf([] { Val("1" + std::string(400, '0')); }), kErrOverflow);
}

TEST(NumberText, KeepsTheSignBlankAndFifteenDigits) {
    EXPECT_EQ(Str(12), " 12");
    EXPECT_EQ(Str(-3), "-3");
    EXPECT_EQ(Str(Int16(7)), " 7");
    EXPECT_EQ(Str(Int32(-40000)), "-40000");
    EXPECT_EQ(Str(0.5), " 0.5");
    EXPECT_EQ(Str(-0.5), "-0.5");
    EXPECT_EQ(Str(0.0), " 0");
    EXPECT_EQ(Str(-0.0), " 0");
    EXPECT_EQ(Str(2.0), " 2");
    EXPECT_EQ(Str(1.0 / 3.0), " 0.333333333333333");
    EXPECT_EQ(Str(0.1 + 0.2), " 0.3");
    EXPECT_EQ(Str(123456789012345.0), " 123456789012345");
    EXPECT_EQ(Str(1e15), " 1E+15");
    EXPECT_EQ(Str(-2.5e-7), "-2.5E-07");
    EXPECT_EQ(NumText(12), "12");
    EXPECT_EQ(NumText(0.25), "0.25");
    EXPECT_EQ(NumText(-7.0), "-7");
}

TEST(MoneyText, PatternsWithoutAForcedDigit) {
    EXPECT_EQ(MoneyText(Currency()), ".00");
    EXPECT_EQ(MoneyText(0.0), ".00");
    EXPECT_EQ(DollarText(0.0), "$.00");
    EXPECT_EQ(DollarText(0.75), "$.75");
    EXPECT_EQ(MoneyText(1234.5), "1,234.50");
    EXPECT_EQ(MoneyText(0.5), ".50");
    EXPECT_EQ(MoneyText(Currency::FromInt(1000000)), "1,000,000.00");
    EXPECT_EQ(DollarText(-1234567.891), "-$1,234,567.89");
    EXPECT_EQ(MoneyText(1e20), "100,000,000,000,000,000,000.00");
}

TEST(MoneyText, HalvesAwayFromZeroAfterFifteenDigits) {
    EXPECT_EQ(MoneyText(2.675), "2.68");  // 2.67499999999999982 in binary
    EXPECT_EQ(MoneyText(1.005), "1.01");
    EXPECT_EQ(MoneyText(0.125), ".13");
    EXPECT_EQ(MoneyText(-0.125), "-.13");
    EXPECT_EQ(MoneyText(123456789.125), "123,456,789.13");
    EXPECT_EQ(MoneyText(12345678.045), "12,345,678.05");  // 12345678.0449999999 in binary
    EXPECT_EQ(MoneyText(-0.004), ".00");
    EXPECT_EQ(DollarText(-0.005), "-$.01");
    EXPECT_EQ(ErrorOf([] { MoneyText(std::nan("")); }), kErrOverflow);
}

TEST(MoneyText, CurrencyIsTakenAtItsExactValue) {
    EXPECT_EQ(MoneyText(Currency::FromRaw(50)), ".01");
    EXPECT_EQ(MoneyText(Currency::FromRaw(49)), ".00");
    EXPECT_EQ(MoneyText(Currency::FromRaw(-50)), "-.01");
    EXPECT_EQ(MoneyText(Currency::FromRaw(-49)), ".00");
    EXPECT_EQ(MoneyText(Currency::FromRaw(26750)), "2.68");
    EXPECT_EQ(MoneyText(Currency::FromRaw(INT64_MAX)), "922,337,203,685,477.58");
    EXPECT_EQ(DollarText(Currency::FromRaw(INT64_MIN)), "-$922,337,203,685,477.58");
}

TEST(MoneyText, PatternsWithALeadingZero) {
    EXPECT_EQ(FormatMoney(0.5, MoneyPattern::kPlainZero), "0.50");
    EXPECT_EQ(FormatMoney(Currency(), MoneyPattern::kPlainZero), "0.00");
    EXPECT_EQ(FormatMoney(-0.5, MoneyPattern::kDollarZero), "-$0.50");
    EXPECT_EQ(FormatMoney(-0.001, MoneyPattern::kDollarZero), "$0.00");
    EXPECT_EQ(FormatMoney(Currency::FromInt(1234567), MoneyPattern::kDollarZero), "$1,234,567.00");
    EXPECT_EQ(PlainDecimal(Currency::FromRaw(25000)), "2.5");
    EXPECT_EQ(PlainDecimal(Currency::FromRaw(-15000)), "-1.5");
    EXPECT_EQ(PlainDecimal(Currency::FromRaw(2500)), "0.25");
}

TEST(RoundPlaces, HalfUpTowardsPlusInfinity) {
    EXPECT_EQ(RoundPlaces(2.5, 0), 3.0);
    EXPECT_EQ(RoundPlaces(-2.5, 0), -2.0);
    EXPECT_EQ(RoundPlaces(-2.6, 0), -3.0);
    EXPECT_EQ(RoundPlaces(1250, 2), 1300.0);
    EXPECT_EQ(RoundPlaces(-1250, 2), -1200.0);
    EXPECT_EQ(RoundPlaces(1249, 2), 1200.0);
    EXPECT_EQ(RoundPlaces(0.125, -2), 0.13);
    EXPECT_EQ(RoundPlaces(-0.125, -2), -0.12);
    EXPECT_EQ(RoundPlaces(1.23456, -4), 1.2346);
}

TEST(FileNumbers, ShortestPositionalTextAndWholeFieldReading) {
    std::string out;
    AppendFileNumber(out, 1e-6);
    out += ',';
    AppendFileNumber(out, 0.5f);
    out += ',';
    AppendFileNumber(out, 0.1f);
    out += ',';
    AppendFileNumber(out, Currency::FromRaw(-5000));
    out += ',';
    AppendFileNumber(out, Currency::FromRaw(12345));
    out += ',';
    AppendFileNumber(out, Currency::FromInt(3));
    EXPECT_EQ(out, "0.000001,0.5,0.1,-0.5,1.2345,3");

    EXPECT_EQ(ParseDoubleField(""), 0.0);
    EXPECT_EQ(ParseDoubleField(".5"), 0.5);
    EXPECT_EQ(ParseDoubleField("1D2"), 100.0);
    EXPECT_EQ(ParseDoubleField("1e-400"), 0.0);
    EXPECT_FALSE(ParseDoubleField("1.5x"));
    EXPECT_FALSE(ParseDoubleField("1e"));
    EXPECT_EQ(ErrorOf([] { ParseDoubleField("1e400"); }), kErrOverflow);
    EXPECT_EQ(ParseSingleField("0.1"), 0.1f);
    EXPECT_EQ(ParseSingleField("1e-50"), 0.0f);
    EXPECT_EQ(ErrorOf([] { ParseSingleField("3.5e38"); }), kErrOverflow);
    EXPECT_EQ(ParseCurrencyField("1.23455")->Raw(), 12346);  // beyond four decimals: to even
    EXPECT_EQ(ParseCurrencyField("1.23445")->Raw(), 12344);
    EXPECT_EQ(ParseCurrencyField("-.5")->Raw(), -5000);
    EXPECT_EQ(ParseCurrencyField("1e-400")->Raw(), 0);
    EXPECT_EQ(ParseCurrencyField("-922337203685477.5808")->Raw(), INT64_MIN);
    EXPECT_EQ(ErrorOf([] { ParseCurrencyField("922337203685477.5808"); }), kErrOverflow);
}

}  // namespace
}  // namespace tt
