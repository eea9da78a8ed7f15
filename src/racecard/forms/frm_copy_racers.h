#pragma once
// "Copy Racers" over CopyRacersLogic.

#include <QDialog>

#include "racecard/copy_racers_logic.h"

class QComboBox;

namespace tt::gui {

class frmCopyRacers : public QDialog {
    Q_OBJECT

  public:
    frmCopyRacers(RaceCardLogic& card, QWidget* parent = nullptr);

    CopyRacersLogic logic;
    QComboBox* comRaceName;
    void Refresh();

  public slots:
    void reject() override;
};

}  // namespace tt::gui
