#pragma once
// "Print" over PrintLogic: the report, the font size, and where the pages go.

#include <QDialog>
#include <functional>

#include "reports/print_logic.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace tt::gui {

class frmPrint : public QDialog {
    Q_OBJECT

  public:
    explicit frmPrint(QWidget* parent = nullptr);

    PrintLogic logic;
    void Refresh();

  public slots:
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Run(const std::function<void()>& event);

    QListWidget* lstReports;
    QLineEdit* txtFontSize;
    QPushButton *cmdOK, *cmdPreview, *cmdPdf, *cmdCancel, *cmdPageSetup, *cmdHelp;
};

}  // namespace tt::gui
