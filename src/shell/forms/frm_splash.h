#pragma once
// The splash window shown while the program starts.

#include <QWidget>

namespace tt::gui {

class frmSplash : public QWidget {
  public:
    explicit frmSplash(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// "Version 2.1.0": the build's major, minor and revision numbers.
QString VersionText();

}  // namespace tt::gui
