#pragma once
// The small procedures every window shares: money, odds and label text, rounding, the
// keep-changes question, the numeric key filter, lists, grids, races and bets.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/currency.h"
#include "model/grid_data.h"
#include "model/list_data.h"
#include "model/number_text.h"

namespace tt {

// ---- Money text ---------------------------------------------------------------------------

// "#,#.00": 1234.5 gives "1,234.50", 0.5 gives ".50", 0 gives ".00".
inline std::string MoneyText(Currency c) {
    return FormatMoney(c, MoneyPattern::kPlain);
}
inline std::string MoneyText(double v) {
    return FormatMoney(v, MoneyPattern::kPlain);
}
// "$#,#.00": 0 gives "$.00"; a minus sign stands before the dollar sign.
inline std::string DollarText(Currency c) {
    return FormatMoney(c, MoneyPattern::kDollar);
}
inline std::string DollarText(double v) {
    return FormatMoney(v, MoneyPattern::kDollar);
}

// ---- Text ---------------------------------------------------------------------------------

// The text without blanks before and after.
std::string TrimBlanks(std::string_view text);
// Whether two texts are the same, whatever the case of their letters.
bool EqualNoCase(std::string_view a, std::string_view b);
// The order of a sorted list, which takes no account of case.
bool LessNoCase(std::string_view a, std::string_view b);

// ---- Rounding -----------------------------------------------------------------------------

// Half up (towards plus infinity at an exact half); places -2 rounds to hundredths.
double RoundPlaces(double value, std::int16_t places);

// ---- Standard question --------------------------------------------------------------------

// 6 Yes, 7 No, 2 Cancel; 0 without asking when nothing changed. The title is the form's
// caption; an empty message asks "Do you wish to keep your changes?".
int KeepChangesQuestion(bool changed, const std::string& formCaption, std::string message = {});

// A window's Form_QueryUnload built on the question: Cancel keeps the window; Yes saves
// through ok (the window's OK) and keeps the window when that failed and set CancelFlag; No
// lets it close without saving.
void KeepChangesOnUnload(bool changed, const std::string& formCaption, bool& cancel,
                         const std::function<void()>& ok);

// ---- Keyboard and waiting -----------------------------------------------------------------

// The character code to pass on, or 0 after a beep: control keys, the blank, the point, the
// digits and every code from 128 up pass, the minus sign only when allowed.
int NumericKeyFilter(int key, bool allowMinus);

// Keeps yielding to the event loop until the clock has advanced n seconds.
void WaitSeconds(double n);

// ---- Lists --------------------------------------------------------------------------------

// Selects the first entry whose item data equals value, or nothing.
void SelectByItemData(ListData& list, std::int64_t value);

// The named races as "   3 - Name", item data the race number; "All Races" first when asked.
// Makes the default race valid, makes it current and selects it.
void BuildRaceCombo(ListData& list, bool withAll);

// A list of bet types for the choice of a report.
void BuildBetTypeCombo(ListData& list, bool withAll, bool withPools, bool withAcrossTheBoard,
                       bool withPriorDouble, int race);

// ---- Grids --------------------------------------------------------------------------------

// Centre or right-align a block of cells. A negative row1 or col1 becomes 0; a row2 or col2
// that is negative or past the end becomes the last row or column.
void CenterGridCells(GridData& grid, int row1, int row2, int col1, int col2);
void RightGridCells(GridData& grid, int row1, int row2, int col1, int col2);

// ---- Odds and racer labels ----------------------------------------------------------------

// numerator / denominator, or 0 when either text reads as 0.
double FractionToOdds(const std::string& numerator, const std::string& denominator);
// The odds as a whole-number fraction: {numerator, denominator}, both with the blank for the
// sign except the denominator of odds 0.
std::pair<std::string, std::string> OddsToFraction(double odds);

// Aligns a text on its first non-digit. A width above 12 becomes 12, in the caller's variable
// too.
std::string PadNumber(const std::string& text, std::int16_t& width);
inline std::string PadNumber(const std::string& text, int width = 5) {
    std::int16_t w = static_cast<std::int16_t>(width > 12 ? 12 : width < -32768 ? -32768 : width);
    return PadNumber(text, w);
}

std::string RacerShortLabel(int race, int slot);
std::string RacerLongLabel(int race, int slot);

// ---- Races and bets -----------------------------------------------------------------------

void MakeDefaultRaceValid();
void SetCurrentRaceToDefault();
// The highest race with results, 0 when none has any.
int LastFinishedRace();
// Named, unscratched racers of CurrentRace; the argument is only tested for 1 to 20.
int RunnersInRace(int race);
void ClearBet(int race, std::int64_t slot);
// Sums tickets again from their bets in their own race: TicketCost from BetCost, Winnings from
// BetWinnings, deleted bets left out. Every ticket, or only the tickets of one race that still
// count.
void SumTickets(std::optional<int> race);
inline void RecalcAllTickets() {
    SumTickets(std::nullopt);
}
inline void RecalcRaceTickets(int race) {
    SumTickets(race);
}

}  // namespace tt
