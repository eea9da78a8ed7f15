#include "racecard/forms/frm_copy_racers.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmCopyRacers::frmCopyRacers(RaceCardLogic& card, QWidget* parent) : QDialog(parent), logic(card) {
    setObjectName("frmCopyRacers");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kCopyRacers);
    auto* v = new QVBoxLayout(this);
    v->addWidget(new QLabel(Q(logic.lblCopyFrom.text), this));
    comRaceName = new QComboBox(this);
    comRaceName->setObjectName("comRaceName");
    comRaceName->setMinimumWidth(Twips(4000));
    connect(comRaceName, &QComboBox::activated, this,
            [this](int index) { logic.comRaceName.SetListIndex(index); });
    v->addWidget(comRaceName);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* ok = new QPushButton(Q(logic.cmdOK.text), this);
    ok->setObjectName("cmdOK");
    ok->setDefault(true);
    auto* cancel = new QPushButton(Q(logic.cmdCancel.text), this);
    cancel->setObjectName("cmdCancel");
    auto* helpButton = new QPushButton(Q(logic.cmdHelp.text), this);
    helpButton->setObjectName("cmdHelp");
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    buttons->addWidget(helpButton);
    v->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, [this] {
        Guard(this, false, [&] { logic.cmdOK_Click(); });
        Refresh();
    });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(helpButton, &QPushButton::clicked, this, [this] {
        Guard(this, false,
              [&] { DisplayContextHelp(AppHelpFile(), help::kCopyRacers, logic.caption); });
    });
    Guard(this, false, [&] { logic.Form_Load(); });
    Refresh();
}

void frmCopyRacers::Refresh() {
    FillCombo(comRaceName, logic.comRaceName);
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmCopyRacers::reject() {
    if (!logic.unloaded) logic.cmdCancel_Click();
    QDialog::reject();
}

}  // namespace tt::gui
