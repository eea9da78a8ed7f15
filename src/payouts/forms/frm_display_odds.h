#pragma once
// "Display Odds" over DisplayOddsLogic: a child window that shows the pools and odds of a race
// and with Auto Run turns its pages, bet types and races by itself. Its Board button shows the
// same grid full screen for the room on a screen of the user's choice.

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "payouts/display_odds_logic.h"
#include "shell/forms/gui_support.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;
class QTimer;

namespace tt::gui {

class GridModel;
class OddsBoard;
class frmMain;

class frmDisplayOdds : public QWidget {
    Q_OBJECT

  public:
    explicit frmDisplayOdds(QWidget* parent = nullptr);
    ~frmDisplayOdds() override;

    DisplayOddsLogic logic;
    void Refresh();

    // Board mode: the grid full screen on the screen chosen in the window; off again by Esc.
    void SetBoard(bool on);
    bool BoardShown() const;
    OddsBoard* Board() const { return board_; }

  public slots:
    // The main window brings an open odds display to the front: its figures are worked out
    // afresh.
    void RefreshContents();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Run(const std::function<void()>& event);
    void Unload();
    // The rows the grid in view shows whole: the window's grid, or the board's page.
    void TellVisibleRows();
    void FillScreens();
    void FitColumns();

    QGroupBox* fraRaces;
    QRadioButton* optRacesAll;
    QRadioButton* optRacesUnfinished;
    QComboBox* comRaceName;
    QComboBox* comBetType;
    QCheckBox* chkDefault;
    QTableView* flxOdds;
    GridModel* oddsModel_;
    QGroupBox* fraAutoRun;
    QRadioButton* optAutoOn;
    QRadioButton* optAutoOff;
    QGroupBox* fraBetSetting;
    QRadioButton* optAutoBetSelected;
    QRadioButton* optAutoBetAll;
    QGroupBox* fraRaceSetting;
    QRadioButton* optAutoRaceSelected;
    QRadioButton* optAutoRaceAll;
    QLineEdit* txtInterval;
    QGroupBox* fraBoard;
    QComboBox* comBoardScreen;
    QCheckBox* chkBoardBars;
    QPushButton* cmdBoard;
    QPushButton* cmdCancel;
    QTimer* Timer1;
    OddsBoard* board_ = nullptr;

    // The grid as the window's view last took it; a page turn only scrolls.
    std::uint64_t gridShown_ = 0;
    std::int64_t topShown_ = -1;
    bool refreshing_ = false;
    bool ticking_ = false;
    KeptPlacement placement_{this, DisplayOddsLogic::kPlacementKeys, true};
};

// For `--board`: once a card with a race is open, Display Odds opens on the main window and
// shows its board, with Auto Run on.
void ShowOddsBoardWhenReady(frmMain& main);

}  // namespace tt::gui
