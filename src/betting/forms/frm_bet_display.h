#pragma once
// "Display Bet Pick's" over BetDisplayLogic: the racers of a bet's picks. Any click on it or
// any key closes it.

#include <QDialog>

#include "betting/bet_display_logic.h"

class QLabel;
class QTableView;

namespace tt::gui {

class GridModel;

class frmBetDisplay : public QDialog {
    Q_OBJECT

  public:
    explicit frmBetDisplay(QWidget* parent = nullptr);
    ~frmBetDisplay() override;

    BetDisplayLogic logic;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void Close();

    QLabel* Label1;
    QTableView* flxPicks;
    GridModel* model_;
};

}  // namespace tt::gui
