#pragma once
// The eleven bet types. A bet keeps its type as the small code the race file holds (0 marks a
// deleted bet, and a damaged file may hold any other number); everything a type implies, its
// races, its picks, whether it can be boxed, is answered here and nowhere else.

#include <array>
#include <cstdint>
#include <string>

namespace tt {

enum class BetType : std::int16_t {
    kNone = 0,
    kWin = 1,
    kPlace = 2,
    kShow = 3,
    kExacta = 4,
    kTrifecta = 5,
    kDailyDouble = 6,
    kPick3 = 7,
    kPick4 = 8,
    kPick5 = 9,
    kPick6 = 10,
    kAcrossTheBoard = 11,
};

// The codes with a place of their own in a race's offered types and in the payout rows; Across
// the Board has none.
inline constexpr int kBetTypes = 10;
inline constexpr int kAcrossTheBoard = 11;

// The code as the file and the tables hold it, and back. Any number converts; the helpers
// below answer false or 1 for a code that names no type.
constexpr std::int16_t Code(BetType t) {
    return static_cast<std::int16_t>(t);
}
constexpr BetType BetTypeOf(std::int64_t code) {
    return static_cast<BetType>(static_cast<std::int16_t>(code));
}

// Codes 1 to 11.
constexpr bool IsBetType(std::int64_t code) {
    return code >= 1 && code <= kAcrossTheBoard;
}
// Win, Place and Show: one pick, one pool each.
constexpr bool IsWinPlaceShow(BetType t) {
    return t >= BetType::kWin && t <= BetType::kShow;
}
// Exacta and Trifecta: several picks in one race, and they can be boxed.
constexpr bool IsExotic(BetType t) {
    return t == BetType::kExacta || t == BetType::kTrifecta;
}
// The Daily Double and Pick 3 to Pick 6 span consecutive races, one pick a race.
constexpr bool IsMultiRace(BetType t) {
    return t >= BetType::kDailyDouble && t <= BetType::kPick6;
}

// The races a bet of this type spans: two for the Daily Double up to six for Pick 6, else one.
constexpr int LegCount(BetType t) {
    return IsMultiRace(t) ? Code(t) - 4 : 1;
}
// The last race of the span of a bet stored under its first race.
constexpr int LastLeg(int firstRace, BetType t) {
    return firstRace + LegCount(t) - 1;
}
// The race of pick j (from 1) of a bet on firstRace: the next races for a multi-race bet.
constexpr int PickRace(int firstRace, BetType t, int j) {
    return IsMultiRace(t) ? firstRace + j - 1 : firstRace;
}
// The picks that a whole combination needs: 2 for an Exacta, 3 for a Trifecta, one per race for
// a multi-race bet, 1 for the rest.
constexpr int PicksToWin(BetType t) {
    if (t == BetType::kExacta) return 2;
    if (t == BetType::kTrifecta) return 3;
    return LegCount(t);
}

// Every multi-race type, in code order.
inline constexpr std::array<BetType, 5> kMultiRaceTypes = {
    BetType::kDailyDouble, BetType::kPick3, BetType::kPick4, BetType::kPick5, BetType::kPick6};

// The type's name as the screens show it ("Win", ..., "Across the Board"); empty for code 0.
const std::string& Name(BetType t);

}  // namespace tt
