#pragma once
// "Edit Results" over EditResultsLogic: the five finishers of a race. Saving a changed result
// settles the race and shows the payout display.

#include <QDialog>
#include <array>
#include <functional>

#include "payouts/edit_results_logic.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace tt::gui {

class frmEditResults : public QDialog {
    Q_OBJECT

  public:
    explicit frmEditResults(QWidget* parent = nullptr);

    EditResultsLogic logic;
    void Refresh();

  public slots:
    // The window frame: the keep-changes question.
    void reject() override;

  protected:
    // Esc is Cancel.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Run(const std::function<void()>& event);

    QComboBox* comRaceName;
    std::array<QComboBox*, 6> comRacerName{};  // 1st to 5th; [0] unused
    QLabel* lblClear;
    QPushButton* cmdClear;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QPushButton* cmdHelp;
    bool refreshing_ = false;
};

}  // namespace tt::gui
