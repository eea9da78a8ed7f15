#pragma once
// "Start a New Ticket", "Select a Ticket to Edit", "Select a Ticket to Cash or Collect" over
// TicketHeaderLogic, in the mode TicketMode names when it opens.

#include <QDialog>
#include <functional>
#include <vector>

#include "betting/forms/ticket_widgets.h"
#include "betting/ticket_header_logic.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace tt::gui {

class GridModel;

class frmTicketHeader : public QDialog {
    Q_OBJECT

  public:
    explicit frmTicketHeader(QWidget* parent = nullptr);
    ~frmTicketHeader() override;

    TicketHeaderLogic logic;
    void Refresh();

  public slots:
    int exec() override;
    // The window frame and Esc: as Close.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Run(const std::function<void()>& event);
    // The rows chosen in the list become the logic's Row and RowSel.
    void ListSelectionChanged();
    bool KeyPress(QObject* watched, QKeyEvent* e);
    // A box left by the focus: its typed text is checked.
    void LostFocus(QObject* watched);

    QComboBox* comRaceName;
    QComboBox* comBettor;
    QLineEdit* txtTicketNbr;
    QTableView* flxBets;
    GridModel* model_;
    QPushButton* cmdEdit;
    QPushButton* cmdCancel;
    QPushButton* cmdNewBettor;
    QPushButton* cmdHelp;
    QCheckBox* chkContinue;
    QCheckBox* chkDefault;
    QLabel* lblRace;
    QLabel* lblBettor;
    QLabel* lblTicketNbr;
    EnterKeys enter_;
    std::vector<QObject*> left_;  // boxes the focus left while the window was being drawn
    int shownBuilds_ = -1;
    bool refreshing_ = false;
};

}  // namespace tt::gui
