#pragma once
// What the screenshot groups share. Each group opens the example card afresh in a process of its
// own (scripts/screenshots.sh runs `make-screenshots GROUP CARD OUTDIR` once for each) and
// writes its pictures into OUTDIR, printing each path.

#include <QRect>
#include <QString>

class QWidget;

namespace shots {

// Lets the event loop run for a while, so that windows lay out and paint, and a window manager
// frames what was just shown.
void Settle(int ms = 120);
// The widget as it draws itself.
bool Save(QWidget* w, const QString& path);
// A window with the frame the window manager gives it, as the screen shows it; without a window
// manager (or a screen to read), as it draws itself.
bool SaveFramed(QWidget* w, const QString& path);
// A part of the screen, frames and all: several windows together.
bool SaveScreen(const QRect& area, const QString& path);
// The smallest rectangle around the frames of these windows.
QRect FramesOf(std::initializer_list<QWidget*> windows);

}  // namespace shots

// The groups; each returns the exit status.
int ShellShots(const QString& card, const QString& out);
int BettingShots(const QString& card, const QString& out);
int TicketShots(const QString& card, const QString& out);
int OddsShots(const QString& card, const QString& out);
int ReportShots(const QString& card, const QString& out);
int FileShots(const QString& card, const QString& out);
