#include "reports/forms/frm_print.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

frmPrint::frmPrint(QWidget* parent) : QDialog(parent) {
    setObjectName("frmPrint");
    setProperty("HelpContextID", help::kPrint);
    Guard(this, false, [this] { logic.Form_Load(); });
    setWindowTitle(Q(logic.caption));

    auto* grid = new QGridLayout(this);
    auto* lblReports = new QLabel(Q(logic.lblReports.text), this);
    lstReports = new QListWidget(this);
    lstReports->setObjectName("lstReports");
    lblReports->setBuddy(lstReports);
    lstReports->setMinimumSize(Twips(3600), Twips(1300));
    auto* left = new QVBoxLayout;
    left->addWidget(lblReports);
    left->addWidget(lstReports, 1);
    auto* font = new QHBoxLayout;
    auto* lblFontSize = new QLabel(Q(logic.lblFontSize.text), this);
    txtFontSize = new QLineEdit(this);
    txtFontSize->setObjectName("txtFontSize");
    txtFontSize->setMaximumWidth(Twips(700));
    txtFontSize->installEventFilter(this);
    lblFontSize->setBuddy(txtFontSize);
    font->addWidget(lblFontSize);
    font->addWidget(txtFontSize);
    font->addStretch();
    left->addLayout(font);
    grid->addLayout(left, 0, 0);

    auto* buttons = new QVBoxLayout;
    auto button = [&](QPushButton*& b, const ControlState& s, const char* name) {
        b = new QPushButton(Q(s.text), this);
        b->setObjectName(name);
        b->setToolTip(Q(s.toolTip));
        b->setAutoDefault(false);
        buttons->addWidget(b);
    };
    button(cmdOK, logic.cmdOK, "cmdOK");
    button(cmdPreview, logic.cmdPreview, "cmdPreview");
    button(cmdPdf, logic.cmdPdf, "cmdPdf");
    button(cmdCancel, logic.cmdCancel, "cmdCancel");
    buttons->addSpacing(Twips(120));
    button(cmdPageSetup, logic.cmdPageSetup, "cmdPageSetup");
    button(cmdHelp, logic.cmdHelp, "cmdHelp");
    buttons->addStretch();
    cmdOK->setDefault(true);
    grid->addLayout(buttons, 0, 1);

    // The report chosen is the one shown selected, not merely the one the focus came to.
    connect(lstReports, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> chosen = lstReports->selectedItems();
        logic.lstReports.SetListIndex(chosen.isEmpty() ? -1 : lstReports->row(chosen.first()));
    });
    connect(lstReports, &QListWidget::itemDoubleClicked, this,
            [this] { Run([this] { logic.lstReports_DblClick(); }); });
    connect(txtFontSize, &QLineEdit::textEdited, this,
            [this](const QString& text) { logic.txtFontSize.text = S(text); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { Run([this] { logic.cmdOK_Click(); }); });
    connect(cmdPreview, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdPreview_Click(); }); });
    connect(cmdPdf, &QPushButton::clicked, this, [this] { Run([this] { logic.cmdPdf_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(cmdPageSetup, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdPageSetup_Click(); }); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Guard(this, false, [&] { DisplayContextHelp(AppHelpFile(), help::kPrint, logic.caption); });
    });
    Refresh();
    lstReports->setFocus();
}

void frmPrint::Run(const std::function<void()>& event) {
    Guard(this, false, event);
    Refresh();
}

void frmPrint::Refresh() {
    setWindowTitle(Q(logic.caption));
    FillList(lstReports, logic.lstReports);
    Apply(txtFontSize, logic.txtFontSize);
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmPrint::reject() {
    if (!logic.unloaded) logic.cmdCancel_Click();
    QDialog::reject();
}

bool frmPrint::eventFilter(QObject* watched, QEvent* event) {
    // The font size is selected whole when it gets the focus.
    if (watched == txtFontSize && event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, txtFontSize, [e = txtFontSize] { e->selectAll(); });
    return QDialog::eventFilter(watched, event);
}

}  // namespace tt::gui
