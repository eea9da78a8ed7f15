#pragma once
// The tables of the document: fixed bounds, or a growable upper bound that the document sets
// exactly, with storage that follows what is in use. Every index is checked: a bad one raises the
// subscript error, and a table too large to hold raises the out-of-memory error before anything is
// allocated.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "model/app_error.h"

namespace tt {

// More elements than this in one table is treated as out of memory.
inline constexpr std::int64_t kMaxTableElements = 16777216;

// The memory the process holds now (its resident size), in bytes; 0 where it cannot be told.
std::size_t ResidentBytes();

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
        return *this;
    }
    PagedStore(PagedStore&&) noexcept = default;
    PagedStore& operator=(PagedStore&&) noexcept = default;

    [[gnu::always_inline]] T& At(std::int64_t i) {
        const auto p = static_cast<std::size_t>(i >> Bits);
        Page* page = p < pages_.size() ? pages_[p].get() : nullptr;
        if (!page) [[unlikely]]
            page = Make(p);
        return (*page)[static_cast<std::size_t>(i & (kPage - 1))];
    }
    [[gnu::always_inline]] const T& Get(std::int64_t i) const {
        const auto p = static_cast<std::size_t>(i >> Bits);
        const Page* page = p < pages_.size() ? pages_[p].get() : nullptr;
        if (!page) [[unlikely]]
            return Empty();
        return (*page)[static_cast<std::size_t>(i & (kPage - 1))];
    }

    // Keeps elements 0 to ub, where the bound was old, and empties the others. The list of
    // pages reaches only as far as the pages written, so a bound far above what is in use
    // costs nothing; elements past the bound are always empty, so growing writes nothing.
    void Resize(std::int64_t old, std::int64_t ub) {
        if (ub >= old) return;
        const auto pages = static_cast<std::size_t>((ub >> Bits) + 1);
        if (pages < pages_.size()) pages_.resize(pages);
        if (pages == pages_.size() && pages_.back()) {
            Page& last = *pages_.back();
            const std::int64_t end = std::min(old, (static_cast<std::int64_t>(pages) << Bits) - 1);
            for (std::int64_t i = ub + 1; i <= end; ++i)
                last[static_cast<std::size_t>(i & (kPage - 1))] = T{};
        }
    }
    void Clear() { pages_.clear(); }

  private:
    using Page = std::array<T, static_cast<std::size_t>(kPage)>;
    // The page of elements p << Bits onwards, made on the first write that reaches it.
    [[gnu::noinline]] Page* Make(std::size_t p) {
        if (p >= pages_.size()) pages_.resize(p + 1);
        pages_[p] = std::make_unique<Page>();
        return pages_[p].get();
    }
    [[gnu::noinline]] static const T& Empty() {
        static const T empty{};
        return empty;
    }
    std::vector<std::unique_ptr<Page>> pages_;
};

// Memory taken from the system as zeroed pages, for tables of records whose empty state is all
// zero bytes (numbers and flags only, no texts). The system gives a page its memory only when
// it is first written, so a bound far above what is in use costs address space, not memory,
// and a slot never written reads as empty without taking any. Growing reserves ahead, so that
// a bound raised one at a time does not move the records every time.
class ZeroedSpan {
  public:
    ZeroedSpan() = default;
    ~ZeroedSpan() { Release(); }
    ZeroedSpan(const ZeroedSpan&) = delete;
    ZeroedSpan& operator=(const ZeroedSpan&) = delete;
    ZeroedSpan(ZeroedSpan&& other) noexcept
        : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}
    ZeroedSpan& operator=(ZeroedSpan&& other) noexcept {
        if (this != &other) {
            Release();
            data_ = std::exchange(other.data_, nullptr);
            size_ = std::exchange(other.size_, 0);
        }
        return *this;
    }

    char* Data() const { return data_; }
    std::size_t Size() const { return size_; }
    // At least bytes of room, keeping what is held; the memory may move. Raises out of memory
    // when the system refuses.
    void Reserve(std::size_t bytes);
    // Makes bytes from..to zero again.
    void Zero(std::size_t from, std::size_t to);
    void Release();

  private:
    char* data_ = nullptr;
    std::size_t size_ = 0;
};

// A table of (0 to Rows - 1, 0 to UBound()) of records whose empty state is all zero bytes,
// each row held in zeroed memory (see ZeroedSpan): a row stores what is written in it, however
// high the bound. Records move only when the bound grows, as with any reallocation.
template <class T, int Rows>
class ZeroedTable {
  public:
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

