#pragma once
// The grids of the odds display, built from the pools and odds of a race exactly as the window
// shows them after their sort: the Betting Pools, Win, Place and Show, Exacta and Daily Double
// grids. The printed odds report lays out its own lines from the same calculations.
//
// Every grid has one fixed header row and a hidden last column (width 0) holding the sort key,
// RacerShortLabel of the racer or of both racers of a pair. Rows exist only for racers with a
// name; a grid without racers keeps one empty data row. RowData of a racer row is its slot.

#include <string>

#include "model/grid_data.h"

namespace tt {

// What the bet type list of the odds display holds, by item data.
inline constexpr int kOddsPools = 0;
inline constexpr int kOddsDoubleFromHere = 61;  // the Daily Double that starts at the race
inline constexpr int kOddsDoubleIntoHere = 62;  // the Daily Double that ends at the race

// Odds as the grids write them: a blank, then the fraction's numerator, " - ", its denominator
// (both with the blank for the sign but the denominator of 0): "  5 -  2", "  0 - 0".
std::string OddsCellText(double odds);

// Betting Pools: "Bet#", the racer's name, the Win, Place and Show money of each racer (a column
// is filled only for a pool the race offers), an "Invalid bets" row first when money stands on
// numbers that no racer bears, then "Totals:" and a "<type> Totals:" row for each other pool
// the race offers. In "Betting Number" order a field shows its money once: a row that repeats the
// number of the row above has its money cells blank.
void FillPoolsGrid(int race, GridData& grid);

// Win (betType 1, "Cur Odds") or Place and Show (2 and 3, "Avg Odds"): "Bet#", the name, the
// odds, the handicapper's odds.
void FillRacerOddsGrid(int race, int betType, GridData& grid);

// Exacta: a row for each ordered pair of named racers with different betting numbers.
void FillExactaGrid(int race, GridData& grid);

// The Daily Double from firstLeg into the next race: a row for each pair of a named racer of
// each race. The second header reads "Winner or Race", as it always has.
void FillDoubleGrid(int firstLeg, GridData& grid);

// The grid for an item of the bet type list (0 pools, 1 to 4, 61, 62) of a race.
void FillOddsGrid(int race, int item, GridData& grid);

}  // namespace tt
