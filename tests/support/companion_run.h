#pragma once
// The companion run in-process with what it printed, and whole files read and written, for the
// tests of `tally`.

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/companion.h"

namespace tt::test {

struct TallyRun {
    int rc;
    std::string out, err;
};

inline TallyRun Tally(std::vector<std::string> args) {
    std::ostringstream out, err;
    int rc = cli::RunTally(args, out, err);
    return {rc, out.str(), err.str()};
}

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// A race file without its first line, the header that holds the time of the save.
inline std::string WithoutHeader(const std::string& text) {
    return text.substr(text.find("\r\n"));
}

}  // namespace tt::test
