#include "racecard/forms/frm_edit_bettor.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "model/race_file.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"
#include "shell/startup.h"

namespace tt::gui {

frmEditBettor::frmEditBettor(QWidget* parent) : QDialog(parent) {
    setObjectName("frmEditBettor");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kEditBettor);
    auto* v = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    int row = 0;
    auto edit = [&](const char* caption, const char* name, ControlState& s) {
        g->addWidget(new QLabel(caption, this), row, 0);
        auto* e = new QLineEdit(this);
        e->setObjectName(name);
        e->setMinimumWidth(Twips(3600));
        e->installEventFilter(this);
        edits_[e] = &s;
        connect(e, &QLineEdit::textEdited, this, [this, &s, name](const QString& text) {
            Run([&] {
                s.text = S(text);
                logic.Text_Change(name);
            });
        });
        g->addWidget(e, row++, 1, 1, 3);
    };
    edit("Bettor Name:", "txtBettorName", logic.txtBettorName);
    edit("Phone:", "txtBettorPhone", logic.txtBettorPhone);
    edit("E-mail:", "txtBettorEmail", logic.txtBettorEmail);
    edit("Add'l Info:", "txtBettorInfo", logic.txtBettorInfo);
    g->addWidget(new QLabel("Total Bet:", this), row, 0);
    lblBetAmt = new QLabel(this);
    lblBetAmt->setObjectName("lblBetAmt");
    g->addWidget(lblBetAmt, row, 1);
    g->addWidget(new QLabel("Total Won:", this), row, 2);
    lblWonAmt = new QLabel(this);
    lblWonAmt->setObjectName("lblWonAmt");
    g->addWidget(lblWonAmt, row, 3);
    v->addLayout(g);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto push = [&](const ControlState& s, const char* name, std::function<void()> click) {
        auto* b = new QPushButton(Q(s.text), this);
        b->setObjectName(name);
        connect(b, &QPushButton::clicked, this, [this, click] { Run(click); });
        buttons->addWidget(b);
        return b;
    };
    push(logic.cmdOK, "cmdOK", [this] { logic.cmdOK_Click(); })->setDefault(true);
    push(logic.cmdCancel, "cmdCancel", [this] { logic.cmdCancel_Click(); });
    push(logic.cmdHelp, "cmdHelp",
         [this] { DisplayContextHelp(AppHelpFile(), help::kEditBettor, logic.caption); });
    v->addLayout(buttons);
    Run([&] { logic.Form_Load(); });
}

void frmEditBettor::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    logic.centerInMain = true;
    Refresh();
}

void frmEditBettor::Run(const std::function<void()>& event) {
    Guard(this, false, event);
    Refresh();
}

bool frmEditBettor::eventFilter(QObject* watched, QEvent* event) {
    if (auto* e = qobject_cast<QLineEdit*>(watched); e && event->type() == QEvent::FocusIn) {
        if (UserFocusReason(static_cast<QFocusEvent*>(event)->reason()))
            Run([&] { logic.Text_GotFocus(S(e->objectName())); });
    }
    return QDialog::eventFilter(watched, event);
}

void frmEditBettor::Refresh() {
    for (auto& [w, s] : edits_) Apply(w, *s);
    lblBetAmt->setText(Q(logic.lblBetAmt.text));
    lblWonAmt->setText(Q(logic.lblWonAmt.text));
    ApplyFocus(this, logic, logic.selectText);
    if (logic.centerInMain && isVisible()) {
        // Centred in the main window's inner area, whose size the document keeps in twips.
        logic.centerInMain = false;
        Placement p = CenterInMain(
            {0, 0, ToTwips(frameGeometry().width()), ToTwips(frameGeometry().height())});
        QWidget* main = parentWidget() ? parentWidget()->window() : nullptr;
        QPoint origin = main ? main->mapToGlobal(QPoint(0, 0)) : QPoint(0, 0);
        move(origin + QPoint(Twips(p.left), Twips(p.top)));
    }
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmEditBettor::reject() {
    RejectUnlessKept(this);
}

}  // namespace tt::gui
