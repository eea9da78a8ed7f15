#pragma once
// The chooser of the first file: the recent files, "More Files..." and "Start a new file".

#include <QDialog>

class QListWidget;
class QPushButton;

namespace tt::gui {

class frmInitialOpen : public QDialog {
    Q_OBJECT

  public:
    explicit frmInitialOpen(QWidget* parent = nullptr);

    void cmdOpen_Click();
    QListWidget* lstFiles;
    QPushButton* cmdOpen;
    QPushButton* cmdCancel;
    QPushButton* cmdHelp;
};

}  // namespace tt::gui
