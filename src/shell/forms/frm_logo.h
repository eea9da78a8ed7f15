#pragma once
// The launch pad: a child window with the seven big buttons of a race day.

#include <QWidget>

class QPushButton;

namespace tt::gui {

class frmLogo : public QWidget {
    Q_OBJECT

  public:
    explicit frmLogo(QWidget* parent = nullptr);
    void EnableGroups(bool fileOpen, bool raceExists);
    // Centres the launch pad in the main window, no further right than 1,500 twips and no lower
    // than 1,000.
    void Place();

    QPushButton* cmdRaceCard;
    QPushButton* cmdEditBettors;
    QPushButton* cmdBettingWindow;
    QPushButton* cmdListBets;
    QPushButton* cmdDisplayOdds;
    QPushButton* cmdEnterResults;
    QPushButton* cmdDisplayPayouts;
};

}  // namespace tt::gui
