#include "reports/forms/frm_select_race.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmSelectRaceAndBetType::frmSelectRaceAndBetType(QWidget* parent) : QDialog(parent) {
    setObjectName("frmSelectRaceAndBetType");
    setProperty("HelpContextID", help::kSelectRaceAndBetType);
    setWindowTitle(Q(logic.caption));
    auto* v = new QVBoxLayout(this);
    auto* frame = new QGroupBox(Q(logic.fraPrint.text), this);
    frame->setObjectName("fraPrint");
    auto* form = new QFormLayout(frame);
    comRaceName = new QComboBox(frame);
    comRaceName->setObjectName("comRaceName");
    comRaceName->setMinimumWidth(Twips(3600));
    comBetType = new QComboBox(frame);
    comBetType->setObjectName("comBetType");
    form->addRow(Q(logic.lblRace.text), comRaceName);
    form->addRow(Q(logic.lblBetType.text), comBetType);
    v->addWidget(frame);
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

    connect(comRaceName, &QComboBox::activated, this, [this](int index) {
        Guard(this, false, [&] {
            logic.comRaceName.SetListIndex(index);
            logic.comRaceName_Click();
        });
        Refresh();
    });
    connect(comBetType, &QComboBox::activated, this,
            [this](int index) { logic.comBetType.SetListIndex(index); });
    connect(ok, &QPushButton::clicked, this, [this] {
        Guard(this, false, [&] { logic.cmdOK_Click(); });
        Refresh();
    });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(helpButton, &QPushButton::clicked, this, [this] {
        Guard(this, false, [&] {
            DisplayContextHelp(AppHelpFile(), help::kSelectRaceAndBetType, logic.caption);
        });
    });
    Guard(this, false, [&] { logic.Form_Load(); });
    Refresh();
}

void frmSelectRaceAndBetType::Refresh() {
    FillCombo(comRaceName, logic.comRaceName);
    FillCombo(comBetType, logic.comBetType);
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmSelectRaceAndBetType::reject() {
    if (!logic.unloaded) logic.cmdCancel_Click();
    QDialog::reject();
}

}  // namespace tt::gui
