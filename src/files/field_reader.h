#pragma once
// Reads the comma-separated fields of a race file or recovery file, one at a time, from the
// whole file held in memory. Text is taken between double quotes; numbers, flags ("#TRUE#",
// "#FALSE#") and dates ("#yyyy-mm-dd hh:mm:ss#") are read into their types, and a field that
// is not of the type expected raises the type mismatch error.

#include <cstddef>
#include <string>
#include <string_view>

#include "model/checked_int.h"
#include "model/currency.h"
#include "model/date_time.h"
#include "model/flag.h"

namespace tt {

class FieldReader {
public:
    explicit FieldReader(std::string_view data) : data_(data) {}

    // The end of the file: nothing is left to read.
    bool AtEnd() const { return pos_ >= data_.size(); }
    std::size_t Position() const { return pos_; }

    // The next field: the text inside its quotes, or the bare text with the blanks around it
    // trimmed. Reading past the end raises "Input past end of file".
    std::string_view Next();
    bool LastWasQuoted() const { return quoted_; }

    std::string ReadText() { return std::string(Next()); }
    void ReadText(std::string& into) { into.assign(Next()); }
    std::int64_t ReadInteger(std::int64_t lo, std::int64_t hi);
    Int16 ReadInt16() { return static_cast<std::int16_t>(ReadInteger(-32768, 32767)); }
    Int32 ReadInt32() { return static_cast<std::int32_t>(ReadInteger(-2147483648LL, 2147483647LL)); }
    Currency ReadCurrency();
    float ReadSingle();
    double ReadDouble();
    Flag ReadFlag();
    DateTime ReadDate();

private:
    std::string_view data_;
    std::size_t pos_ = 0;
    bool quoted_ = false;
};

}  // namespace tt
