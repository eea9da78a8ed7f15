#include "betting/forms/frm_bet_display.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTableView>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

frmBetDisplay::frmBetDisplay(QWidget* parent) : QDialog(parent) {
    setObjectName("frmBetDisplay");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kBetDisplay);
    auto* v = new QVBoxLayout(this);
    flxPicks = new QTableView(this);
    flxPicks->setObjectName("flxPicks");
    model_ = new GridModel(flxPicks);
    flxPicks->setModel(model_);
    flxPicks->setSelectionMode(QAbstractItemView::NoSelection);
    v->addWidget(flxPicks, 1);
    Label1 = new QLabel(this);
    Label1->setObjectName("Label1");
    Label1->setAlignment(Qt::AlignCenter);
    v->addWidget(Label1);
    flxPicks->installEventFilter(this);
    flxPicks->viewport()->installEventFilter(this);

    Guard(this, false, [&] { logic.Form_Load(); });
    Label1->setText(Q(logic.Label1.text));
    model_->SetGrid(&logic.flxPicks);
    ApplyGridLayout(flxPicks, logic.flxPicks);
    int width = 0;
    for (int c = 0; c < logic.flxPicks.Cols(); ++c) width += Twips(logic.flxPicks.ColWidth(c));
    flxPicks->setMinimumSize(width + 8, Twips(1800));
}

frmBetDisplay::~frmBetDisplay() {
    // The grid goes with the logic, before the view that shows it.
    model_->SetGrid(nullptr);
}
void frmBetDisplay::Close() {
    logic.Form_Click();
    if (logic.unloaded) accept();
}

bool frmBetDisplay::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
        Close();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmBetDisplay::keyPressEvent(QKeyEvent*) {
    Close();
}

void frmBetDisplay::mousePressEvent(QMouseEvent*) {
    Close();
}

}  // namespace tt::gui
