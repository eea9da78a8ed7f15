#pragma once
// "Finish Transaction" over CloseTransactionLogic: what is due, the amount that changed hands,
// and the finish. Enter in the amount box finishes; Esc and the window frame are Cancel.

#include <QDialog>
#include <functional>

#include "betting/close_transaction_logic.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace tt::gui {

class frmCloseTransaction : public QDialog {
    Q_OBJECT

  public:
    explicit frmCloseTransaction(QWidget* parent = nullptr);

    CloseTransactionLogic logic;
    void Refresh();

  public slots:
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Run(const std::function<void()>& event);

    QLabel* lblCollect;
    QLabel* lblCollDist;
    QLineEdit* txtCollDist;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QPushButton* cmdPrintTickets;
    QPushButton* cmdHelp;
    // Enter pressed in the amount box: only its release there finishes, not the release of
    // the Enter that closed a message box.
    bool enterPressed_ = false;
    bool refreshing_ = false;
};

}  // namespace tt::gui
