#include "payouts/forms/frm_edit_results.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "payouts/forms/frm_payout_handling.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmEditResults::frmEditResults(QWidget* parent) : QDialog(parent) {
    setObjectName("frmEditResults");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kEditResults);

    auto* v = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    comRaceName = new QComboBox(this);
    comRaceName->setObjectName("comRaceName");
    comRaceName->setMinimumWidth(Twips(3600));
    auto* lblRace = new QLabel("&Race:", this);
    lblRace->setBuddy(comRaceName);
    g->addWidget(lblRace, 0, 0);
    g->addWidget(comRaceName, 0, 1);
    // The race changes only when the selection moves, so that choosing the same race again
    // does not ask about losing the changes.
    connect(comRaceName, &QComboBox::currentIndexChanged, this, [this](int index) {
        Run([&] {
            logic.comRaceName.SetListIndex(index);
            logic.comRaceName_Click();
        });
    });
    g->setRowMinimumHeight(1, Twips(120));

    static const char* const kPlaces[] = {"", "&1st:", "&2nd:", "&3rd:", "&4th:", "&5th:"};
    for (int k = 1; k <= 5; ++k) {
        auto* box = new QComboBox(this);
        box->setObjectName(QString("comRacerName%1").arg(k));
        box->setMinimumWidth(Twips(3600));
        auto* label = new QLabel(kPlaces[k], this);
        label->setBuddy(box);
        g->addWidget(label, k + 1, 0);
        g->addWidget(box, k + 1, 1);
        comRacerName[static_cast<std::size_t>(k)] = box;
        // Any choice of the user counts, also the same racer chosen again.
        connect(box, &QComboBox::activated, this, [this, k](int index) {
            Run([&] {
                logic.comRacerName[static_cast<std::size_t>(k)].list.SetListIndex(index);
                logic.comRacerName_Click(k);
            });
        });
    }
    v->addLayout(g);

    auto* clear = new QHBoxLayout;
    lblClear = new QLabel(this);
    lblClear->setObjectName("lblClear");
    cmdClear = new QPushButton(this);
    cmdClear->setObjectName("cmdClear");
    cmdClear->setAutoDefault(false);
    clear->addStretch();
    clear->addWidget(lblClear);
    clear->addWidget(cmdClear);
    v->addLayout(clear);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cmdOK = new QPushButton(this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    cmdCancel->setAutoDefault(false);
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName("cmdHelp");
    cmdHelp->setAutoDefault(false);
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) buttons->addWidget(b);
    v->addLayout(buttons);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdClear, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdClear_Click(); }); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { Run([this] { logic.cmdOK_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([this] { DisplayContextHelp(AppHelpFile(), help::kEditResults, logic.caption); });
    });

    logic.onHide = [this] { hide(); };
    // The question outlives this window, which is hidden by then: the main window owns it.
    logic.handling = AskPayoutHandling(parentWidget());
    Run([this] { logic.Form_Load(); });
}

void frmEditResults::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmEditResults::Refresh() {
    refreshing_ = true;
    FillCombo(comRaceName, logic.comRaceName);
    for (int k = 1; k <= 5; ++k) {
        const auto& state = logic.comRacerName[static_cast<std::size_t>(k)];
        QComboBox* box = comRacerName[static_cast<std::size_t>(k)];
        FillCombo(box, state.list);
        // Red marks a racer entered in two positions until that list changes or OK is pressed.
        box->setStyleSheet(
            state.backColor == kColorWhite ? QString() : QString("QComboBox { background: red; }"));
    }
    Apply(lblClear, logic.lblClear);
    Apply(cmdClear, logic.cmdClear);
    Apply(cmdOK, logic.cmdOK);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(cmdHelp, logic.cmdHelp);
    ApplyFocus(this, logic);
    refreshing_ = false;
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmEditResults::reject() {
    if (!logic.unloaded) {
        bool cancel = false;
        Guard(this, false, [&] { logic.Form_QueryUnload(cancel); });
        Refresh();
        if (cancel || !isVisible()) return;
        logic.Unload();
    }
    QDialog::reject();
}

void frmEditResults::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        cmdCancel->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace tt::gui
