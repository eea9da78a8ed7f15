#pragma once
// The board for the room: the grid of Display Odds full screen on a screen of its own, in type
// scaled to the screen's height so that it reads across a hall, under a title strip with the
// race, what the grid shows and when its figures were worked out; optional bars show each
// racer's share of the Win pool. Its figures are the window's: it draws the page of the grid
// the window's logic shows, and lays that page out once per refresh so that painting is only
// drawing. Esc leaves it.

#include <QStaticText>
#include <QWidget>
#include <vector>

#include "payouts/display_odds_logic.h"

class QPainter;
class QScreen;

namespace tt::gui {

class OddsBoard : public QWidget {
    Q_OBJECT

  public:
    explicit OddsBoard(const DisplayOddsLogic& logic, QWidget* parent = nullptr);

    // Full screen on the screen given.
    void ShowOn(QScreen* screen);
    void SetBars(bool on);
    bool Bars() const { return bars_; }
    // Lays out the page the logic shows now: call after every change of the logic.
    void Refresh();
    // The data rows that fit whole under the title strip and the header.
    int RowsPerPage() const;

  signals:
    // Esc, or the board closed: the window leaves board mode.
    void left();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    struct Text {
        QStaticText text;
        QPointF at;
        QColor color;
        QFont font;
    };
    struct Bar {
        QRectF rect;  // the whole length of a full share
        double share;
        Text label;
    };
    // Fonts and heights from the board's height.
    void Measure();
    static void Draw(QPainter& p, const Text& t);
    Text Place(const QString& text, const QFont& font, const QRectF& box, Qt::Alignment align,
               const QColor& color) const;

    const DisplayOddsLogic& logic_;
    bool bars_ = false;
    // Measured from the height.
    QFont titleFont_, subFont_, headFont_, cellFont_;
    double margin_ = 0, titleHeight_ = 0, headHeight_ = 0, rowHeight_ = 0;
    // The page laid out by Refresh.
    std::vector<Text> texts_;
    std::vector<QRectF> stripes_;
    std::vector<Bar> barRows_;
    QRectF headLine_;
    bool left_ = false;
};

}  // namespace tt::gui
