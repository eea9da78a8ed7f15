#pragma once
// The one top-level window: a multiple-document frame with the menu, the toolbar, the status
// bar and the child windows.

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "model/ports.h"

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QToolBar;
class QToolButton;

namespace tt::gui {

class frmLogo;

class frmMain : public QMainWindow, public ShellPort {
    Q_OBJECT

  public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // Reads the placement and the recent files, disables the commands, shows the launch pad.
    void MDIForm_Load();

    QMdiArea* MdiArea() const { return mdi_; }
    QAction* Action(const std::string& name) const;
    QToolBar* ToolBar() const { return toolBar_; }
    // The toolbar button with this key ("MRU", "Save", ..., "Help"); null for another key.
    QToolButton* ToolButton(const std::string& key) const;
    // The launch pad, creating it when needed.
    frmLogo* Logo();
    // Runs the toolbar button with this key, as a click does.
    void tbToolBar_ButtonClick(const std::string& key);

    // ShellPort.
    void SetBusy(bool busy) override;
    void DoEvents() override;
    void SetTitle(const std::string& title) override;
    void ShowMru(const std::array<std::string, 4>& captions) override;
    void EnableFileGroup(bool on) override;
    void EnableRaceGroup(bool on) override;
    void CloseChildWindows() override;
    void ShowLogo() override;
    void ShowForm(const std::string& name, bool modal) override;
    void UnloadForm(const std::string& name) override;
    bool IsFormLoaded(const std::string& name) override;
    std::string StatusText() override;
    std::string ActiveChild() override;
    void UnloadDisplays(bool withTransaction) override;

    // The window arrangements of the Window menu: 0 cascade, 1 tile horizontally, 2 tile
    // vertically, 3 arrange icons.
    void Arrange(int mode);

    QMenu* createPopupMenu() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Command {
        QAction* action;
        int group;              // 0 always, 1 needs an open card, 2 needs a race
        std::string needsForm;  // the window it opens; disabled until that window exists
    };
    QAction* AddAction(QMenu* menu, const char* name, const QString& caption,
                       std::function<void()> run, int group = 0, std::string needsForm = {},
                       const QKeySequence& shortcut = {});
    // A toolbar button: the key, the tool tip, the action it shares (a menu entry's, but for the
    // most recent file), and whether a separator comes before it.
    struct ToolbarEntry {
        const char* key;
        const char* toolTip;
        QAction* action;
        bool groupStart;
    };
    // The menus, and the toolbar over their actions.
    void BuildMenus();
    void BuildToolBar(const std::vector<ToolbarEntry>& buttons);
    void BuildStatusBar();
    void UpdateEnabled();
    void RememberPlacement();
    void UpdateClock();
    QMdiSubWindow* SubWindowOf(const std::string& name) const;

    QMdiArea* mdi_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    QLabel* statusPanel_ = nullptr;
    QLabel* datePanel_ = nullptr;
    QLabel* timePanel_ = nullptr;
    std::map<std::string, QAction*> actions_;
    std::map<std::string, QToolButton*> toolButtons_;
    std::vector<Command> commands_;
    std::array<QAction*, 4> mru_{};
    bool fileGroup_ = false;
    bool raceGroup_ = false;
    int busy_ = 0;
    bool loaded_ = false;
    std::map<std::string, QPointer<QWidget>> children_;
};

}  // namespace tt::gui
