#pragma once
// "Payout Handling" over PayoutHandlingLogic: asked during the payout calculation for a pool
// without winners. It has no cancel: closing it by its frame leaves ChosenHandling as it was.

#include <QDialog>
#include <functional>

#include "payouts/payout_handling_logic.h"

class QLabel;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace tt::gui {

class frmPayoutHandling : public QDialog {
    Q_OBJECT

  public:
    explicit frmPayoutHandling(QWidget* parent = nullptr);

    PayoutHandlingLogic logic;
    void Refresh();

  protected:
    // Esc does nothing: only OK answers, or the window frame closes without an answer.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Run(const std::function<void()>& event);

    QLabel* Label1;
    QLabel* lblBetType;
    QLabel* Label2;
    QGroupBox* Frame1;
    QRadioButton* optMost;
    QRadioButton* optPayback;
    QRadioButton* optNoPay;
    QPushButton* cmdOK;
    QPushButton* cmdHelp;
};

}  // namespace tt::gui
