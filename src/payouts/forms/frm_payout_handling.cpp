#include "payouts/forms/frm_payout_handling.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

HandlingPolicy AskPayoutHandling(QWidget* owner) {
    return [owner](const HandlingQuestion& question) {
        frmPayoutHandling dialog(question, owner);
        dialog.exec();
        return dialog.logic.answer;
    };
}

frmPayoutHandling::frmPayoutHandling(const HandlingQuestion& question, QWidget* parent)
    : QDialog(parent), logic(question) {
    setObjectName("frmPayoutHandling");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kPayoutHandling);

    auto* v = new QVBoxLayout(this);
    Label1 = new QLabel(this);
    Label1->setObjectName("Label1");
    lblBetType = new QLabel(this);
    lblBetType->setObjectName("lblBetType");
    QFont bold = lblBetType->font();
    bold.setBold(true);
    lblBetType->setFont(bold);
    lblBetType->setAlignment(Qt::AlignCenter);
    Label2 = new QLabel(this);
    Label2->setObjectName("Label2");
    v->addWidget(Label1);
    v->addWidget(lblBetType);
    v->addSpacing(Twips(120));
    v->addWidget(Label2);

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName("Frame1");
    auto* options = new QVBoxLayout(Frame1);
    auto option = [&](const char* name, void (PayoutHandlingLogic::*click)()) {
        auto* o = new QRadioButton(Frame1);
        o->setObjectName(name);
        options->addWidget(o);
        connect(o, &QRadioButton::clicked, this, [this, click] { Run([&] { (logic.*click)(); }); });
        return o;
    };
    optMost = option("optMost", &PayoutHandlingLogic::optMost_Click);
    optPayback = option("optPayback", &PayoutHandlingLogic::optPayback_Click);
    optNoPay = option("optNoPay", &PayoutHandlingLogic::optNoPay_Click);
    v->addWidget(Frame1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cmdOK = new QPushButton(this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName("cmdHelp");
    cmdHelp->setAutoDefault(false);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdHelp);
    v->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, [this] { Run([this] { logic.cmdOK_Click(); }); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([this] { DisplayContextHelp(AppHelpFile(), help::kPayoutHandling, logic.caption); });
    });
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    Run([this] { logic.Form_Load(); });
}

void frmPayoutHandling::Run(const std::function<void()>& event) {
    Guard(this, false, event);
    Refresh();
}

void frmPayoutHandling::Refresh() {
    Apply(Label1, logic.Label1);
    Apply(lblBetType, logic.lblBetType);
    Apply(Label2, logic.Label2);
    Frame1->setTitle(Q(logic.Frame1.text));
    Apply(optMost, logic.optMost);
    Apply(optPayback, logic.optPayback);
    Apply(optNoPay, logic.optNoPay);
    Apply(cmdOK, logic.cmdOK);
    Apply(cmdHelp, logic.cmdHelp);
    ApplyFocus(this, logic);
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmPayoutHandling::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace tt::gui
