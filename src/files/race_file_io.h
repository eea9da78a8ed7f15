#pragma once
// The race file: one whole document as text. The writer builds the file in one buffer and
// writes it in one go after the backup; the reader reads the whole file and walks its fields.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/date_time.h"

namespace tt {

class FieldReader;

inline constexpr const char* kFormatVersion = "2.01";
inline constexpr const char* kProduct = "Tamberlin Tally";

// Returns the text with every double quote replaced by a single quote.
std::string CleanText(std::string text);
// Overwrites each occurrence of search in place with as many characters of replacement.
std::string ReplaceAll(std::string text, std::string_view search, std::string_view replacement);

// The bytes of the whole document as the writer saves it, stamped with the given time. Puts
// the texts that must not hold a double quote through CleanText and stores them back.
std::string BuildRaceFileText(const DateTime& saved);

// Writes the document to FilePath after a backup. Sets CancelFlag to -1 on failure.
void WriteRaceFile();

// Clears the document, reads FilePath and brings the screens up to date.
void OpenRaceFile();

// Where the reader stands, for its error messages.
struct ReadProgress {
    std::string field;       // the tag of the record being read
    std::int64_t count = 0;  // records seen
    // The memory the process may hold while the records are read, 0 for no bound: a file made
    // to spread a few records over far-apart slots stops with out of memory before the load
    // takes more than four times the file and 64 MB (48 MB, and what the records read between
    // two looks can add).
    std::size_t memoryLimit = 0;
};

// The record loops, for the current format and for version 1.0 files.
void ReadRaceFile20(FieldReader& in, ReadProgress& progress);
void ReadRaceFile10(FieldReader& in, ReadProgress& progress);

}  // namespace tt
