#include "racecard/forms/frm_edit_racer.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmEditRacer::frmEditRacer(RaceCardLogic& card, QWidget* parent) : QDialog(parent), logic(card) {
    setObjectName("frmEditRacer");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kEditRacer);

    auto* v = new QVBoxLayout(this);
    auto* lblRaceName = new QLabel(this);
    lblRaceName->setObjectName("lblRaceName");
    QFont bold = lblRaceName->font();
    bold.setBold(true);
    lblRaceName->setFont(bold);
    labels_[lblRaceName] = &logic.lblRaceName;
    v->addWidget(lblRaceName);

    auto* g = new QGridLayout;
    auto label = [&](ControlState& s, const char* name) {
        auto* l = new QLabel(this);
        l->setObjectName(name);
        labels_[l] = &s;
        return l;
    };
    g->addWidget(label(logic.lblBetNbr, "lblBetNbr"), 0, 0);
    g->addWidget(Edit("txtBetNbr", logic.txtBetNbr), 0, 1);
    g->addWidget(label(logic.lblProgramNbr, "lblProgramNbr"), 1, 0);
    g->addWidget(Edit("txtProgramNbr", logic.txtProgramNbr), 1, 1);
    g->addWidget(label(logic.lblPostPosition, "lblPostPosition"), 2, 0);
    g->addWidget(Edit("txtPostPos", logic.txtPostPos), 2, 1);
    g->addWidget(new QLabel("Name:", this), 3, 0);
    g->addWidget(Edit("txtRacerName", logic.txtRacerName), 3, 1, 1, 3);
    g->addWidget(new QLabel("Handicapper Odds:", this), 4, 0);
    auto* odds = new QHBoxLayout;
    odds->addWidget(Edit("txtOdds1", logic.txtOdds1));
    odds->addWidget(new QLabel("-", this));
    odds->addWidget(Edit("txtOdds2", logic.txtOdds2));
    odds->addStretch();
    g->addLayout(odds, 4, 1, 1, 3);
    for (const char* n : {"txtBetNbr", "txtProgramNbr", "txtPostPos", "txtOdds1", "txtOdds2"})
        findChild<QLineEdit*>(n)->setMaximumWidth(Twips(800));
    findChild<QLineEdit*>("txtRacerName")->setMinimumWidth(Twips(3000));

    auto check = [&](ControlState& s, const char* name, std::function<void()> click) {
        auto* c = new QCheckBox(this);
        c->setObjectName(name);
        buttons_[c] = &s;
        connect(c, &QCheckBox::clicked, this, [this, &s, click](bool on) {
            Run([&] {
                s.value = on ? 1 : 0;
                click();
            });
        });
        return c;
    };
    g->addWidget(check(logic.chkScratched, "chkScratched", [this] { logic.chkScratched_Click(); }),
                 5, 0, 1, 2);
    g->addWidget(check(logic.chkContinueToAdd, "chkContinueToAdd",
                       [this] { logic.chkContinueToAdd_Click(); }),
                 6, 0, 1, 3);
    v->addLayout(g);

    auto* buttons = new QHBoxLayout;
    auto push = [&](ControlState& s, const char* name, std::function<void()> click) {
        auto* b = new QPushButton(this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        buttons_[b] = &s;
        connect(b, &QPushButton::clicked, this, [this, click] { Run(click); });
        buttons->addWidget(b);
        return b;
    };
    push(logic.cmdOK, "cmdOK", [this] { logic.cmdOK_Click(); })->setDefault(true);
    push(logic.cmdCancel, "cmdCancel", [this] { logic.cmdCancel_Click(); });
    push(logic.cmdDelete, "cmdDelete", [this] { logic.cmdDelete_Click(); });
    push(logic.cmdHelp, "cmdHelp",
         [this] { DisplayContextHelp(AppHelpFile(), help::kEditRacer, logic.caption); });
    v->addLayout(buttons);

    Run([&] { logic.Form_Load(); });
}

QLineEdit* frmEditRacer::Edit(const std::string& name, ControlState& state) {
    auto* e = new QLineEdit(this);
    e->setObjectName(Q(name));
    e->installEventFilter(this);
    edits_[e] = &state;
    connect(e, &QLineEdit::textEdited, this, [this, &state, name](const QString& text) {
        Run([&] {
            state.text = S(text);
            logic.Text_Change(name);
        });
    });
    return e;
}

void frmEditRacer::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

bool frmEditRacer::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    if (!edit || refreshing_) return QDialog::eventFilter(watched, event);
    const QString name = edit->objectName();
    if (event->type() == QEvent::FocusIn) {
        if (UserFocusReason(static_cast<QFocusEvent*>(event)->reason())) {
            if (name == "txtPostPos")
                Run([&] { logic.txtPostPos_GotFocus(); });
            else if (name == "txtProgramNbr")
                Run([&] { logic.txtProgramNbr_GotFocus(); });
            else
                QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
        }
    } else if (event->type() == QEvent::KeyPress && name == "txtBetNbr") {
        const QString t = static_cast<QKeyEvent*>(event)->text();
        if (!t.isEmpty()) {
            int key = t.at(0).unicode();
            bool refused = false;
            Guard(this, false, [&] {
                logic.txtBetNbr_KeyPress(key);
                refused = key == 0;
            });
            if (refused) return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmEditRacer::Refresh() {
    refreshing_ = true;
    for (auto& [w, s] : edits_) Apply(w, *s);
    for (auto& [w, s] : buttons_) Apply(w, *s);
    for (auto& [w, s] : labels_) Apply(w, *s);
    ApplyFocus(this, logic, logic.selectText);
    refreshing_ = false;
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmEditRacer::reject() {
    RejectUnlessKept(this);
}

}  // namespace tt::gui
