#include "shell/forms/frm_logo.h"

#include <QGridLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/forms/form_registry.h"
#include "shell/forms/gui_support.h"
#include "shell/main_commands.h"
#include "shell/startup.h"

namespace tt::gui {

namespace {

// The picture of the launch pad: the name over a running track.
class LogoPicture : public QWidget {
  public:
    explicit LogoPicture(QWidget* parent) : QWidget(parent) { setMinimumSize(260, 70); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        QRectF r = rect().adjusted(2, 2, -2, -2);
        QLinearGradient g(r.topLeft(), r.bottomLeft());
        g.setColorAt(0, QColor(30, 90, 50));
        g.setColorAt(1, QColor(20, 60, 35));
        p.setBrush(g);
        p.setPen(Qt::NoPen);
        p.drawRoundedRect(r, 10, 10);
        p.setPen(QPen(QColor(230, 220, 180, 120), 2));
        for (int i = 0; i < 3; ++i) {
            double y = r.bottom() - 10 - i * 7;
            p.drawLine(QPointF(r.left() + 12, y), QPointF(r.right() - 12, y));
        }
        QFont f = font();
        f.setPointSizeF(f.pointSizeF() * 1.8);
        f.setBold(true);
        f.setItalic(true);
        p.setFont(f);
        p.setPen(QColor(250, 240, 200));
        p.drawText(r.adjusted(0, -10, 0, -10), Qt::AlignCenter, "Tamberlin Tally");
    }
};

}  // namespace

frmLogo::frmLogo(QWidget* parent) : QWidget(parent) {
    setObjectName("frmLogo");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new LogoPicture(this));
    auto* grid = new QGridLayout;
    auto make = [&](QPushButton*& b, const char* name, const char* caption, void (*command)(),
                    int row, int col) {
        b = new QPushButton(caption, this);
        b->setObjectName(name);
        b->setMinimumHeight(32);
        connect(b, &QPushButton::clicked, this, [this, command] { Guard(this, false, command); });
        grid->addWidget(b, row, col);
    };
    make(cmdRaceCard, "cmdRaceCard", "Setup Race Card", mnuEditSetupRaceCard_Click, 0, 0);
    make(cmdEditBettors, "cmdEditBettors", "Setup Bettors", mnuEditSetupBettors_Click, 0, 1);
    make(cmdBettingWindow, "cmdBettingWindow", "Betting Window", mnuEditPlaceBets_Click, 1, 0);
    make(cmdListBets, "cmdListBets", "List Bets", mnuViewListBets_Click, 1, 1);
    make(cmdDisplayOdds, "cmdDisplayOdds", "Display Odds", mnuViewDisplayOdds_Click, 2, 0);
    make(cmdEnterResults, "cmdEnterResults", "Record Results", mnuEditResults_Click, 2, 1);
    make(cmdDisplayPayouts, "cmdDisplayPayouts", "Display Payouts", mnuViewDisplayPayouts_Click, 3,
         0);
    layout->addLayout(grid);
    EnableGroups(false, false);
}

void frmLogo::EnableGroups(bool fileOpen, bool raceExists) {
    auto set = [](QPushButton* b, bool on, const char* form) {
        b->setEnabled(on && IsFormRegistered(form));
    };
    set(cmdRaceCard, fileOpen, "frmRaceCard");
    set(cmdEditBettors, fileOpen, "frmSelectBettor");
    // The race buttons follow the race commands alone, as the menu entries do.
    set(cmdBettingWindow, raceExists, "frmTransaction");
    set(cmdListBets, raceExists, "frmListBets");
    set(cmdDisplayOdds, raceExists, "frmDisplayOdds");
    set(cmdEnterResults, raceExists, "frmEditResults");
    set(cmdDisplayPayouts, raceExists, "frmDisplayPayouts");
}

void frmLogo::Place() {
    QWidget* frame = parentWidget() ? parentWidget() : this;
    frame->resize(frame->sizeHint());
    Placement p{ToTwips(frame->x()), ToTwips(frame->y()), ToTwips(frame->width()),
                ToTwips(frame->height())};
    p = PlaceLogo(p);
    frame->move(Twips(p.left), Twips(p.top));
}

}  // namespace tt::gui