    ZeroedTable() = default;
    ZeroedTable(const ZeroedTable& other) { *this = other; }
    ZeroedTable& operator=(const ZeroedTable& other) {
        if (this == &other) return *this;
        ReDim(other.ub_ < 0 ? 0 : other.ub_);
        ub_ = other.ub_;
        for (int r = 0; r < Rows; ++r)
            if (ub_ >= 0) std::memcpy(rows_[r].Data(), other.rows_[r].Data(), Bytes(ub_));
        return *this;
    }
    ZeroedTable(ZeroedTable&&) noexcept = default;
    ZeroedTable& operator=(ZeroedTable&&) noexcept = default;

    std::int64_t UBound() const { return ub_; }

    void ReDim(std::int64_t ub) {
        Check(ub);
        for (auto& row : rows_) {
            if (ub_ >= 0) row.Zero(0, Bytes(ub_));
            if (Bytes(ub) > row.Size()) row.Reserve(Bytes(ub));
        }
        ub_ = ub;
    }
    void ReDimPreserve(std::int64_t ub) {
        Check(ub);
        for (auto& row : rows_) {
            if (ub < ub_) row.Zero(Bytes(ub), Bytes(ub_));
            if (Bytes(ub) > row.Size()) row.Reserve(std::max(Bytes(ub), row.Size() * 2));
        }
        ub_ = ub;
    }

    [[gnu::always_inline]] T& At(std::int64_t row, std::int64_t n) {
        if (row < 0 || row >= Rows || n < 0 || n > ub_) Raise(kErrSubscript);
        return reinterpret_cast<T*>(rows_[static_cast<std::size_t>(row)].Data())[n];
    }
    [[gnu::always_inline]] const T& At(std::int64_t row, std::int64_t n) const {
        if (row < 0 || row >= Rows || n < 0 || n > ub_) Raise(kErrSubscript);
        return reinterpret_cast<const T*>(rows_[static_cast<std::size_t>(row)].Data())[n];
    }

  private:
    static std::size_t Bytes(std::int64_t ub) {
        return static_cast<std::size_t>(ub + 1) * sizeof(T);
    }
    static void Check(std::int64_t ub) {
        if (ub < 0) Raise(kErrSubscript);
        if (ub >= kMaxTableElements / Rows) Raise(kErrOutOfMemory);
    }
    std::array<ZeroedSpan, Rows> rows_;
    std::int64_t ub_ = -1;
};

// A table of 0 to UBound() such records, such as the tickets, whose bound comes from the file.
template <class T>
class ZeroedTable1 {
  public:
    std::int64_t UBound() const { return t_.UBound(); }
    void ReDim(std::int64_t ub) { t_.ReDim(ub); }
    void ReDimPreserve(std::int64_t ub) { t_.ReDimPreserve(ub); }
    [[gnu::always_inline]] T& operator()(std::int64_t i) { return t_.At(0, i); }
    [[gnu::always_inline]] const T& operator()(std::int64_t i) const { return t_.At(0, i); }

  private:
    ZeroedTable<T, 1> t_;
};

// The bets: (0 to 21, 0 to UBound()) in zeroed memory, so one race with many bets takes no room
// in the others.
template <class T>
class ZeroedRaceTable {
  public:
    static constexpr int kRaces = 22;
    std::int64_t UBound() const { return t_.UBound(); }
    void ReDim(std::int64_t ub) { t_.ReDim(ub); }
    void ReDimPreserve(std::int64_t ub) { t_.ReDimPreserve(ub); }
    [[gnu::always_inline]] T& operator()(std::int64_t race, std::int64_t n) {
        return t_.At(race, n);
    }
    [[gnu::always_inline]] const T& operator()(std::int64_t race, std::int64_t n) const {
        return t_.At(race, n);
    }

  private:
    ZeroedTable<T, kRaces> t_;
};

// A table of (0 to 21, 0 to UBound()) of records with texts, such as the racers: the race index
// is fixed, the second grows. Each race stores only the pages of slots written in it, so one
// race with many racers does not size the others, and a slot never moves while the bound keeps
// it.
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

    [[gnu::always_inline]] T& operator()(std::int64_t race, std::int64_t n) {
        if (race < 0 || race >= kRaces || n < 0 || n > ub_) Raise(kErrSubscript);
        return rows_[static_cast<std::size_t>(race)].At(n);
    }
    const T& operator()(std::int64_t race, std::int64_t n) const {
        if (race < 0 || race >= kRaces || n < 0 || n > ub_) Raise(kErrSubscript);
        return rows_[static_cast<std::size_t>(race)].Get(n);
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
