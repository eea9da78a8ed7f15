#pragma once
// "Select Race to Print" over SelectRaceAndBetTypeLogic: the race and the part of its odds
// report.

#include <QDialog>

#include "reports/select_race_logic.h"

class QComboBox;

namespace tt::gui {

class frmSelectRaceAndBetType : public QDialog {
    Q_OBJECT

  public:
    explicit frmSelectRaceAndBetType(QWidget* parent = nullptr);

    SelectRaceAndBetTypeLogic logic;
    void Refresh();

  public slots:
    void reject() override;

  private:
    QComboBox* comRaceName;
    QComboBox* comBetType;
};

}  // namespace tt::gui
