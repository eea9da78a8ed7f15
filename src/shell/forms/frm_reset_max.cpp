#include "shell/forms/frm_reset_max.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/help_ids.h"

namespace tt::gui {

frmResetMax::frmResetMax(QWidget* parent) : QDialog(parent) {
    setObjectName("frmResetMax");
    setWindowTitle("Reset Number of Races and Max Bets per Ticket");
    setProperty("HelpContextID", help::kResetMax);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    txtMaxRaces = new QLineEdit(this);
    txtMaxRaces->setObjectName("txtMaxRaces");
    txtMaxBets = new QLineEdit(this);
    txtMaxBets->setObjectName("txtMaxBets");
    form->addRow("New Number of Races on Card:", txtMaxRaces);
    form->addRow("New Max Number of Bets per Ticket:", txtMaxBets);
    layout->addLayout(form);
    auto* buttons = new QHBoxLayout;
    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    cmdHelp = new QPushButton("Help", this);
    cmdHelp->setObjectName("cmdHelp");
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);
}

void frmResetMax::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace tt::gui
