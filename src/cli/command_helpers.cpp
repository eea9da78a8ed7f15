#include "cli/command_helpers.h"

#include <ostream>

#include "files/race_file_io.h"
#include "model/grid_data.h"
#include "model/number_text.h"
#include "model/race_file.h"

namespace tt::cli {

bool Open(ConsoleWorld& world, const std::string& path) {
    G.CancelFlag = false;
    G.FilePath = path;
    OpenRaceFile();
    return world.shell.fileOpen && !G.FilePath.empty();
}

int RaceOption(Context& c) {
    bool ok = false;
    int race = c.parser.value("race").toInt(&ok);
    if (!ok || race < 1 || race > kMaxRace || !RaceExists(race)) {
        c.err << "tally: no race " << c.parser.value("race").toStdString() << " on this card\n";
        return 0;
    }
    return race;
}

void PrintGrid(std::ostream& out, const GridData& grid) {
    for (int r = 0; r < grid.Rows(); ++r) {
        bool first = true;
        for (int c = 0; c < grid.Cols(); ++c) {
            if (grid.ColWidth(c) == 0) continue;
            if (!first) out << "\t";
            out << grid.TextMatrix(r, c);
            first = false;
        }
        out << "\n";
    }
}

std::string Amount(Currency c) {
    std::string s = PlainDecimal(c);
    std::size_t point = s.find('.');
    if (point == std::string::npos) return s + ".00";
    while (s.size() - point < 3) s.push_back('0');
    return s;
}

}  // namespace tt::cli
