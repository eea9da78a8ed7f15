// Odds as fractions, PadNumber and the racer labels for every racer order.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "model/common.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt {
namespace {

using Fraction = std::pair<std::string, std::string>;

TEST(OddsToFraction, WholeNumberFractions) {
    EXPECT_EQ(OddsToFraction(2.5), Fraction(" 5", " 2"));
    EXPECT_EQ(OddsToFraction(2.1), Fraction(" 2", " 1"));
    EXPECT_EQ(OddsToFraction(2.9), Fraction(" 3", " 1"));
    EXPECT_EQ(OddsToFraction(1.5), Fraction(" 3", " 2"));
    EXPECT_EQ(OddsToFraction(1.2), Fraction(" 6", " 5"));
    EXPECT_EQ(OddsToFraction(0.5), Fraction(" 1", " 2"));
    EXPECT_EQ(OddsToFraction(4.7), Fraction(" 9", " 2"));
    EXPECT_EQ(OddsToFraction(7.4), Fraction(" 7", " 1"));
    EXPECT_EQ(OddsToFraction(5.5), Fraction(" 6", " 1"));
    EXPECT_EQ(OddsToFraction(0), Fraction(" 0", "0"));
    // Below 2 a fraction that is not a half goes to fifths ...
    EXPECT_EQ(OddsToFraction(1.3), Fraction(" 7", " 5"));
    // ... except .9 compared in single precision: 1.9f - 1 equals 0.9f (in double it would not,
    // and 1.9 would become 10-5).
    EXPECT_EQ(OddsToFraction(1.9), Fraction(" 2", " 1"));
    EXPECT_EQ(OddsToFraction(0.9), Fraction(" 1", " 1"));
    // Odds are first taken to tenths, half up.
    EXPECT_EQ(OddsToFraction(2.25), Fraction(" 5", " 2"));
    EXPECT_EQ(OddsToFraction(2.75), Fraction(" 3", " 1"));
    EXPECT_EQ(OddsToFraction(4.96), Fraction(" 5", " 1"));
}

TEST(FractionToOdds, ZeroWhenEitherSideReadsAsZero) {
    EXPECT_EQ(FractionToOdds("5", "2"), 2.5);
    EXPECT_EQ(FractionToOdds(" 5 ", "2x"), 2.5);
    EXPECT_EQ(FractionToOdds("0", "2"), 0.0);
    EXPECT_EQ(FractionToOdds("5", ""), 0.0);
    EXPECT_EQ(FractionToOdds("1,000", "4"), 0.25);
}

TEST(PadNumber, AlignsOnTheFirstNonDigit) {
    EXPECT_EQ(PadNumber("7"), "   7");
    EXPECT_EQ(PadNumber("12"), "  12");
    EXPECT_EQ(PadNumber(" 7 "), "   7");
    EXPECT_EQ(PadNumber(Str(3), 5), "   3");
    EXPECT_EQ(PadNumber("7A", 5), "   7A");
    EXPECT_EQ(PadNumber("A1", 5), "    A1");
    EXPECT_EQ(PadNumber("", 5), "    ");
    EXPECT_EQ(PadNumber("   ", 5), "    ");
    EXPECT_EQ(PadNumber("1234", 5), "1234 ");
    EXPECT_EQ(PadNumber(" 12345 ", 5), " 12345  ");  // the untrimmed text
    EXPECT_EQ(PadNumber("5", 0), "5 ");
    std::int16_t w = 20;
    EXPECT_EQ(PadNumber("12", w), std::string(9, ' ') + "12");
    EXPECT_EQ(w, 12);
    EXPECT_EQ(PadNumber("12", 40000), std::string(9, ' ') + "12");
}

class RacerLabels : public ::testing::Test {
  protected:
    void SetUp() override {
        RF.Racer.ReDim(2);
        RacerRec& r = RF.Racer(4, 1);
        r.BetNbr = 3;
        r.ProgramNbr = "1A";
        r.PostPosition = "4";
        r.RacerName = "Blue Streak";
        RF.Racer(4, 2).BetNbr = 12;
    }
    std::pair<std::string, std::string> Labels(const char* sort, bool program, bool post,
                                               int slot = 1) {
        RF.RacerSort = sort;
        RF.UseProgramNbr = program;
        RF.UsePostPosition = post;
        return {RacerShortLabel(4, slot), RacerLongLabel(4, slot)};
    }
    test::FakeWorld world;
};

TEST_F(RacerLabels, FollowTheRacerOrder) {
    using L = std::pair<std::string, std::string>;
    EXPECT_EQ(Labels("Betting Number", true, false), L("   3   1A", "   1A - Blue Streak"));
    EXPECT_EQ(Labels("Betting Number", true, true), L("   3   1A", "   1A - Blue Streak"));
    EXPECT_EQ(Labels("Betting Number", false, true), L("   3   4", "   4 - Blue Streak"));
    EXPECT_EQ(Labels("Betting Number", false, false), L("   3", "Blue Streak"));
    EXPECT_EQ(Labels("Betting Number", false, false, 2), L("  12", ""));
    EXPECT_EQ(Labels("Program Number", false, false), L("   1A", "   1A - Blue Streak"));
    EXPECT_EQ(Labels("Post Position", true, false), L("   4", "   4 - Blue Streak"));
    EXPECT_EQ(Labels("Name", true, true), L("Blue Streak", "Blue Streak"));
    EXPECT_EQ(Labels("name", true, true), L("", ""));  // binary comparison: no such order
}

}  // namespace
}  // namespace tt
