#include "payouts/forms/frm_display_payouts.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

namespace {
QTableView* Grid(QWidget* parent, const char* name, GridModel*& model) {
    auto* view = new QTableView(parent);
    view->setObjectName(name);
    model = new GridModel(view);
    view->setModel(model);
    view->setSelectionMode(QAbstractItemView::NoSelection);
    view->setFocusPolicy(Qt::NoFocus);
    view->setWordWrap(false);
    return view;
}
}  // namespace

frmDisplayPayouts::frmDisplayPayouts(QWidget* parent)
    : QWidget(parent),
      placement_(this, DisplayPayoutsLogic::kPlacementKeys, true),
      settled_([this](int race) { settledRace_ = race; }) {
    setObjectName("frmDisplayPayouts");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kDisplayPayouts);

    auto* v = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    comRaceName = new QComboBox(this);
    comRaceName->setObjectName("comRaceName");
    comRaceName->setMinimumWidth(Twips(3600));
    auto* lblRace = new QLabel("For &Race:", this);
    lblRace->setBuddy(comRaceName);
    chkDefault = new QCheckBox(this);
    chkDefault->setObjectName("chkDefault");
    top->addWidget(lblRace);
    top->addWidget(comRaceName);
    top->addSpacing(Twips(240));
    top->addWidget(chkDefault);
    top->addStretch();
    v->addLayout(top);

    auto* middle = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    fraResults = new QGroupBox(this);
    fraResults->setObjectName("fraResults");
    auto* results = new QGridLayout(fraResults);
    static const char* const kPlaces[] = {"", "1st:", "2nd:", "3rd:", "4th:", "5th:"};
    for (int k = 1; k <= 5; ++k) {
        auto* e = new QLineEdit(fraResults);
        e->setObjectName(QString("txtRacerName%1").arg(k));
        e->setReadOnly(true);
        e->setFocusPolicy(Qt::NoFocus);
        e->setMinimumWidth(Twips(2700));
        results->addWidget(new QLabel(kPlaces[k], fraResults), k - 1, 0);
        results->addWidget(e, k - 1, 1);
        txtRacerName[static_cast<std::size_t>(k)] = e;
    }
    fraResults->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    left->addWidget(fraResults);

    fraAutoRun = new QGroupBox(this);
    fraAutoRun->setObjectName("fraAutoRun");
    auto* autoRun = new QHBoxLayout(fraAutoRun);
    fraOnOff = new QGroupBox(fraAutoRun);
    fraOnOff->setObjectName("fraOnOff");
    auto* onOff = new QHBoxLayout(fraOnOff);
    optAutoOn = new QRadioButton(fraOnOff);
    optAutoOn->setObjectName("optAutoOn");
    optAutoOff = new QRadioButton(fraOnOff);
    optAutoOff->setObjectName("optAutoOff");
    onOff->addWidget(optAutoOn);
    onOff->addWidget(optAutoOff);
    autoRun->addWidget(fraOnOff);
    txtInterval = new QLineEdit(fraAutoRun);
    txtInterval->setObjectName("txtInterval");
    txtInterval->setMaximumWidth(Twips(600));
    txtInterval->installEventFilter(this);
    auto* lblInterval = new QLabel("&Interval (sec'ds)", fraAutoRun);
    lblInterval->setBuddy(txtInterval);
    autoRun->addWidget(txtInterval);
    autoRun->addWidget(lblInterval);
    autoRun->addStretch();
    fraAutoRun->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    left->addWidget(fraAutoRun);
    left->addStretch();

    auto* buttons = new QHBoxLayout;
    cmdEditResults = new QPushButton(this);
    cmdEditResults->setObjectName("cmdEditResults");
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    buttons->addWidget(cmdEditResults);
    buttons->addWidget(cmdCancel);
    buttons->addStretch();
    left->addLayout(buttons);
    middle->addLayout(left);

    fraPayouts = new QGroupBox(this);
    fraPayouts->setObjectName("fraPayouts");
    auto* payouts = new QVBoxLayout(fraPayouts);
    flxWPS = Grid(fraPayouts, "flxWPS", wpsModel_);
    flxPayouts = Grid(fraPayouts, "flxPayouts", payoutsModel_);
    flxWPS->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    flxWPS->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    flxWPS->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    flxWPS->setMinimumWidth(Twips(4 * 805) + 4);
    flxPayouts->setMinimumSize(Twips(4 * 805) + 4, Twips(1500));
    payouts->addWidget(flxWPS);
    payouts->addWidget(flxPayouts, 1);
    middle->addWidget(fraPayouts, 1);
    v->addLayout(middle, 1);

    connect(comRaceName, &QComboBox::currentIndexChanged, this, [this](int index) {
        Run([&] {
            logic.comRaceName.SetListIndex(index);
            logic.comRaceName_Click();
        });
    });
    connect(chkDefault, &QCheckBox::clicked, this, [this](bool on) {
        Run([&] {
            logic.chkDefault.value = on ? 1 : 0;
            logic.chkDefault_Click();
        });
    });
    connect(optAutoOn, &QRadioButton::clicked, this, [this] {
        Run([this] {
            logic.optAutoOn.value = -1;
            logic.optAutoOff.value = 0;
        });
    });
    connect(optAutoOff, &QRadioButton::clicked, this, [this] {
        Run([this] {
            logic.optAutoOn.value = 0;
            logic.optAutoOff.value = -1;
        });
    });
    connect(txtInterval, &QLineEdit::textEdited, this,
            [this](const QString& text) { Run([&] { logic.txtInterval.text = S(text); }); });
    connect(cmdEditResults, &QPushButton::clicked, this, [this] { EditResults(); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }); });

    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(logic.Timer1Interval);
    connect(Timer1, &QTimer::timeout, this, [this] {
        // A tick that waits on a message box lets no other tick in.
        if (ticking_) return;
        ticking_ = true;
        // The grids change at once, not row by row.
        fraPayouts->setUpdatesEnabled(false);
        Run([this] { logic.Timer1_Timer(); });
        fraPayouts->setUpdatesEnabled(true);
        ticking_ = false;
    });
    Timer1->start();

    Run([this] { logic.Form_Load(); });
}

