#pragma once
// The window for resetting the number of races and the bets per ticket. Nothing opens it but a
// menu entry that is never shown, and none of its buttons does anything.

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace tt::gui {

class frmResetMax : public QDialog {
    Q_OBJECT

  public:
    explicit frmResetMax(QWidget* parent = nullptr);

    QLineEdit* txtMaxRaces;
    QLineEdit* txtMaxBets;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QPushButton* cmdHelp;

  protected:
    // It closes only by its window frame: Esc does nothing.
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace tt::gui
