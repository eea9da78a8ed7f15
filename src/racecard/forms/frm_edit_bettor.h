#pragma once
// "Edit Bettor" over EditBettorLogic.

#include <QDialog>
#include <functional>
#include <map>

#include "racecard/edit_bettor_logic.h"

class QLabel;
class QLineEdit;

namespace tt::gui {

class frmEditBettor : public QDialog {
    Q_OBJECT

  public:
    explicit frmEditBettor(QWidget* parent = nullptr);

    EditBettorLogic logic;
    void Refresh();
    void Run(const std::function<void()>& event);

  public slots:
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    std::map<QLineEdit*, ControlState*> edits_;
    QLabel* lblBetAmt;
    QLabel* lblWonAmt;
};

}  // namespace tt::gui
