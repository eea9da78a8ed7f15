#pragma once
// "Betting Window Transaction" over TransactionLogic: a child window of the main window with
// the transaction's summary, its totals and a button for each step, each on its key letter.

#include <QSet>
#include <QWidget>
#include <functional>

#include "betting/transaction_logic.h"
#include "shell/forms/gui_support.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QTableView;

namespace tt::gui {

class GridModel;

class frmTransaction : public QWidget {
    Q_OBJECT

  public:
    explicit frmTransaction(QWidget* parent = nullptr);
    ~frmTransaction() override;

    TransactionLogic logic;
    void Refresh();

  public slots:
    // The main window brings the open window to the front.
    void RefreshContents();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Run(const std::function<void()>& event);
    void Unload();
    void ShowSelectedRow();

    QTableView* flxTran;
    GridModel* model_;
    QGroupBox* fraAmounts;
    QLabel* lblBetAmt;
    QLabel* lblCollected;
    QLabel* lblCashed;
    QLabel* lblNet;
    QLabel* lblTransInPrinter;
    QPushButton* cmdNew;
    QPushButton* cmdEdit;
    QPushButton* cmdCash;
    QPushButton* cmdDelete;
    QPushButton* cmdCancel;
    QPushButton* cmdRelease;
    QPushButton* cmdOK;
    QPushButton* cmdClose;
    QPushButton* cmdHelp;

    // Letters pressed while this window had the keyboard: only their release counts, so that
    // the release of a key that closed another window does not run a command here.
    QSet<int> pressed_;
    bool refreshing_ = false;
    KeptPlacement placement_{this, TransactionLogic::kPlacementKeys, false};
    bool closing_ = false;
};

}  // namespace tt::gui
