#pragma once
// "Select a Participant" over SelectBettorLogic.

#include <QDialog>
#include <functional>

#include "racecard/select_bettor_logic.h"

class QListWidget;

namespace tt::gui {

class frmSelectBettor : public QDialog {
    Q_OBJECT

  public:
    explicit frmSelectBettor(QWidget* parent = nullptr);

    SelectBettorLogic logic;
    QListWidget* lstBettors;
    void Refresh();
    void Run(const std::function<void()>& event);

  protected:
    void showEvent(QShowEvent* event) override;
};

}  // namespace tt::gui
