#pragma once
// "Edit Racer" over EditRacerLogic, on the open race card's copy of the racers.

#include <QDialog>
#include <functional>
#include <map>
#include <string>

#include "racecard/edit_racer_logic.h"

class QAbstractButton;
class QLabel;
class QLineEdit;

namespace tt::gui {

class frmEditRacer : public QDialog {
    Q_OBJECT

  public:
    frmEditRacer(RaceCardLogic& card, QWidget* parent = nullptr);

    EditRacerLogic logic;
    void Refresh();
    void Run(const std::function<void()>& event);

  public slots:
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* Edit(const std::string& name, ControlState& state);

    std::map<QLineEdit*, ControlState*> edits_;
    std::map<QAbstractButton*, ControlState*> buttons_;
    std::map<QLabel*, ControlState*> labels_;
    bool refreshing_ = false;
};

}  // namespace tt::gui
