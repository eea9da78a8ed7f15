#pragma once
// "Bring in Bettors from another File": each bettor of the import list that is new to the card
// or whose details differ, with what will happen to it and to each of its details; the user
// adjusts them cell by cell and commits them all at once.

#include <cstdint>
#include <string>

#include "model/form_state.h"
#include "model/grid_data.h"

namespace tt {

class ImportBettorsLogic : public FormState {
  public:
    ImportBettorsLogic();

    void Form_Load();
    // A click on the grid's current cell.
    void flxBettor_Click();
    // Process Bettors.
    void cmdOK_Click();
    void cmdCancel_Click();

    // Compares element i of the import list with bettor j in the details of col (0 for all
    // three, or kEmail, kPhone, kInfo for one) and writes the flags and the action of the grid
    // row.
    void SetFlags(int row, std::int64_t i, std::int64_t j, int col);

    // Columns of flxBettor.
    enum Col : int {
        kName = 0,
        kAction = 1,
        kImportIndex = 2,  // hidden: the element of the import list
        kEmail = 3,
        kPhone = 4,
        kInfo = 5,
        kBettorIndex = 6,  // hidden: the card's bettor, 0 for a new one
        kColumns = 7,
    };

    GridData flxBettor;
    ControlState cmdOK, cmdCancel, cmdHelp;
    ControlState lblBettorInfo, lblInstructions, lblInstructions2;
};

}  // namespace tt
