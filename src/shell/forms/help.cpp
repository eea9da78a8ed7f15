#include "shell/forms/help.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include "model/help_ids.h"
#include "model/ports.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help_viewer.h"
#include "shell/help_topics.h"

// The help pages are compiled into the forms library; a static library needs them pulled in.
static void InitHelpResources() {
    Q_INIT_RESOURCE(tlyhelp);
}

namespace tt::gui {

namespace {

QPointer<HelpViewer>& Viewer() {
    static QPointer<HelpViewer> viewer;
    return viewer;
}

void NoHelp(const std::string& title) {
    Beep();
    MsgBox("Unable to display Help Contents. There is no Help associated with this project.",
           Buttons::kOK, Icon::kInformation, title);
}

bool PageExists(const std::string& helpFile, const HelpTopic* topic) {
    static const bool loaded = (InitHelpResources(), true);
    return loaded && !helpFile.empty() && topic &&
           QFile::exists(":/" + Q(helpFile) + "/" + Q(topic->file));
}

QWidget* MainWindow() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == "frmMain") return w;
    return nullptr;
}

// The viewer, brought up over the window that asks. A modal window blocks every other window
// but its own, so the viewer then belongs to it for as long as it is open.
HelpViewer* OpenViewer(const std::string& helpFile) {
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner) owner = MainWindow();
    if (!Viewer()) {
        Viewer() = new HelpViewer(helpFile, owner);
    } else if (Viewer()->parentWidget() != owner) {
        QRect where = Viewer()->geometry();
        Viewer()->setParent(owner, Qt::Window);
        Viewer()->setGeometry(where);
    }
    Viewer()->show();
    Viewer()->raise();
    Viewer()->activateWindow();
    return Viewer();
}

// Shows the topic of a context; a context without a page gets the message of missing help.
void ShowContext(const std::string& helpFile, int contextId, const std::string& title) {
    const HelpTopic* topic = HelpTopicFor(contextId);
    if (!PageExists(helpFile, topic)) {
        NoHelp(title);
        return;
    }
    OpenViewer(helpFile)->ShowTopic(*topic);
}

QMdiSubWindow* ActiveChild(QWidget* mainWindow) {
    auto* mdi = mainWindow ? mainWindow->findChild<QMdiArea*>() : nullptr;
    if (!mdi) return nullptr;
    QMdiSubWindow* sub = mdi->currentSubWindow();
    return sub && sub->isVisible() ? sub : nullptr;
}

int ContextOf(QMdiSubWindow* child) {
    QWidget* w = child->widget();
    return w ? w->property("HelpContextID").toInt() : 0;
}

enum class NoChild { kContents, kSearch };

void HelpSteps(QWidget* mainWindow, int contextId, NoChild noChild) {
    const std::string& file = AppHelpFile();
    if (file.empty()) {
        NoHelp({});
        return;
    }
    if (QMdiSubWindow* child = ActiveChild(mainWindow)) {
        ShowContext(file, contextId != 0 ? contextId : ContextOf(child), {});
        return;
    }
    const HelpTopic* overview = HelpTopicFor(help::kOverview);
    if (!PageExists(file, overview)) {
        NoHelp({});
        return;
    }
    HelpViewer* viewer = OpenViewer(file);
    viewer->ShowTopic(*overview);
    if (noChild == NoChild::kSearch) viewer->ShowSearch();
}

// F1: the help context of the focused window, its own or that of the nearest window holding it.
class HelpKey : public QObject {
  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress ||
            static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
            return false;
        if (!watched->isWidgetType()) return false;
        QWidget* w = QApplication::focusWidget() ? QApplication::focusWidget()
                                                 : static_cast<QWidget*>(watched);
        if (w->window() && w->window()->objectName() == "HelpViewer") return true;
        for (QWidget* p = w; p; p = p->parentWidget()) {
            int id = p->property("HelpContextID").toInt();
            if (id != 0) {
                Guard(p, false, [&] {
                    DisplayContextHelp(AppHelpFile(), id, S(p->window()->windowTitle()));
                });
                return true;
            }
        }
        if (QWidget* main = MainWindow()) Guard(main, false, [&] { DisplayHelp(main, 0); });
        return true;
    }
};

}  // namespace

const std::string& AppHelpFile() {
    static const std::string kName = kHelpName;
    return kName;
}

void DisplayHelp(QWidget* mainWindow, int contextId) {
    HelpSteps(mainWindow, contextId, NoChild::kContents);
}
void HelpContents(QWidget* mainWindow) {
    HelpSteps(mainWindow, 0, NoChild::kContents);
}
void HelpSearch(QWidget* mainWindow) {
    HelpSteps(mainWindow, 0, NoChild::kSearch);
}

void DisplayContextHelp(const std::string& helpFile, int contextId, const std::string& title) {
    if (helpFile.empty()) {
        NoHelp(title);
        return;
    }
    ShowContext(helpFile, contextId, title);
}

void InstallHelpKey() {
    static HelpKey* key = nullptr;
    if (key || !qApp) return;
    key = new HelpKey;
    key->setParent(qApp);
    qApp->installEventFilter(key);
}

HelpViewer* CurrentHelpViewer() {
    return Viewer();
}

}  // namespace tt::gui
