#pragma once
// "List Bets" over ListBetsLogic: a child window that lists the bets of the card under its
// filters, rebuilt each time it comes to the front.

#include <QWidget>
#include <functional>

#include "reports/list_bets_logic.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTableView;

namespace tt::gui {

class GridModel;

class frmListBets : public QWidget {
    Q_OBJECT

  public:
    explicit frmListBets(QWidget* parent = nullptr);
    ~frmListBets() override;

    ListBetsLogic logic;
    void Refresh();
    QTableView* Grid() const { return flxBets; }

  public slots:
    // The main window brings the list to the front again: bets may have changed under it.
    void RefreshContents();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Run(const std::function<void()>& event);
    // Rebuilds the list once the events of coming to the front are done; several requests in
    // a row rebuild it once.
    void ScheduleActivate();
    void ShowBet(int row);
    void Unload();

    // The window shows this logic to the report of listed bets while it lives.
    ShownListBetsScope shown_{&logic};
    QComboBox* comRaceName;
    QCheckBox* chkDefault;
    QComboBox* comBettor;
    QComboBox* comBetType;
    QRadioButton* optAllBets;
    QRadioButton* optWinnersOnly;
    QTableView* flxBets;
    GridModel* model_;
    QLabel* lblEditMsg;
    QGroupBox* fraTotals;
    QLabel *lblTotalCap, *lblTotal, *lblWonCap, *lblWon, *lblCollectedCap, *lblCollected,
        *lblDistributedCap, *lblDistributed, *lblDue;
    QPushButton* cmdCancel;
    bool refreshing_ = false;
    bool activatePending_ = false;
    bool placed_ = false;
    // The list was just built by the load, in this turn of the event loop.
    bool freshlyLoaded_ = true;
};

}  // namespace tt::gui
