#pragma once
// "Place Bet" over PlaceBetsLogic: the bet area, the ticket's bets and the ticket's money, with
// every key of the window, so that a ticket of several bets is taken without the mouse.

#include <QDialog>
#include <array>
#include <functional>
#include <vector>

#include "betting/forms/ticket_widgets.h"
#include "betting/place_bets_logic.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace tt::gui {

class GridModel;

class frmPlaceBets : public QDialog {
    Q_OBJECT

  public:
    explicit frmPlaceBets(QWidget* parent = nullptr);
    ~frmPlaceBets() override;

    PlaceBetsLogic logic;
    void Refresh();

  public slots:
    // The window frame and Esc: as Cancel Tckt.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Run(const std::function<void()>& event);
    bool KeyPress(QObject* watched, QKeyEvent* e);
    // A box left by the focus: its typed text is checked.
    void LostFocus(QObject* watched);
    // The pick list a widget is, 0 for none.
    int PickOf(const QObject* watched) const;

    QGroupBox* fraBet;
    QLineEdit* txtBetAmt;
    std::array<QPushButton*, 6> cmdBetAmt{};
    QComboBox* comBetType;
    std::array<QPushButton*, 12> cmdBetType{};
    QCheckBox* chkBoxed;
    std::array<QComboBox*, 7> comPick{};
    std::array<QLabel*, 7> lblPick{};
    QLabel* lblBetTotal;
    QLabel* lblExtendedBetAmt;
    QPushButton* cmdAcceptBet;
    QPushButton* cmdCancelBet;
    QPushButton* cmdDelete;
    QTableView* flxBets;
    GridModel* model_;
    QGroupBox* fraTicket;
    QLabel* lblRaceName;
    QLabel* lblBettorName;
    QLabel* lblNewAmtBet;
    QLabel* lblAmtBet;
    QLabel* lblOriginal;
    QLabel* lblOriginalAmtBet;
    QPushButton* cmdAcceptTicket;
    QPushButton* cmdCancel;
    QPushButton* cmdHelp;
    EnterKeys enter_;
    std::vector<QObject*> left_;  // boxes the focus left while the window was being drawn
    int shownBuilds_ = -1;
    bool refreshing_ = false;
};

}  // namespace tt::gui
