#pragma once
// "Bring in Bettors from another File" over ImportBettorsLogic: the bettors that are new or
// changed, a click on an action or flag cell to change the plan, Process Bettors to commit.

#include <QDialog>
#include <functional>

#include "files/import_bettors_logic.h"

class QLabel;
class QPushButton;
class QTableView;

namespace tt::gui {

class GridModel;

class frmImportBettors : public QDialog {
    Q_OBJECT

  public:
    explicit frmImportBettors(QWidget* parent = nullptr);

    ImportBettorsLogic logic;
    void Refresh();

  public slots:
    // The window frame and Esc are Cancel.
    void reject() override;

  private:
    void Run(const std::function<void()>& event);

    QTableView* flxBettor;
    GridModel* model_;
    QLabel* lblBettorInfo;
    QLabel* lblInstructions;
    QLabel* lblInstructions2;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QPushButton* cmdHelp;
};

}  // namespace tt::gui
