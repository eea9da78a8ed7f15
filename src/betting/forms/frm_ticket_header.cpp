#include "betting/forms/frm_ticket_header.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "model/help_ids.h"
#include "model/race_file.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmTicketHeader::frmTicketHeader(QWidget* parent) : QDialog(parent) {
    setObjectName("frmTicketHeader");
    setProperty("HelpContextID", help::kTicketHeader);
    setSizeGripEnabled(true);

    auto* v = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    auto combo = [&](const char* name, bool completes) {
        auto* box = new QComboBox(this);
        box->setObjectName(name);
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setMinimumWidth(Twips(3600));
        box->setMaxVisibleItems(20);
        if (!completes) box->setCompleter(nullptr);
        return box;
    };
    comRaceName = combo("comRaceName", false);
    comBettor = combo("comBettor", true);
    txtTicketNbr = new QLineEdit(this);
    txtTicketNbr->setObjectName("txtTicketNbr");
    txtTicketNbr->setMaximumWidth(Twips(1200));
    lblRace = new QLabel(this);
    lblBettor = new QLabel(this);
    lblTicketNbr = new QLabel(this);
    lblRace->setBuddy(comRaceName);
    lblBettor->setBuddy(comBettor);
    lblTicketNbr->setBuddy(txtTicketNbr);
    chkDefault = new QCheckBox(this);
    chkDefault->setObjectName("chkDefault");
    chkContinue = new QCheckBox(this);
    chkContinue->setObjectName("chkContinue");
    cmdNewBettor = new QPushButton(this);
    cmdNewBettor->setObjectName("cmdNewBettor");
    g->addWidget(lblRace, 0, 0);
    g->addWidget(comRaceName, 0, 1);
    g->addWidget(chkDefault, 0, 2);
    g->addWidget(lblBettor, 1, 0);
    g->addWidget(comBettor, 1, 1);
    g->addWidget(cmdNewBettor, 1, 2);
    g->addWidget(lblTicketNbr, 2, 0);
    g->addWidget(txtTicketNbr, 2, 1, Qt::AlignLeft);
    g->addWidget(chkContinue, 2, 2);
    g->setColumnStretch(1, 1);
    v->addLayout(g);

    flxBets = new QTableView(this);
    flxBets->setObjectName("flxBets");
    model_ = new GridModel(flxBets);
    flxBets->setModel(model_);
    flxBets->setSelectionBehavior(QAbstractItemView::SelectRows);
    flxBets->setMinimumSize(Twips(7400), Twips(3200));
    v->addWidget(flxBets, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cmdEdit = new QPushButton(this);
    cmdEdit->setObjectName("cmdEdit");
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName("cmdHelp");
    for (QPushButton* b : {cmdEdit, cmdCancel, cmdHelp}) buttons->addWidget(b);
    v->addLayout(buttons);
    const QList<QWidget*> order = {comRaceName, comBettor,    txtTicketNbr, flxBets,     cmdEdit,
                                   cmdCancel,   cmdNewBettor, chkDefault,   chkContinue, cmdHelp};
    for (int k = 1; k < order.size(); ++k) setTabOrder(order[k - 1], order[k]);

    // Choices from the lists; typed text follows the boxes' edits.
    connect(comRaceName, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (refreshing_) return;
        Run([&] {
            logic.comRaceName.Select(index);
            logic.comRaceName_Click();
        });
    });
    connect(comRaceName->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        Run([&] {
            logic.comRaceName.text = S(text);
            logic.comRaceName_Change();
        });
    });
    connect(comBettor, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (refreshing_) return;
        Run([&] {
            logic.comBettor.Select(index);
            logic.comBettor_Click();
        });
    });
    connect(comBettor, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (refreshing_ || S(text) == logic.comBettor.text) return;
        Run([&] {
            logic.comBettor.text = S(text);
            logic.comBettor_Change();
        });
    });
    connect(txtTicketNbr, &QLineEdit::textEdited, this,
            [this](const QString& text) { logic.txtTicketNbr.text = S(text); });
    connect(chkDefault, &QCheckBox::clicked, this, [this](bool on) {
        Run([&] {
            logic.chkDefault.value = on ? 1 : 0;
            logic.chkDefault_Click();
        });
    });
    connect(chkContinue, &QCheckBox::clicked, this, [this](bool on) {
        Run([&] {
            logic.chkContinue.value = on ? 1 : 0;
            logic.chkContinue_Click();
        });
    });
    connect(cmdEdit, &QPushButton::clicked, this, [this] { Run([&] { logic.cmdEdit_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(cmdNewBettor, &QPushButton::clicked, this,
            [this] { Run([&] { logic.cmdNewBettor_Click(); }); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([&] { DisplayContextHelp(AppHelpFile(), help::kTicketHeader, logic.caption); });
    });
    connect(flxBets->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { ListSelectionChanged(); });
    connect(flxBets, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        Run([&] {
            const int row = index.row() + logic.flxBets.FixedRows();
            logic.flxBets.SetRow(row);
            logic.flxBets_DblClick();
        });
    });

    for (QWidget* w : findChildren<QWidget*>())
        if (!w->objectName().isEmpty()) w->installEventFilter(this);

    Run([&] { logic.Form_Load(); });
    // Without the list the window keeps to its boxes; with it, it opens wide enough for the
    // race names.
    if (!logic.flxBetsState.visible)
        layout()->setSizeConstraint(QLayout::SetFixedSize);
    else
        resize(sizeHint().width() + Twips(1500), sizeHint().height() + Twips(1200));
}

frmTicketHeader::~frmTicketHeader() {
    // The grid goes with the logic, before the view that shows it.
    model_->SetGrid(nullptr);
}
int frmTicketHeader::exec() {
    // A window that had nothing to offer went at once.
    if (logic.unloaded) return QDialog::Rejected;
    return QDialog::exec();
}

void frmTicketHeader::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmTicketHeader::Refresh() {
    refreshing_ = true;
    setWindowTitle(Q(logic.caption));
    ShowCombo(comRaceName, logic.comRaceName);
    ShowCombo(comBettor, logic.comBettor);
    Apply(txtTicketNbr, logic.txtTicketNbr);
    Apply(cmdEdit, logic.cmdEdit);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(cmdNewBettor, logic.cmdNewBettor);
    Apply(cmdHelp, logic.cmdHelp);
    Apply(chkDefault, logic.chkDefault);
    Apply(chkContinue, logic.chkContinue);
    Apply(lblRace, logic.lblRace);
    Apply(lblBettor, logic.lblBettor);
    Apply(lblTicketNbr, logic.lblTicketNbr);
    if (logic.flxBetsBuilds != shownBuilds_) {
        shownBuilds_ = logic.flxBetsBuilds;
        model_->SetGrid(&logic.flxBets);
        LayOutColumns(flxBets, logic.flxBets, 2);
    }
    flxBets->setSelectionMode(logic.multiSelect ? QAbstractItemView::ContiguousSelection
                                                : QAbstractItemView::SingleSelection);
    flxBets->setToolTip(Q(logic.flxBetsState.toolTip));
    flxBets->setVisible(logic.flxBetsState.visible);
    ApplyFocusAndSelection(this, logic, logic.selectText);
    refreshing_ = false;
    for (std::vector<QObject*> left = std::exchange(left_, {}); QObject * w : left) LostFocus(w);
    if (logic.unloaded && isVisible()) done(QDialog::Accepted);
}

void frmTicketHeader::ListSelectionChanged() {
    if (refreshing_) return;
    const QModelIndexList rows = flxBets->selectionModel()->selectedRows();
    if (rows.isEmpty()) return;
    int top = rows.first().row(), bottom = top;
    for (const QModelIndex& i : rows) {
        top = std::min(top, i.row());
        bottom = std::max(bottom, i.row());
    }
    // The row the selection was started from stays the current one.
    const int current = flxBets->currentIndex().isValid() ? flxBets->currentIndex().row() : top;
    const int other = current == top ? bottom : top;
    Run([&] {
        const int fixed = logic.flxBets.FixedRows();
        logic.flxBets.SetRow(current + fixed);
        logic.flxBets.SetRowSel(other + fixed);
        logic.flxBets_Click();
    });
}

void frmTicketHeader::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Refresh();
}

bool frmTicketHeader::KeyPress(QObject* watched, QKeyEvent* e) {
    if (const auto taken = TicketWindowKeyDown(this, watched, e)) return *taken;
    if (IsEnterKey(e) && !e->isAutoRepeat()) {
        enter_.Pressed(watched);
        // A new key: whatever box the last one closed, it is gone.
        G.CancelFlag = false;
    }
    int key = CharCodeOf(e);
    if (key == 0 || key == '\t' || key == 27) return false;
    const int typed = key;
    if (watched == comRaceName)
        Run([&] { logic.comRaceName_KeyPress(key); });
    else if (watched == comBettor)
        Run([&] { logic.comBettor_KeyPress(key); });
    else if (watched == txtTicketNbr)
        Run([&] { logic.txtTicketNbr_KeyPress(key); });
    else if (watched == flxBets && typed == 13)
        return true;  // the list acts when the key comes up
    else
        return false;
    return key == 0 || typed == 13;
}

void frmTicketHeader::LostFocus(QObject* watched) {
    if (!logic.unloaded && watched == comRaceName) Run([&] { logic.comRaceName_LostFocus(); });
}

bool frmTicketHeader::eventFilter(QObject* watched, QEvent* event) {
    if (refreshing_) {
        // The focus the window itself moved: the box it left is left once the window is shown.
        if (event->type() == QEvent::FocusOut &&
            UserFocusReason(static_cast<QFocusEvent*>(event)->reason()))
            left_.push_back(watched);
        return QDialog::eventFilter(watched, event);
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            if (KeyPress(watched, static_cast<QKeyEvent*>(event))) return true;
            break;
        case QEvent::KeyRelease: {
            auto* e = static_cast<QKeyEvent*>(event);
            if (!IsEnterKey(e) || e->isAutoRepeat()) break;
            if (!enter_.Released(watched)) return true;
            if (watched == comRaceName)
                Run([&] { logic.comRaceName_KeyUp(13); });
            else if (watched == flxBets)
                Run([&] { logic.flxBets_KeyUp(13); });
            else
                break;
            return true;
        }
        case QEvent::FocusIn:
            if (!UserFocusReason(static_cast<QFocusEvent*>(event)->reason())) break;
            if (watched == comBettor) Run([&] { logic.comBettor_GotFocus(); });
            // Coming into the list chooses a row, so that Enter has a ticket to act on.
            if (watched == flxBets && !flxBets->selectionModel()->hasSelection() &&
                model_->rowCount() > 0)
                flxBets->selectRow(std::max(0, flxBets->currentIndex().row()));
            break;
        case QEvent::FocusOut:
            if (UserFocusReason(static_cast<QFocusEvent*>(event)->reason())) LostFocus(watched);
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void frmTicketHeader::reject() {
    if (!logic.unloaded) Guard(this, false, [&] { logic.cmdCancel_Click(); });
    QDialog::reject();
}

}  // namespace tt::gui
