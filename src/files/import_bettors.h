#pragma once
// Bringing in bettors from another race file: only its "%Bettor`" records are read, into the
// import list, and "Bring in Bettors from another File" shows what would change.

#include <string>

#include "model/race_file.h"

namespace tt {

inline constexpr const char* kImportFilter = "Tamberlin Tally Files (*.tly)|*.tly";

// The bettors read from the other file, counting from 1: ImportBettors(0 To ImportCount + 1).
extern Table1<BettorRec> ImportBettors;
extern Int16 ImportCount;
// The last file chosen in this session.
extern std::string ImportPath;

// The import list emptied: no bettors, table 0 to 1.
void ClearImportList();

// Reads the bettors of the file at ImportPath into the import list and shows
// "frmImportBettors" modally; the list is emptied again when it closes. A file that is not a
// Tamberlin Tally file, a version answered No, or a failure shows its message and imports
// nothing.
void ReadImportFile();

}  // namespace tt
