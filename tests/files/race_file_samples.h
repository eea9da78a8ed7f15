#pragma once
// Lines of hand-made race files and a helper that loads bytes as a file, for the race file
// tests.

#include <string>

#include "files/race_file_io.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt::test {

inline const std::string kCardPath = "/races/June.tly";

inline std::string HeaderLine(const std::string& version = "2.01",
                              const std::string& product = "Tamberlin Tally") {
    return "\"%Header`\",\"" + product + "\",\"" + version + "\",#2026-05-01 09:15:00#\r\n";
}

inline std::string ParmsLine(const std::string& ticketCount = "4",
                             const std::string& defaultRace = "1") {
    return "\"%Parms `\",77,\"Card\",\"Horses\"," + defaultRace +
           ",5,#FALSE#,1,#TRUE#,#FALSE#,#FALSE#,\"Betting Number\",20," + ticketCount +
           ",#FALSE#,\"\",#FALSE#,#FALSE#,0,8,10,#FALSE#\r\n";
}

// Both lines of a race in the current form; the 1.0 form stops before the trailing comma.
inline std::string RaceLines(const std::string& race, const std::string& name,
                             bool version10 = false) {
    std::string s = "\"%Race  `\"," + race + ",\"" + name + "\",1,1,0.1,-2,0,0";
    for (int t = 1; t <= 10; ++t) s += t <= 3 ? ",#TRUE#,0" : ",#FALSE#,0";
    s += ",0,0,0,0,0,0";
    return version10 ? s + "\r\n" : s + ",\r\n1,2,5,10,20,\r\n";
}

inline std::string RacerLine(int betNbr, const std::string& name) {
    const std::string n = std::to_string(betNbr);
    return "\"%Racer `\"," + n + ",\"" + n + "\",\"" + n + "\",\"" + name + "\",2.5,#FALSE#\r\n";
}

inline std::string BettorLine(const std::string& name) {
    return "\"%Bettor`\",\"" + name + "\",\"\",\"\",\"\"\r\n";
}

// A Win bet of 2 on racer 3, with a copy of its ticket.
inline std::string BetLines(const std::string& race, int ticket) {
    const std::string t = std::to_string(ticket);
    return "\"%Bet   `\"," + race + ",2,1,#FALSE#,2,0,0,0,0,0,0\r\n3,0,0,0,0,0," + t + "," +
           std::to_string(100 + ticket) + "," + race + ",2,2,0,0\r\n";
}

inline std::string PayoutLine(const std::string& race) {
    std::string s = "\"%Payout`\"," + race + ",";
    for (int i = 0; i < 60; ++i) s += "1.5,2,10,";
    return s + "\r\n";
}

// Puts the bytes at kCardPath and opens them as the race file.
inline void LoadBytes(FakeWorld& world, const std::string& bytes) {
    world.files.files[kCardPath] = bytes;
    G.FilePath = kCardPath;
    G.CancelFlag = false;
    OpenRaceFile();
}

}  // namespace tt::test