frmDisplayPayouts::~frmDisplayPayouts() {
    // The grids go with the logic, before the views that show them.
    wpsModel_->SetGrid(nullptr);
    payoutsModel_->SetGrid(nullptr);
}

void frmDisplayPayouts::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmDisplayPayouts::Refresh() {
    refreshing_ = true;
    setWindowTitle(Q(logic.caption));
    FillCombo(comRaceName, logic.comRaceName);
    Apply(chkDefault, logic.chkDefault);
    fraResults->setTitle(Q(logic.fraResults.text));
    fraPayouts->setTitle(Q(logic.fraPayouts.text));
    fraAutoRun->setTitle(Q(logic.fraAutoRun.text));
    fraOnOff->setTitle(Q(logic.fraOnOff.text));
    for (int k = 1; k <= 5; ++k)
        Apply(txtRacerName[static_cast<std::size_t>(k)], logic.txtRacerName(k));

    wpsModel_->SetGrid(&logic.flxWPS);
    ApplyGridLayout(flxWPS, logic.flxWPS);
    flxWPS->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    flxWPS->setFixedHeight(flxWPS->horizontalHeader()->sizeHint().height() +
                           flxWPS->verticalHeader()->length() + 2 * flxWPS->frameWidth());
    payoutsModel_->SetGrid(&logic.flxPayouts);
    ApplyGridLayout(flxPayouts, logic.flxPayouts);
    flxPayouts->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    if (logic.flxPayouts.Cols() > 1)
        flxPayouts->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    Apply(cmdEditResults, logic.cmdEditResults);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(optAutoOn, logic.optAutoOn);
    Apply(optAutoOff, logic.optAutoOff);
    Apply(txtInterval, logic.txtInterval);

    // An interval of 0 stops the timer, and nothing starts it again.
    if (logic.Timer1Interval <= 0)
        Timer1->stop();
    else if (Timer1->isActive() && Timer1->interval() != logic.Timer1Interval)
        Timer1->setInterval(logic.Timer1Interval);

    ApplyFocus(this, logic);
    refreshing_ = false;
    if (logic.unloaded) Unload();
}

void frmDisplayPayouts::RefreshContents() {
    if (settledRace_) {
        // A race settled since is shown as if the window were newly opened on it.
        const int race = *settledRace_;
        settledRace_.reset();
        Run([&] { logic.ShowSettledRace(race); });
        return;
    }
    Refresh();
}

void frmDisplayPayouts::EditResults() {
    // The window is gone before Edit Results opens, so that saving there opens a newly loaded
    // payout display, and cancelling leaves none.
    placement_.Save();
    Timer1->stop();
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->setWidget(nullptr);
        sub->close();
    }
    setParent(nullptr);
    hide();
    Guard(this, false, [this] { logic.cmdEditResults_Click(); });
    deleteLater();
}

void frmDisplayPayouts::Unload() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        close();
}

void frmDisplayPayouts::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    placement_.Restore();
}

void frmDisplayPayouts::closeEvent(QCloseEvent* event) {
    placement_.Save();
    Timer1->stop();
    event->accept();
}

bool frmDisplayPayouts::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtInterval && !refreshing_) {
        if (event->type() == QEvent::FocusIn) {
            QTimer::singleShot(0, txtInterval, [e = txtInterval] { e->selectAll(); });
        } else if (event->type() == QEvent::KeyPress) {
            const QString t = static_cast<QKeyEvent*>(event)->text();
            if (!t.isEmpty()) {
                int key = t.at(0).unicode();
                Guard(this, false, [&] { logic.txtInterval_KeyPress(key); });
                if (key == 0) return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tt::gui
