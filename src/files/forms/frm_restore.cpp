#include "files/forms/frm_restore.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "files/forms/grid_fit.h"
#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmRestore::frmRestore(QWidget* parent) : QDialog(parent) {
    setObjectName("frmRestore");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kRestore);

    auto button = [this](const char* name) {
        auto* b = new QPushButton(this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        return b;
    };
    auto label = [this](const char* name) {
        auto* l = new QLabel(this);
        l->setObjectName(name);
        return l;
    };

    auto* v = new QVBoxLayout(this);
    auto* marks = new QHBoxLayout;
    cmdInclude = button("cmdInclude");
    cmdDoNotInclude = button("cmdDoNotInclude");
    lblInclude = label("lblInclude");
    marks->addWidget(cmdInclude);
    marks->addWidget(cmdDoNotInclude);
    marks->addSpacing(Twips(240));
    marks->addWidget(lblInclude);
    marks->addStretch();
    v->addLayout(marks);

    flxRecovery = new QTableView(this);
    flxRecovery->setObjectName("flxRecovery");
    model_ = new GridModel(flxRecovery);
    flxRecovery->setModel(model_);
    flxRecovery->setWordWrap(false);
    flxRecovery->setMinimumHeight(Twips(4200));
    v->addWidget(flxRecovery, 1);

    auto* actions = new QGridLayout;
    cmdOK = button("cmdOK");
    cmdClear = button("cmdClear");
    lblRestore = label("lblRestore");
    lblClear = label("lblClear");
    actions->addWidget(cmdOK, 0, 0);
    actions->addWidget(lblRestore, 0, 1);
    actions->addWidget(cmdClear, 1, 0);
    actions->addWidget(lblClear, 1, 1);
    actions->setColumnStretch(2, 1);
    v->addLayout(actions);

    auto* bottom = new QHBoxLayout;
    lblLastSave = label("lblLastSave");
    lblSaved = label("lblSaved");
    lblSaved->setFrameShape(QFrame::StyledPanel);
    lblSaved->setMinimumWidth(Twips(2400));
    cmdCancel = button("cmdCancel");
    cmdHelp = button("cmdHelp");
    bottom->addWidget(lblLastSave);
    bottom->addWidget(lblSaved);
    bottom->addStretch();
    bottom->addWidget(cmdCancel);
    bottom->addWidget(cmdHelp);
    v->addLayout(bottom);

    connect(cmdInclude, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdInclude_Click(); }, false); });
    connect(cmdDoNotInclude, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdDoNotInclude_Click(); }, false); });
    connect(flxRecovery, &QTableView::doubleClicked, this,
            [this] { Run([this] { logic.flxRecovery_DblClick(); }, false); });
    connect(cmdOK, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdOK_Click(); }, false); });
    connect(cmdClear, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdClear_Click(); }, true); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }, false); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([this] { DisplayContextHelp(AppHelpFile(), help::kRestore, logic.caption); }, false);
    });

    Guard(this, false, [this] { logic.Form_Load(); });
    Refresh(true);
    resize(sizeHint().width(), Twips(8400));
}

void frmRestore::TakeSelection() {
    GridData& grid = logic.flxRecovery;
    const QModelIndexList rows = flxRecovery->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        grid.SetRow(0);
        return;
    }
    auto [low, high] = std::minmax_element(
        rows.begin(), rows.end(),
        [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    const int fixed = grid.FixedRows();
    if (high->row() + fixed >= grid.Rows()) return;
    grid.SetRow(low->row() + fixed);
    grid.SetRowSel(high->row() + fixed);
}

void frmRestore::Run(const std::function<void()>& event, bool reload) {
    Guard(this, false, [&] {
        TakeSelection();
        event();
    });
    Refresh(reload);
}

void frmRestore::Refresh(bool reload) {
    if (reload) {
        model_->SetGrid(&logic.flxRecovery);
        ApplyGridLayout(flxRecovery, logic.flxRecovery);
        flxRecovery->setSelectionMode(QAbstractItemView::ContiguousSelection);
        flxRecovery->horizontalHeader()->setSectionsClickable(false);
        FitColumns(flxRecovery);
    } else if (model_->rowCount() > 0) {
        // The marks change in place, so the selection stays where the user put it.
        emit model_->dataChanged(model_->index(0, 0),
                                 model_->index(model_->rowCount() - 1, model_->columnCount() - 1));
    }
    Apply(cmdInclude, logic.cmdInclude);
    Apply(cmdDoNotInclude, logic.cmdDoNotInclude);
    Apply(cmdOK, logic.cmdOK);
    Apply(cmdClear, logic.cmdClear);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(cmdHelp, logic.cmdHelp);
    Apply(lblInclude, logic.lblInclude);
    Apply(lblRestore, logic.lblRestore);
    Apply(lblClear, logic.lblClear);
    Apply(lblLastSave, logic.lblLastSave);
    Apply(lblSaved, logic.lblSaved);
    if (logic.unloaded) done(QDialog::Accepted);
}

}  // namespace tt::gui
