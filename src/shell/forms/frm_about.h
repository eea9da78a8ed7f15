#pragma once
// The About box: the program's icon and name, the version of the build, its licence, and the
// system information.

#include <QDialog>
#include <string>

class QLabel;
class QPushButton;

namespace tt::gui {

class frmAbout : public QDialog {
    Q_OBJECT

  public:
    explicit frmAbout(QWidget* parent = nullptr);
    // Shows the operating system, the Qt version, and where the settings and the recovery
    // file live.
    void cmdSysInfo_Click();

    QLabel* imgIcon;
    QLabel* lblTitle;
    QLabel* lblVersion;
    QLabel* lblDescription;
    QLabel* lblLicence;
    QPushButton* cmdOK;
    QPushButton* cmdSysInfo;
};

// The licence line of the box.
QString LicenceText();

// The lines of the system information.
std::string SystemInfoText();

}  // namespace tt::gui
