#pragma once
// What the commands of `tally` share: opening a card into the document, the race of --race,
// grids and money as text.

#include <iosfwd>
#include <string>

#include "cli/command.h"
#include "cli/console_ports.h"
#include "model/currency.h"

namespace tt {
class GridData;
}

namespace tt::cli {

// Reads FILE into the document; false when the program would have refused or failed.
bool Open(ConsoleWorld& world, const std::string& path);

// The race of --race: a named race of the card, or 0 after saying there is none.
int RaceOption(Context& c);

// A grid as tab-separated rows, header first, hidden columns left out.
void PrintGrid(std::ostream& out, const GridData& grid);

// Money as the companion prints it: at least two decimals, every one there is.
std::string Amount(Currency c);

}  // namespace tt::cli
