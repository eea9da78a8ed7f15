#include "shots.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <cstdio>

namespace shots {

void Settle(int ms) {
    QElapsedTimer t;
    t.start();
    do {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QApplication::sendPostedEvents();
        QThread::msleep(10);
    } while (t.elapsed() < ms);
}

namespace {
bool Write(const QPixmap& picture, const QString& path) {
    if (!picture.isNull() && picture.save(path)) {
        std::printf("%s\n", qPrintable(path));
        return true;
    }
    std::fprintf(stderr, "make-screenshots: cannot write %s\n", qPrintable(path));
    return false;
}

// scripts/screenshots.sh runs a window manager and says so.
bool WindowManagerRuns() {
    return QGuiApplication::platformName() == "xcb" && qEnvironmentVariableIsSet("SHOTS_WM");
}
}  // namespace

bool Save(QWidget* w, const QString& path) {
    Settle();
    return Write(w->grab(), path);
}

// The window and its frame as the window manager has drawn it: the margins asked of the window
// system itself, since a widget learns of its frame only when it next moves.
QRect FramedArea(QWidget* w) {
    QWindow* window = w->windowHandle();
    return window ? w->geometry().marginsAdded(window->frameMargins()) : w->frameGeometry();
}

bool SaveFramed(QWidget* w, const QString& path) {
    // The window manager frames a window a little after it shows, and again when the window
    // moves itself: wait until the frame stands still.
    QRect last;
    for (int i = 0; i < 30; ++i) {
        Settle(100);
        const QRect area = FramedArea(w);
        const bool framed = area.width() > w->width();
        if (area == last && (framed || !WindowManagerRuns())) break;
        last = area;
    }
    if (!WindowManagerRuns()) return Write(w->grab(), path);
    return SaveScreen(FramedArea(w), path);
}

bool SaveScreen(const QRect& area, const QString& path) {
    Settle(400);
    QScreen* screen = QGuiApplication::primaryScreen();
    return Write(screen->grabWindow(0, area.x(), area.y(), area.width(), area.height()), path);
}

QRect FramesOf(std::initializer_list<QWidget*> windows) {
    QRect all;
    for (QWidget* w : windows) all |= FramedArea(w);
    return all;
}

}  // namespace shots
