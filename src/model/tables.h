#pragma once
// The tables of the document: fixed bounds, or a growable upper bound that is reallocated
// exactly as the document asks. Every index is checked: a bad one raises the subscript error,
// and a table too large to hold raises the out-of-memory error before anything is allocated.

#include <array>
#include <cstdint>
#include <vector>

#include "model/app_error.h"

namespace tt {

// More elements than this in one table is treated as out of memory.
inline constexpr std::int64_t kMaxTableElements = 16777216;

// A table with fixed bounds Lo to Hi.
template <class T, int Lo, int Hi>
class FixedArray {
  public:
    static constexpr int kLower = Lo;
    static constexpr int kUpper = Hi;

    T& operator()(std::int64_t i) {
        if (i < Lo || i > Hi) Raise(kErrSubscript);
        return a_[static_cast<std::size_t>(i - Lo)];
    }
    const T& operator()(std::int64_t i) const {
        if (i < Lo || i > Hi) Raise(kErrSubscript);
        return a_[static_cast<std::size_t>(i - Lo)];
    }
    T& operator[](std::int64_t i) { return (*this)(i); }
    const T& operator[](std::int64_t i) const { return (*this)(i); }

    void Fill(const T& v) { a_.fill(v); }
    friend bool operator==(const FixedArray&, const FixedArray&) = default;

  private:
    std::array<T, static_cast<std::size_t>(Hi - Lo + 1)> a_{};
};

// A table of 0 to UBound() elements.
template <class T>
class Table1 {
  public:
    std::int64_t UBound() const { return static_cast<std::int64_t>(v_.size()) - 1; }

    // Reallocates to 0 to ub, all elements empty.
    void ReDim(std::int64_t ub) {
        Check(ub);
        v_.clear();
        v_.resize(static_cast<std::size_t>(ub + 1));
    }
    // Reallocates to 0 to ub, keeping contents.
    void ReDimPreserve(std::int64_t ub) {
        Check(ub);
        v_.resize(static_cast<std::size_t>(ub + 1));
    }

    T& operator()(std::int64_t i) {
        if (i < 0 || i > UBound()) Raise(kErrSubscript);
        return v_[static_cast<std::size_t>(i)];
    }
    const T& operator()(std::int64_t i) const {
        if (i < 0 || i > UBound()) Raise(kErrSubscript);
        return v_[static_cast<std::size_t>(i)];
    }

  private:
    static void Check(std::int64_t ub) {
        if (ub < 0) Raise(kErrSubscript);
        if (ub >= kMaxTableElements) Raise(kErrOutOfMemory);
    }
    std::vector<T> v_;
};

// A table of (0 to 21, 0 to UBound()): the race index is fixed, the second grows.
template <class T>
class RaceTable {
  public:
    static constexpr int kRaces = 22;

    std::int64_t UBound() const { return ub_; }

    void ReDim(std::int64_t ub) {
        Check(ub);
        for (auto& row : rows_) {
            row.clear();
            row.resize(static_cast<std::size_t>(ub + 1));
        }
        ub_ = ub;
    }
    void ReDimPreserve(std::int64_t ub) {
        Check(ub);
        for (auto& row : rows_) row.resize(static_cast<std::size_t>(ub + 1));
        ub_ = ub;
    }

    T& operator()(std::int64_t race, std::int64_t n) {
        if (race < 0 || race >= kRaces || n < 0 || n > ub_) Raise(kErrSubscript);
        return rows_[static_cast<std::size_t>(race)][static_cast<std::size_t>(n)];
    }
    const T& operator()(std::int64_t race, std::int64_t n) const {
        if (race < 0 || race >= kRaces || n < 0 || n > ub_) Raise(kErrSubscript);
        return rows_[static_cast<std::size_t>(race)][static_cast<std::size_t>(n)];
    }

  private:
    static void Check(std::int64_t ub) {
        if (ub < 0) Raise(kErrSubscript);
        if (ub >= kMaxTableElements / kRaces) Raise(kErrOutOfMemory);
    }
    std::array<std::vector<T>, kRaces> rows_;
    std::int64_t ub_ = -1;
};

}  // namespace tt
