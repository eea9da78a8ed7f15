#pragma once
// The tables of the document: fixed bounds, or a growable upper bound that the document sets
// exactly, with storage that follows what is in use. Every index is checked: a bad one raises the
// subscript error, and a table too large to hold raises the out-of-memory error before anything is
// allocated.

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
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
    std::size_t StoredBytes() const { return v_.capacity() * sizeof(T); }

  private:
    static void Check(std::int64_t ub) {
        if (ub < 0) Raise(kErrSubscript);
        if (ub >= kMaxTableElements) Raise(kErrOutOfMemory);
    }
    std::vector<T> v_;
};

// The storage of a growable table: pages of 2^Bits elements, each allocated when an element
// on it is first reached for writing. What is stored grows with what is used, not with the
// bounds, and an element never moves while the bounds keep it: a reference taken to one slot
// stays good while other slots are reached. A read of a slot on a page never written gives an
// empty element.
template <class T, int Bits>
class PagedStore {
  public:
    static constexpr std::int64_t kPage = std::int64_t{1} << Bits;

    PagedStore() = default;
    PagedStore(const PagedStore& other) { *this = other; }
    PagedStore& operator=(const PagedStore& other) {
        if (this == &other) return *this;
        pages_.clear();
        pages_.resize(other.pages_.size());
        for (std::size_t i = 0; i < pages_.size(); ++i)
            if (other.pages_[i]) pages_[i] = std::make_unique<Page>(*other.pages_[i]);
        stored_ = other.stored_;
        return *this;
    }
    PagedStore(PagedStore&&) noexcept = default;
    PagedStore& operator=(PagedStore&&) noexcept = default;

    T& At(std::int64_t i) {
        const auto p = static_cast<std::size_t>(i >> Bits);
        if (p >= pages_.size()) [[unlikely]]
            pages_.resize(p + 1);
        std::unique_ptr<Page>& page = pages_[p];
        if (!page) [[unlikely]] {
            page = std::make_unique<Page>();
            ++stored_;
        }
        return (*page)[static_cast<std::size_t>(i & (kPage - 1))];
    }
    const T& Get(std::int64_t i) const {
        const auto p = static_cast<std::size_t>(i >> Bits);
        if (p >= pages_.size() || !pages_[p]) [[unlikely]]
            return Empty();
        return (*pages_[p])[static_cast<std::size_t>(i & (kPage - 1))];
    }

    // Keeps elements 0 to ub, where the bound was old, and empties the others. The list of
    // pages reaches only as far as the pages written, so a bound far above what is in use
    // costs nothing; elements past the bound are always empty, so growing writes nothing.
    void Resize(std::int64_t old, std::int64_t ub) {
        if (ub >= old) return;
        const auto pages = static_cast<std::size_t>((ub >> Bits) + 1);
        if (pages < pages_.size()) {
            for (std::size_t i = pages; i < pages_.size(); ++i) stored_ -= pages_[i] ? 1 : 0;
            pages_.resize(pages);
        }
        if (pages == pages_.size() && pages_.back()) {
            Page& last = *pages_.back();
            const std::int64_t end = std::min(old, (static_cast<std::int64_t>(pages) << Bits) - 1);
            for (std::int64_t i = ub + 1; i <= end; ++i)
                last[static_cast<std::size_t>(i & (kPage - 1))] = T{};
        }
    }
    void Clear() {
        pages_.clear();
        stored_ = 0;
    }
    // The bytes the store takes: its pages and the list of them.
    std::size_t StoredBytes() const {
        return pages_.capacity() * sizeof(pages_[0]) + stored_ * sizeof(Page);
    }

  private:
    using Page = std::array<T, static_cast<std::size_t>(kPage)>;
    static const T& Empty() {
        static const T empty{};
        return empty;
    }
    std::vector<std::unique_ptr<Page>> pages_;
    std::size_t stored_ = 0;  // pages allocated
};

// A table of 0 to UBound() elements stored in pages: for tables whose bound comes from a file
// and may be far above what is in use, such as the tickets.
template <class T, int Bits = 4>
class PagedTable1 {
  public:
    std::int64_t UBound() const { return ub_; }

    void ReDim(std::int64_t ub) {
        Check(ub);
        store_.Clear();
        store_.Resize(-1, ub);
        ub_ = ub;
    }
    void ReDimPreserve(std::int64_t ub) {
        Check(ub);
        store_.Resize(ub_, ub);
        ub_ = ub;
    }

    T& operator()(std::int64_t i) {
        if (i < 0 || i > ub_) Raise(kErrSubscript);
        return store_.At(i);
    }
    const T& operator()(std::int64_t i) const {
        if (i < 0 || i > ub_) Raise(kErrSubscript);
        return store_.Get(i);
    }
    std::size_t StoredBytes() const { return store_.StoredBytes(); }

  private:
    static void Check(std::int64_t ub) {
        if (ub < 0) Raise(kErrSubscript);
        if (ub >= kMaxTableElements) Raise(kErrOutOfMemory);
    }
    PagedStore<T, Bits> store_;
    std::int64_t ub_ = -1;
};

// A table of (0 to 21, 0 to UBound()): the race index is fixed, the second grows. Each race
// stores only the slots reached in it, so one race with many bets does not size the others.
// Pages are small by default, as for the racers of a race; the bets take larger ones.
template <class T, int Bits = 4>
class RaceTable {
  public:
    static constexpr int kRaces = 22;

    std::int64_t UBound() const { return ub_; }

    void ReDim(std::int64_t ub) {
        Check(ub);
        for (auto& row : rows_) {
            row.Clear();
            row.Resize(-1, ub);
        }
        ub_ = ub;
    }
    void ReDimPreserve(std::int64_t ub) {
        Check(ub);
        for (auto& row : rows_) row.Resize(ub_, ub);
        ub_ = ub;
    }

    T& operator()(std::int64_t race, std::int64_t n) {
        if (race < 0 || race >= kRaces || n < 0 || n > ub_) Raise(kErrSubscript);
        return rows_[static_cast<std::size_t>(race)].At(n);
    }
    const T& operator()(std::int64_t race, std::int64_t n) const {
        if (race < 0 || race >= kRaces || n < 0 || n > ub_) Raise(kErrSubscript);
        return rows_[static_cast<std::size_t>(race)].Get(n);
    }
    std::size_t StoredBytes() const {
        std::size_t bytes = 0;
        for (const auto& row : rows_) bytes += row.StoredBytes();
        return bytes;
    }

  private:
    static void Check(std::int64_t ub) {
        if (ub < 0) Raise(kErrSubscript);
        if (ub >= kMaxTableElements / kRaces) Raise(kErrOutOfMemory);
    }
    std::array<PagedStore<T, Bits>, kRaces> rows_;
    std::int64_t ub_ = -1;
};

}  // namespace tt
