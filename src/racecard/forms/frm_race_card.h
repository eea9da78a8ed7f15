#pragma once
// "Race Card Setup": five tabs over RaceCardLogic.

#include <QComboBox>
#include <QDialog>
#include <functional>
#include <map>
#include <string>

#include "racecard/race_card_logic.h"

class QAbstractButton;
class QGroupBox;
class QLabel;
class QLineEdit;
class QTabWidget;
class QTableView;

namespace tt::gui {

class GridModel;

// A combo box that says when it is about to drop down, so that its list can be rebuilt first.
class DropDownCombo : public QComboBox {
  public:
    using QComboBox::QComboBox;
    std::function<void()> onDropDown;
    void showPopup() override {
        if (onDropDown) onDropDown();
        QComboBox::showPopup();
    }
};

class frmRaceCard : public QDialog {
    Q_OBJECT

  public:
    explicit frmRaceCard(QWidget* parent = nullptr);
    ~frmRaceCard() override;

    RaceCardLogic logic;
    QTabWidget* SSTab1 = nullptr;
    QTableView* flxRacers = nullptr;
    QComboBox* comRaceType = nullptr;
    QComboBox* comRacerSort = nullptr;
    DropDownCombo* comRaceName = nullptr;
    DropDownCombo* comRRRaceName = nullptr;

    // Copies the logic's state into the widgets; closes the window when the logic unloaded.
    void Refresh();
    // Runs an event of the logic with the general error path, then refreshes.
    void Run(const std::function<void()>& event);

  public slots:
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    QLineEdit* Edit(const std::string& name, int width = 0);
    QAbstractButton* Check(const std::string& name);
    QAbstractButton* Option(const std::string& name);
    QAbstractButton* Push(const std::string& name, void (RaceCardLogic::*click)());
    QLabel* Label(const std::string& name);
    QWidget* BuildGeneral();
    QWidget* BuildDefaults();
    QWidget* BuildRaces();
    QWidget* BuildRacers();
    QWidget* BuildBackup();
    // The settings of a race; prefix "" for the defaults, "R" for a race.
    QWidget* BuildSettings(const std::string& prefix, QWidget* parent);

    std::map<std::string, QLineEdit*> edits_;
    std::map<std::string, QAbstractButton*> buttons_;
    std::map<std::string, QLabel*> labels_;
    std::map<std::string, QLabel*> buddyLabels_;  // captions that follow their control's state
    QGroupBox* fraRace = nullptr;
    GridModel* racersModel_ = nullptr;
    bool refreshing_ = false;
    bool loaded_ = false;
};

}  // namespace tt::gui
