// Writes examples/spring-meet.tly: the card of a spring meet that a new user sees first.
// Usage: make-spring-meet OUT

#include <cstdio>
#include <string>
#include <vector>

#include "files/race_file_io.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

using namespace tt;

namespace {

struct Horse {
    const char* program;
    const char* name;
    int bet;
    const char* post;
    int num, den;
    bool scratched = false;
};

struct RaceDef {
    const char* name;
    std::vector<int> types;  // bet types offered beyond Win, Place and Show
    std::vector<Horse> horses;
};

void AddRace(int r, const RaceDef& def) {
    RaceRec& race = RF.Race(r);
    race = RF.Race(0);
    race.RaceName = def.name;
    for (int t : def.types) race.BetType(t) = true;
    int slot = 0;
    for (const Horse& h : def.horses) {
        ++slot;
        if (slot > RF.MaxRacers) {
            RF.Racer.ReDimPreserve(slot + 1);
            RF.MaxRacers = slot;
        }
        RacerRec& racer = RF.Racer(r, slot);
        racer.BetNbr = h.bet;
        racer.ProgramNbr = h.program;
        racer.PostPosition = h.post;
        racer.RacerName = h.name;
        racer.Odds = FractionToOdds(std::to_string(h.num), std::to_string(h.den));
        racer.Scratched = h.scratched;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-spring-meet OUT\n");
        return 2;
    }
    ResetProcessState();
    ClearRaceFile();
    RF.FileId = 4172;
    RF.FileName = "Tamberlin Downs Spring Meet";
    RF.RaceType = "Horse";
    RF.DefaultRace = 1;
    RF.SaveAfter = 10;
    RF.MaxTransInPrinter = 1;
    RF.UseBetNbr = true;
    RF.UseProgramNbr = true;
    RF.UsePostPosition = true;
    RF.MaxRaces = 20;
    RF.ClearDays = 30;
    for (int r = 0; r <= kMaxRace; ++r) {
        RaceRec& race = RF.Race(r);
        race.MinBet = Currency::FromInt(2);
        race.MinPayout = Currency::FromRaw(21000);
        race.BetIncr = Currency::FromInt(1);
        race.HoldbackPct = 5;
        race.QuickBet(1) = Currency::FromInt(2);
        race.QuickBet(2) = Currency::FromInt(5);
        race.QuickBet(3) = Currency::FromInt(10);
        race.QuickBet(4) = Currency::FromInt(20);
        race.QuickBet(5) = Currency::FromInt(50);
    }

    const std::vector<RaceDef> races = {
        {"Maiden Sprint", {4, 6},
         {{"1", "Dandelion Dancer", 1, "1", 5, 2}, {"2", "Copper Kettle", 2, "2", 3, 1},
          {"3", "Miss Puddleby", 3, "3", 6, 1}, {"4", "Long Shot Larry", 4, "4", 20, 1},
          {"5", "April Fool", 5, "5", 9, 2}, {"6", "Clover Hill", 6, "6", 4, 1}}},
        {"Meadowlark Handicap", {4},
         {{"1", "Thistledown", 1, "2", 2, 1}, {"1A", "Thistle Bloom", 1, "6", 2, 1},
          {"2", "Rusty Spur", 2, "1", 7, 2}, {"3", "Paper Moon", 3, "3", 5, 1},
          {"4", "Gingersnap", 4, "4", 8, 1}, {"5", "Harbor Light", 5, "5", 9, 2},
          {"6", "Sir Wobbles", 6, "7", 12, 1}}},
        {"Tamberlin Stakes", {4, 5, 7},
         {{"1", "Northern Dasher", 1, "1", 8, 5}, {"2", "Queen of Spades", 2, "2", 3, 1},
          {"3", "Muddy Boots", 3, "3", 10, 1}, {"4", "Pennywhistle", 4, "4", 4, 1},
          {"5", "Gallant Gus", 5, "5", 6, 1}, {"6", "Lady Marmalade", 6, "6", 15, 1},
          {"7", "Thunder Road", 7, "7", 5, 1}, {"8", "Briar Patch", 8, "8", 30, 1}}},
        {"Juvenile Dash", {4},
         {{"1", "Little Tornado", 1, "1", 2, 1}, {"2", "Buttercup", 2, "2", 5, 2},
          {"3", "Pip Squeak", 3, "3", 6, 1}, {"4", "Sunny Side Up", 4, "4", 4, 1, true},
          {"5", "Hopscotch", 5, "5", 8, 1}, {"6", "Tiny Tim", 6, "6", 12, 1}}},
        {"Willow Creek Mile", {4, 5},
         {{"1", "Silver Birch", 1, "1", 7, 2}, {"2", "Old Faithful", 2, "2", 3, 1},
          {"3", "Red Baron", 3, "3", 9, 2}, {"4", "Moonlight Sonata", 4, "4", 5, 2},
          {"5", "Cinnamon Toast", 5, "5", 10, 1}, {"6", "Wanderlust", 6, "6", 6, 1},
          {"7", "Haystack", 7, "7", 20, 1}}},
        {"Ladies' Cup", {4, 6},
         {{"1", "Duchess", 1, "1", 3, 1}, {"2", "Violet Hour", 2, "2", 5, 2},
          {"3", "Marigold", 3, "3", 4, 1}, {"4", "Starling", 4, "4", 6, 1},
          {"5", "Rosie Posie", 5, "5", 8, 1}, {"6", "Belle of the Ball", 6, "6", 9, 2},
          {"7", "Fern Gully", 7, "7", 15, 1}, {"8", "Honeybee", 8, "8", 12, 1},
          {"9", "Snapdragon", 9, "9", 20, 1}}},
        {"Claiming Race", {4},
         {{"1", "Second Chance", 1, "1", 5, 2}, {"2", "Bargain Bin", 2, "2", 3, 1},
          {"3", "Last Call", 3, "3", 4, 1}, {"4", "Ol' Reliable", 4, "4", 6, 1},
          {"5", "Fortune Cookie", 5, "5", 10, 1}, {"6", "Pocket Change", 6, "6", 8, 1},
          {"7", "Tin Cup", 7, "7", 25, 1}}},
        {"Spring Meet Derby", {4, 5},
         {{"1", "Regal Thunder", 1, "1", 6, 5}, {"2", "Midnight Express", 2, "2", 4, 1},
          {"3", "Golden Goose", 3, "3", 5, 1}, {"4", "Prairie Wind", 4, "4", 7, 2},
          {"5", "Captain Crunch", 5, "5", 12, 1}, {"6", "Whisper Jet", 6, "6", 9, 2},
          {"7", "Rocket Fuel", 7, "7", 15, 1}, {"8", "Lucky Clover", 8, "8", 10, 1},
          {"9", "Mister Biscuit", 9, "9", 30, 1}, {"10", "Dusty Trail", 10, "10", 20, 1}}},
    };
    for (std::size_t i = 0; i < races.size(); ++i) AddRace(static_cast<int>(i) + 1, races[i]);

    const char* bettors[][4] = {
        {"Alice Hartley", "Brings the lemonade", "alice.hartley@example.com", "555-0101"},
        {"Bob Fenwick", "", "bob@example.com", "555-0102"},
        {"Carmen Ortiz", "Likes long shots", "carmen.ortiz@example.com", "555-0103"},
        {"Dev Patel", "", "dev.patel@example.com", "555-0104"},
        {"Edith Crane", "Pays in coins", "", "555-0105"},
        {"Frank Moreau", "", "frank.moreau@example.com", ""},
        {"Grace Liu", "Exacta fan", "grace.liu@example.com", "555-0107"},
        {"Hank Dobbs", "", "hank@example.com", "555-0108"},
        {"Irene Walsh", "Seat by the rail", "irene.walsh@example.com", "555-0109"},
        {"Jamal Brooks", "", "jamal.brooks@example.com", "555-0110"},
        {"Kate O'Neill", "Host's sister", "kate.oneill@example.com", "555-0111"},
        {"Leo Santos", "", "leo.santos@example.com", "555-0112"},
    };
    RF.BettorCount = 12;
    RF.Bettor.ReDim(RF.BettorCount + 1);
    for (int b = 1; b <= 12; ++b) {
        BettorRec& rec = RF.Bettor(b);
        rec.BettorName = bettors[b - 1][0];
        rec.BettorInfo = bettors[b - 1][1];
        rec.BettorEmail = bettors[b - 1][2];
        rec.BettorPhone = bettors[b - 1][3];
    }

    std::string text = BuildRaceFileText(DateTime{2026, 4, 18, 9, 0, 0});
    std::FILE* f = std::fopen(argv[1], "wb");
    if (!f || std::fwrite(text.data(), 1, text.size(), f) != text.size() || std::fclose(f) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}
