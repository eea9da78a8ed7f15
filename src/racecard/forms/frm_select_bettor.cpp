#include "racecard/forms/frm_select_bettor.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"
#include "shell/startup.h"

namespace tt::gui {

frmSelectBettor::frmSelectBettor(QWidget* parent) : QDialog(parent) {
    setObjectName("frmSelectBettor");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kSelectBettor);
    auto* h = new QHBoxLayout(this);
    lstBettors = new QListWidget(this);
    lstBettors->setObjectName("lstBettors");
    lstBettors->setMinimumSize(Twips(3500), Twips(3500));
    connect(lstBettors, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= -1 && row < logic.lstBettors.ListCount()) logic.lstBettors.SetListIndex(row);
    });
    connect(lstBettors, &QListWidget::itemDoubleClicked, this,
            [this] { Run([&] { logic.lstBettors_DblClick(); }); });
    h->addWidget(lstBettors);
    auto* v = new QVBoxLayout;
    auto push = [&](const ControlState& s, const char* name, std::function<void()> click) {
        auto* b = new QPushButton(Q(s.text), this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, click] { Run(click); });
        v->addWidget(b);
        return b;
    };
    push(logic.cmdNew, "cmdNew", [this] { logic.cmdNew_Click(); });
    push(logic.cmdEdit, "cmdEdit", [this] { logic.cmdEdit_Click(); })->setDefault(true);
    push(logic.cmdDelete, "cmdDelete", [this] { logic.cmdDelete_Click(); });
    v->addStretch();
    push(logic.cmdCancel, "cmdCancel", [this] { logic.cmdCancel_Click(); });
    push(logic.cmdHelp, "cmdHelp",
         [this] { DisplayContextHelp(AppHelpFile(), help::kSelectBettor, logic.caption); });
    h->addLayout(v);
    Run([&] { logic.Form_Load(); });
}

void frmSelectBettor::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    logic.centerOnScreen = true;
    Refresh();
}

void frmSelectBettor::Run(const std::function<void()>& event) {
    Guard(this, false, event);
    Refresh();
}

void frmSelectBettor::Refresh() {
    FillList(lstBettors, logic.lstBettors);
    if (logic.lstBettorsScrollTo >= 0 && logic.lstBettorsScrollTo < lstBettors->count())
        lstBettors->scrollToItem(lstBettors->item(logic.lstBettorsScrollTo));
    if (logic.lstBettors.HasSelection())
        lstBettors->scrollToItem(lstBettors->item(logic.lstBettors.ListIndex()));
    if (logic.centerOnScreen && isVisible()) {
        logic.centerOnScreen = false;
        if (QScreen* screen = this->screen()) {
            QRect area = screen->geometry();
            QRect frame = frameGeometry();
            Placement p = CenterOnScreen({0, 0, ToTwips(frame.width()), ToTwips(frame.height())},
                                         ToTwips(area.width()), ToTwips(area.height()));
            move(area.left() + Twips(p.left), area.top() + Twips(p.top));
        }
    }
    if (logic.unloaded) done(QDialog::Accepted);
}

}  // namespace tt::gui
