#pragma once
// "Restore from Recovery File" over RestoreLogic: the grid of the open card's recovery records,
// the buttons that mark whole ticket versions, Restore and Clear Recovery File.

#include <QDialog>
#include <functional>

#include "files/restore_logic.h"

class QLabel;
class QPushButton;
class QTableView;

namespace tt::gui {

class GridModel;

class frmRestore : public QDialog {
    Q_OBJECT

  public:
    explicit frmRestore(QWidget* parent = nullptr);

    RestoreLogic logic;
    // Shows the logic's state; with reload the grid's rows are shown anew, otherwise only its
    // cells change and the selection stays.
    void Refresh(bool reload);

  private:
    void Run(const std::function<void()>& event, bool reload);
    // The rows the user selected, as the grid's current row and selection end.
    void TakeSelection();

    QTableView* flxRecovery;
    GridModel* model_;
    QPushButton* cmdInclude;
    QPushButton* cmdDoNotInclude;
    QPushButton* cmdOK;
    QPushButton* cmdClear;
    QPushButton* cmdCancel;
    QPushButton* cmdHelp;
    QLabel* lblInclude;
    QLabel* lblRestore;
    QLabel* lblClear;
    QLabel* lblLastSave;
    QLabel* lblSaved;
};

}  // namespace tt::gui
