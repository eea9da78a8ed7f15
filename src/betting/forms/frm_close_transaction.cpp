#include "betting/forms/frm_close_transaction.h"

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

frmCloseTransaction::frmCloseTransaction(QWidget* parent) : QDialog(parent) {
    setObjectName("frmCloseTransaction");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kCloseTransaction);

    auto* v = new QVBoxLayout(this);
    lblCollect = new QLabel(this);
    lblCollect->setObjectName("lblCollect");
    QFont big = lblCollect->font();
    big.setPointSizeF(big.pointSizeF() * 1.5);
    big.setBold(true);
    lblCollect->setFont(big);
    lblCollect->setAlignment(Qt::AlignCenter);
    lblCollect->setMinimumWidth(Twips(4200));
    v->addWidget(lblCollect);

    auto* amount = new QHBoxLayout;
    lblCollDist = new QLabel(this);
    lblCollDist->setObjectName("lblCollDist");
    txtCollDist = new QLineEdit(this);
    txtCollDist->setObjectName("txtCollDist");
    txtCollDist->setAlignment(Qt::AlignRight);
    txtCollDist->setFont(big);
    txtCollDist->setMaximumWidth(Twips(2200));
    lblCollDist->setBuddy(txtCollDist);
    amount->addStretch();
    amount->addWidget(lblCollDist);
    amount->addWidget(txtCollDist);
    amount->addStretch();
    v->addLayout(amount);

    cmdPrintTickets = new QPushButton(this);
    cmdPrintTickets->setObjectName("cmdPrintTickets");
    auto* print = new QHBoxLayout;
    print->addStretch();
    print->addWidget(cmdPrintTickets);
    print->addStretch();
    v->addLayout(print);

    auto* buttons = new QHBoxLayout;
    cmdOK = new QPushButton(this);
    cmdOK->setObjectName("cmdOK");
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName("cmdHelp");
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) {
        // Enter belongs to the amount box, which finishes on its release.
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    v->addLayout(buttons);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    connect(txtCollDist, &QLineEdit::textEdited, this,
            [this](const QString& text) { Run([&] { logic.txtCollDist.text = S(text); }); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { Run([this] { logic.cmdOK_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }); });
    connect(cmdPrintTickets, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdPrintTickets_Click(); }); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([this] { DisplayContextHelp(AppHelpFile(), help::kCloseTransaction, logic.caption); });
    });
    txtCollDist->installEventFilter(this);

    Run([this] { logic.Form_Load(); });
}

void frmCloseTransaction::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmCloseTransaction::Refresh() {
    refreshing_ = true;
    Apply(lblCollect, logic.lblCollect);
    Apply(lblCollDist, logic.lblCollDist);
    Apply(txtCollDist, logic.txtCollDist);
    Apply(cmdOK, logic.cmdOK);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(cmdPrintTickets, logic.cmdPrintTickets);
    Apply(cmdHelp, logic.cmdHelp);
    ApplyFocus(this, logic);
    refreshing_ = false;
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmCloseTransaction::reject() {
    if (!logic.unloaded) Guard(this, false, [this] { logic.cmdCancel_Click(); });
    QDialog::reject();
}

bool frmCloseTransaction::eventFilter(QObject* watched, QEvent* event) {
    if (watched != txtCollDist) return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) {
        QTimer::singleShot(0, txtCollDist, [e = txtCollDist] { e->selectAll(); });
    } else if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            enterPressed_ = true;
            return true;
        }
        const QString t = key->text();
        if (!t.isEmpty() && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
            int k = t.at(0).unicode();
            Guard(this, false, [&] { logic.txtCollDist_KeyPress(k); });
            if (k == 0) return true;
        }
    } else if (event->type() == QEvent::KeyRelease) {
        auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && enterPressed_ &&
            !key->isAutoRepeat()) {
            enterPressed_ = false;
            Run([this] { logic.txtCollDist_KeyUp('\r'); });
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace tt::gui
