#include "shell/forms/frm_initial_open.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"
#include "shell/startup.h"

namespace tt::gui {

frmInitialOpen::frmInitialOpen(QWidget* parent) : QDialog(parent) {
    setObjectName("frmInitialOpen");
    setWindowTitle("Open a Tamberlin Tally File");
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty("HelpContextID", help::kInitialOpen);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel("Double-click on a file to open or select and select Open::", this));
    lstFiles = new QListWidget(this);
    lstFiles->setObjectName("lstFiles");
    lstFiles->setMinimumSize(420, 160);
    for (const std::string& entry : InitialOpenEntries()) lstFiles->addItem(Q(entry));
    lstFiles->setCurrentRow(0);
    layout->addWidget(lstFiles);
    auto* buttons = new QHBoxLayout;
    cmdOpen = new QPushButton("Open", this);
    cmdOpen->setObjectName("cmdOpen");
    cmdOpen->setToolTip("Open the selected file.");
    cmdOpen->setDefault(true);
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    cmdCancel->setToolTip("Close this window without opening a file.");
    cmdHelp = new QPushButton("Help", this);
    cmdHelp->setObjectName("cmdHelp");
    buttons->addStretch();
    buttons->addWidget(cmdOpen);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdHelp);
    layout->addLayout(buttons);

    connect(cmdOpen, &QPushButton::clicked, this, [this] { cmdOpen_Click(); });
    connect(lstFiles, &QListWidget::itemDoubleClicked, this, [this] { cmdOpen_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { close(); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Guard(this, false,
              [&] { DisplayContextHelp(AppHelpFile(), help::kInitialOpen, S(windowTitle())); });
    });
}

void frmInitialOpen::cmdOpen_Click() {
    Guard(this, true, [&] {
        QListWidgetItem* item = lstFiles->currentItem();
        bool selected = item && item->isSelected();
        std::string entry = item ? S(item->text()) : std::string();
        // The chooser goes out of the way of what its choice opens.
        hide();
        if (InitialOpenChoose(entry, selected)) {
            close();
        } else {
            show();
        }
    });
}

}  // namespace tt::gui
