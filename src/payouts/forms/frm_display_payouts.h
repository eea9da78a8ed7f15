#pragma once
// "Display Payouts" over DisplayPayoutsLogic: a child window that shows the finishers of a
// race and what its pools paid, and with Auto Run turns to the next finished race by itself.

#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "payouts/display_payouts_logic.h"
#include "payouts/settle_race.h"
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

class frmDisplayPayouts : public QWidget {
    Q_OBJECT

  public:
    explicit frmDisplayPayouts(QWidget* parent = nullptr);
    ~frmDisplayPayouts() override;

    DisplayPayoutsLogic logic;
    void Refresh();

  public slots:
    // The main window brings an open payout display to the front: it shows the race settled
    // since, or else stays as it is.
    void RefreshContents();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Run(const std::function<void()>& event);
    // Record Results: this window unloads before Edit Results opens.
    void EditResults();
    // Closes the window, in the document area or on its own.
    void Unload();

    QComboBox* comRaceName;
    QCheckBox* chkDefault;
    QGroupBox* fraResults;
    std::array<QLineEdit*, 6> txtRacerName{};  // 1st to 5th; [0] unused
    QGroupBox* fraPayouts;
    QTableView* flxWPS;
    QTableView* flxPayouts;
    GridModel* wpsModel_;
    GridModel* payoutsModel_;
    QPushButton* cmdEditResults;
    QPushButton* cmdCancel;
    QGroupBox* fraAutoRun;
    QGroupBox* fraOnOff;
    QRadioButton* optAutoOn;
    QRadioButton* optAutoOff;
    QLineEdit* txtInterval;
    QTimer* Timer1;

    KeptPlacement placement_;
    // A race settled since the window last showed one: shown when it comes to the front.
    SettledSubscription settled_;
    std::optional<int> settledRace_;
    bool refreshing_ = false;
    bool ticking_ = false;
};

}  // namespace tt::gui
