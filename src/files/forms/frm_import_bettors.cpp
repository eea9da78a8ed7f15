#include "files/forms/frm_import_bettors.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "files/forms/grid_fit.h"
#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmImportBettors::frmImportBettors(QWidget* parent) : QDialog(parent) {
    setObjectName("frmImportBettors");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kImportBettors);

    auto* v = new QVBoxLayout(this);
    lblBettorInfo = new QLabel(this);
    lblBettorInfo->setObjectName("lblBettorInfo");
    v->addWidget(lblBettorInfo);

    flxBettor = new QTableView(this);
    flxBettor->setObjectName("flxBettor");
    model_ = new GridModel(flxBettor);
    flxBettor->setModel(model_);
    flxBettor->setWordWrap(false);
    flxBettor->setMinimumHeight(Twips(3600));
    v->addWidget(flxBettor, 1);

    lblInstructions = new QLabel(this);
    lblInstructions->setObjectName("lblInstructions");
    lblInstructions->setWordWrap(true);
    lblInstructions2 = new QLabel(this);
    lblInstructions2->setObjectName("lblInstructions2");
    lblInstructions2->setWordWrap(true);
    v->addWidget(lblInstructions);
    v->addWidget(lblInstructions2);

    auto* buttons = new QHBoxLayout;
    cmdOK = new QPushButton(this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    cmdCancel->setAutoDefault(false);
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName("cmdHelp");
    cmdHelp->setAutoDefault(false);
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) buttons->addWidget(b);
    v->addLayout(buttons);

    // A click on a cell is the grid's Click; the header takes none.
    connect(flxBettor, &QTableView::clicked, this, [this](const QModelIndex& index) {
        Run([&] {
            GridData& grid = logic.flxBettor;
            grid.SetRow(index.row() + grid.FixedRows());
            grid.SetCol(index.column());
            logic.flxBettor_Click();
        });
    });
    connect(cmdOK, &QPushButton::clicked, this, [this] { Run([this] { logic.cmdOK_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([this] { DisplayContextHelp(AppHelpFile(), help::kImportBettors, logic.caption); });
    });

    Guard(this, false, [this] { logic.Form_Load(); });
    model_->SetGrid(&logic.flxBettor);
    ApplyGridLayout(flxBettor, logic.flxBettor);
    flxBettor->setSelectionBehavior(QAbstractItemView::SelectItems);
    flxBettor->setSelectionMode(QAbstractItemView::SingleSelection);
    flxBettor->horizontalHeader()->setSectionsClickable(false);
    flxBettor->horizontalHeader()->setFixedHeight(Twips(logic.flxBettor.RowHeight(0)));
    // Every action fits, whatever rows are shown now.
    flxBettor->setColumnWidth(
        ImportBettorsLogic::kAction,
        std::max(flxBettor->columnWidth(ImportBettorsLogic::kAction),
                 flxBettor->fontMetrics().horizontalAdvance("Keep current") + Twips(180)));
    FitColumns(flxBettor);
    if (model_->rowCount() > 0) flxBettor->setCurrentIndex(model_->index(0, 0));
    Refresh();
    resize(std::max(sizeHint().width(), Twips(6600)), sizeHint().height());
}

void frmImportBettors::Run(const std::function<void()>& event) {
    Guard(this, false, event);
    Refresh();
}

void frmImportBettors::Refresh() {
    if (model_->rowCount() > 0)
        emit model_->dataChanged(model_->index(0, 0),
                                 model_->index(model_->rowCount() - 1, model_->columnCount() - 1));
    Apply(lblBettorInfo, logic.lblBettorInfo);
    Apply(lblInstructions, logic.lblInstructions);
    Apply(lblInstructions2, logic.lblInstructions2);
    Apply(cmdOK, logic.cmdOK);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(cmdHelp, logic.cmdHelp);
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmImportBettors::reject() {
    if (!logic.unloaded) Guard(this, false, [this] { logic.cmdCancel_Click(); });
    QDialog::reject();
}

}  // namespace tt::gui
