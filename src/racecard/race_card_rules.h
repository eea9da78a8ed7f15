#pragma once
// The rules of "Race Card Setup" over its working copies: the checks the window's boxes must
// pass, the stores from the boxes into the copies, deleting a race in the copies, what results
// lock, and SaveWork, which writes the copies into the document at OK.

#include <optional>
#include <string>

#include "model/race_file.h"
#include "racecard/race_card_controls.h"

namespace tt {

// The races and racers as the window edits them. Only OK writes them back, so Cancel drops them.
struct WorkCopies {
    FixedArray<RaceRec, 0, 21> WorkRace;
    RaceTable<RacerRec> WorkRacer;  // (race, slot), slot 0 never copied
};

// The settings of races 0 to 20 and every racer slot of the document into the copies, which
// already hold MaxRacers slots. Results and the other fields of a race are not copied.
void CopyToWork(WorkCopies& work);

// A check of the window that failed: its message and where it sends the user.
struct WindowFailure {
    std::string text;
    bool exclamation = false;
    int tab = RaceCardControls::kGeneral;
    std::string focus;        // the control to focus
    bool selectText = false;  // whether that box's text is selected
};
// The checks of the window's boxes in the order that OK, Next, Prev and a tab change run them;
// nothing when every check passes.
std::optional<WindowFailure> CheckWindow(const RaceCardControls& window);

// The Race Setup boxes into the copy of race; nothing for race 0. The boxes are all read before
// the copy changes, so that a value too large stops with the copy whole. The rounding code is
// not among them: its option buttons store it themselves.
void StoreRaceFromWindow(const RaceCardControls& window, WorkCopies& work, int race);
// The Race Defaults boxes into the copy of race 0.
void StoreDefaultsFromWindow(const RaceCardControls& window, WorkCopies& work);

// What the document holds for a race, as the question before deleting it names it: "Racers and
// Bets ", "Bets ", "Racers ", or "" for neither.
std::string DataOnFile(int race);
// A racer slot as a freed slot holds it.
void FreeRacerSlot(RacerRec& racer);
// Blanks a race in the copies: its racers, its settings, its offered types and four results.
// Its bets go at SaveWork.
void DeleteRaceInWork(WorkCopies& work, int race);

// Locks the Race Setup controls of a race whose results are in, and shows or locks the box of
// each multi-race type by the races its bets span.
void ApplyRaceProtection(RaceCardControls& window, int race);

// OK's write back: the bets of races deleted in this session are erased, bets of a type no
// longer offered get their cost back, the card's settings come from the window's boxes, and the
// copies replace the document's races and racers with the lower limits applied.
void SaveWork(const RaceCardControls& window, const WorkCopies& work);

}  // namespace tt
