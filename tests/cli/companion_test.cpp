#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <sstream>

#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt::cli {
namespace {

using namespace test;

TEST(Companion, InfoListsTheCardOfTheExample) {
    TallyRun r = Tally({"info", std::string(TALLY_SOURCE_DIR) + "/examples/spring-meet.tly"});
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.err, "");
    std::istringstream lines(r.out);
    std::string first, header, race1;
    std::getline(lines, first);
    std::getline(lines, header);
    std::getline(lines, race1);
    EXPECT_EQ(first, "Tamberlin Tally - Tamberlin Downs Spring Meet   (File ID = 4172)");
    EXPECT_EQ(header, "Race\tName\tRacers\tBets\tResult");
    EXPECT_EQ(race1.substr(0, race1.find('\t', 2)), "1\tMaiden Sprint");
    EXPECT_NE(r.out.find("\nBettors\t12\n"), std::string::npos);
}

TEST(Companion, ResaveGivesTheSameBytesButTheSaveTime) {
    QTemporaryDir dir;
    std::string out = dir.filePath("again.tly").toStdString();
    std::string example = std::string(TALLY_SOURCE_DIR) + "/examples/spring-meet.tly";
    TallyRun r = Tally({"resave", example, "-o", out});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(WithoutHeader(ReadFile(out)), WithoutHeader(ReadFile(example)));
}

TEST(Companion, LaterVersionIsRefusedWithoutYesAndReadWithIt) {
    QTemporaryDir dir;
    std::string example = ReadFile(std::string(TALLY_SOURCE_DIR) + "/examples/spring-meet.tly");
    std::string later = example;
    later.replace(later.find("\"2.01\""), 6, "\"3.0\"");
    std::string in = dir.filePath("later.tly").toStdString();
    WriteFile(in, later);
    std::string out = dir.filePath("out.tly").toStdString();

    TallyRun refused = Tally({"resave", in, "-o", out});
    EXPECT_EQ(refused.rc, 1);
    EXPECT_EQ(refused.err,
              "Tamberlin Tally file is from a later version of the software!\n\r\nYou could "
              "experience problems "
              "loading the file!  Continue?\n");

    TallyRun accepted = Tally({"resave", in, "-o", out, "--yes"});
    EXPECT_EQ(accepted.rc, 0);
    EXPECT_EQ(WithoutHeader(ReadFile(out)), WithoutHeader(example));
}

TEST(Companion, BadUsageExitsWithTwo) {
    EXPECT_EQ(Tally({}).rc, 2);
    EXPECT_EQ(Tally({"frobnicate"}).rc, 2);
    EXPECT_EQ(Tally({"resave", "a.tly"}).rc, 2);
    TallyRun missing = Tally({"info", "/no/such/card.tly"});
    EXPECT_EQ(missing.rc, 1);
    EXPECT_EQ(missing.err, "Unable to read file\n\r\nFile not found\n");
}

}  // namespace
}  // namespace tt::cli
