#pragma once
// "Payout Handling" over PayoutHandlingLogic: asked during a race's settlement for a pool
// without winners. It has no cancel: closing it by its frame gives no answer, and the handling
// in force stands.

#include <QDialog>
#include <functional>

#include "payouts/payout_handling_logic.h"

class QLabel;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace tt::gui {

// The settlement's question put in this window, owned by the given one.
HandlingPolicy AskPayoutHandling(QWidget* owner);

class frmPayoutHandling : public QDialog {
    Q_OBJECT

  public:
    explicit frmPayoutHandling(const HandlingQuestion& question, QWidget* parent = nullptr);

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
