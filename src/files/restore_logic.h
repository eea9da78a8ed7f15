#pragma once
// "Restore from Recovery File": the recovery records of the open card, newest first, from which
// the user marks whole versions of tickets and brings them back into the card, or deletes them
// from the log.

#include <string>
#include <vector>

#include "files/recovery_file.h"
#include "files/restore.h"
#include "model/form_state.h"
#include "model/grid_data.h"

namespace tt {

class RestoreLogic : public FormState {
  public:
    RestoreLogic();

    void Form_Load();
    void cmdInclude_Click() { MarkRows("Yes"); }
    void cmdDoNotInclude_Click() { MarkRows("No"); }
    void flxRecovery_DblClick() { MarkRows("Toggle"); }
    // Restore.
    void cmdOK_Click();
    // Clear Recovery File.
    void cmdClear_Click();
    void cmdCancel_Click() { Unload(); }

    // Reads the records of the open card into RecoveryRows and shows them in the grid. A record
    // of another version or a failure turns the log off with its warning, and the grid keeps
    // its header row only: false then.
    bool LoadRecoveryGrid();
    // Sets the "Include?" cell of every row of each ticket version under the selection: "Yes",
    // "No", or "Toggle".
    void MarkRows(const std::string& what);
    // Marks every row of a ticket, all its versions.
    void MarkTicket(std::int32_t ticket);
    // Copies the marks of the grid into RecoveryRows, a ticket always whole: the first row of
    // each run of a ticket in the grid decides for all its rows, and a later run decides again.
    void SyncInclude();
    // Whether a row of the grid is marked "Yes".
    bool AnyMarked() const;

    // Columns of flxRecovery.
    enum Col : int {
        kInclude = 0,
        kTicket = 1,
        kDateTime = 2,
        kRace = 3,
        kBettor = 4,
        kAction = 5,
        kCollected = 6,
        kDistributed = 7,
        kBetAmt = 8,
        kBetType = 9,
        kBox = 10,
        kBetTotal = 11,
        kPicks = 12,
        kRowIndex = 13,  // the row's place in RecoveryRows, counting from 1
        kColumns = 14,
    };

    GridData flxRecovery;
    ControlState cmdInclude, cmdDoNotInclude, cmdOK, cmdClear, cmdCancel, cmdHelp;
    ControlState lblInclude, lblRestore, lblClear, lblLastSave, lblSaved;
    // The records of the open card in file order.
    std::vector<RecoveryRow> RecoveryRows;
    // Asked before a restore.
    RestoreConfirm confirm = AskRestoreQuestion;

  private:
    void FillGrid();
    // The row of RecoveryRows shown in a grid row.
    RecoveryRow& RowOf(int gridRow);
};

}  // namespace tt
