#include "shell/forms/frm_about.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSysInfo>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "shell/forms/frm_splash.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

std::string SystemInfoText() {
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, "TamberlinTally",
                       "TamberlinTally");
    std::string recovery = RF.RecoveryFile;
    recovery.erase(0, recovery.find_first_not_of(' '));
    if (!RF.RecoveryFlag || recovery.empty()) recovery = "not in use";
    std::string open = G.FilePath.empty() ? std::string("no file open") : G.FilePath;
    return "Tamberlin Tally " + S(VersionText()) + kCrLf + kCrLf +  //
           "Operating system: " + S(QSysInfo::prettyProductName()) + " (" +
           S(QSysInfo::kernelType()) + " " + S(QSysInfo::kernelVersion()) + ", " +
           S(QSysInfo::currentCpuArchitecture()) + ")" + kCrLf +  //
           "Qt version: " + qVersion() + kCrLf +                  //
           "Settings: " + S(settings.fileName()) + kCrLf +        //
           "Race file: " + open + kCrLf +                         //
           "Recovery file: " + recovery;
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("About Tamberlin Tally");
    setProperty("HelpContextID", help::kAbout);
    auto* layout = new QVBoxLayout(this);
    lblTitle = new QLabel("Tamberlin Tally", this);
    lblTitle->setObjectName("lblTitle");
    QFont f = lblTitle->font();
    f.setPointSizeF(f.pointSizeF() * 2);
    f.setBold(true);
    f.setItalic(true);
    lblTitle->setFont(f);
    lblVersion = new QLabel(VersionText(), this);
    lblVersion->setObjectName("lblVersion");
    lblDescription = new QLabel(
        "A betting manager for private race days: the race card, the betting window, pools and "
        "odds, "
        "results and payouts, ticket by ticket.",
        this);
    lblDescription->setObjectName("lblDescription");
    lblDescription->setWordWrap(true);
    layout->addWidget(lblTitle);
    layout->addWidget(lblVersion);
    layout->addSpacing(8);
    layout->addWidget(lblDescription);
    layout->addStretch();
    auto* buttons = new QHBoxLayout;
    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdSysInfo = new QPushButton("&System Info...", this);
    cmdSysInfo->setObjectName("cmdSysInfo");
    cmdSysInfo->setToolTip(
        "Show the system, the Qt version and where the settings and files live.");
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    layout->addLayout(buttons);
    setMinimumWidth(Twips(6000));

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this,
            [this] { Guard(this, false, [this] { cmdSysInfo_Click(); }); });
}

void frmAbout::cmdSysInfo_Click() {
    MsgBox(SystemInfoText(), Buttons::kOK, Icon::kInformation, "System Information");
}

}  // namespace tt::gui
