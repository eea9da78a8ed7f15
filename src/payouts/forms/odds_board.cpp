#include "payouts/forms/odds_board.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "model/grid_data.h"
#include "model/help_ids.h"
#include "model/race_file.h"
#include "payouts/odds_grids.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

namespace {
const QColor kBackground(10, 34, 22);
const QColor kStrip(22, 70, 44);
const QColor kStripe(18, 50, 33);
const QColor kText(250, 246, 230);
const QColor kAccent(255, 205, 80);
const QColor kDim(150, 170, 158);
const QColor kScratch(235, 120, 100);
const QColor kBar(255, 190, 60);

// Columns this wide or wider hold names; the others figures and short texts.
constexpr int kNameTwips = 1600;

// The characters of a UTF-8 text: what a fixed-pitch cell needs room for.
std::size_t Characters(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char ch) {
        return (static_cast<unsigned char>(ch) & 0xC0) != 0x80;
    }));
}

QFont PixelFont(QFont f, double px, bool bold) {
    f.setPixelSize(std::max(6, static_cast<int>(std::lround(px))));
    f.setBold(bold);
    return f;
}
}  // namespace

OddsBoard::OddsBoard(const DisplayOddsLogic& logic, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), logic_(logic) {
    setObjectName("OddsBoard");
    setProperty("HelpContextID", help::kOddsBoard);
    setWindowTitle(Q(logic.caption));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::BlankCursor);
    Measure();
}

void OddsBoard::ShowOn(QScreen* screen) {
    if (screen) {
        setScreen(screen);
        setGeometry(screen->geometry());
    }
    left_ = false;
    showFullScreen();
    raise();
    activateWindow();
    setFocus(Qt::OtherFocusReason);
}

void OddsBoard::SetBars(bool on) {
    bars_ = on;
    Refresh();
}

void OddsBoard::Measure() {
    const double h = std::max(height(), 200);
    margin_ = h * 0.02;
    titleHeight_ = h * 0.12;
    rowHeight_ = h / 15.5;
    headHeight_ = rowHeight_ * 0.8;
    const QFont sans = font();
    const QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    titleFont_ = PixelFont(sans, titleHeight_ * 0.40, true);
    subFont_ = PixelFont(sans, titleHeight_ * 0.24, true);
    headFont_ = PixelFont(sans, headHeight_ * 0.55, true);
    // The cells keep the program's padding of numbers and labels: fixed-pitch type lines them up.
    cellFont_ = PixelFont(mono, rowHeight_ * 0.58, true);
}

int OddsBoard::RowsPerPage() const {
    const double room = height() - titleHeight_ - margin_ - headHeight_ - margin_;
    return std::max(1, static_cast<int>(std::floor(room / rowHeight_)));
}

OddsBoard::Text OddsBoard::Place(const QString& text, const QFont& font, const QRectF& box,
                                 Qt::Alignment align, const QColor& color) const {
    const QFontMetricsF fm(font);
    const QString shown = fm.elidedText(text, Qt::ElideRight, std::max(0.0, box.width()));
    Text t;
    t.text.setText(shown);
    t.text.setTextFormat(Qt::PlainText);
    t.text.prepare(QTransform(), font);
    const double w = fm.horizontalAdvance(shown);
    double x = box.left();
    if (align & Qt::AlignRight) x = box.right() - w;
    if (align & Qt::AlignHCenter) x = box.left() + (box.width() - w) / 2;
    const double y = box.top() + (box.height() - fm.height()) / 2;
    t.at = QPointF(x, y);
    t.color = color;
    t.font = font;
    return t;
}

void OddsBoard::Refresh() {
    texts_.clear();
    stripes_.clear();
    barRows_.clear();
    const GridData& grid = logic_.flxOdds;
    const double w = width();

    // The title strip: the race and what the grid shows, and when its figures were worked out.
    const double lineTop = titleHeight_ * 0.08, split = titleHeight_ * 0.58;
    texts_.push_back(Place(Q(logic_.BoardRaceText()), titleFont_,
                           QRectF(margin_, lineTop, w * 0.68, split - lineTop),
                           Qt::AlignLeft | Qt::AlignVCenter, kText));
    texts_.push_back(Place(Q(logic_.BoardGridText()), subFont_,
                           QRectF(margin_, split, w * 0.68, titleHeight_ - split - lineTop),
                           Qt::AlignLeft | Qt::AlignVCenter, kAccent));
    texts_.push_back(Place(Q(logic_.BoardTimeText()), subFont_,
                           QRectF(w * 0.68, lineTop, w * 0.32 - margin_, split - lineTop),
                           Qt::AlignRight | Qt::AlignVCenter, kText));
    const int rows = grid.Rows() - grid.FixedRows();
    const int perPage = RowsPerPage();
    const int top = std::clamp<int>(logic_.TopRowShown, grid.FixedRows(),
                                    std::max(grid.FixedRows(), grid.Rows() - 1));
    if (rows > perPage) {
        const int pages = (rows + perPage - 1) / perPage;
        const int page = std::min(pages, (top - grid.FixedRows()) / perPage + 1);
        texts_.push_back(
            Place(QString("Page %1 of %2").arg(page).arg(pages), subFont_,
                  QRectF(w * 0.68, split, w * 0.32 - margin_, titleHeight_ - split - lineTop),
                  Qt::AlignRight | Qt::AlignVCenter, kDim));
    }

    // The columns the window shows, in proportion to their widths, and the bars beside them.
    std::vector<int> cols;
    double twips = 0;
    for (int c = 0; c < grid.Cols(); ++c)
        if (grid.ColWidth(c) > 0) {
            cols.push_back(c);
            twips += grid.ColWidth(c);
        }
    bool withBars = false;
    if (bars_)
        for (int r = grid.FixedRows(); r < grid.Rows() && !withBars; ++r)
            withBars = logic_.RowWinShare(r) >= 0;
    const double barsWidth = withBars ? w * 0.22 : 0;
    const double gridWidth = w - 2 * margin_ - barsWidth;
    const double pad = rowHeight_ * 0.2;
    // Figures and short texts take the width their longest cell needs, in the whole grid so
    // that the columns stand still from page to page; the names share the rest by their widths.
    const QFontMetricsF cellFm(cellFont_), headFm(headFont_);
    const double charWidth = cellFm.horizontalAdvance(QLatin1Char('0'));
    std::vector<double> need(cols.size(), 0);
    double fixed = 0, flexTwips = 0;
    for (std::size_t k = 0; k < cols.size(); ++k) {
        const int c = cols[k];
        if (grid.ColWidth(c) >= kNameTwips) {
            flexTwips += grid.ColWidth(c);
            continue;
        }
        std::size_t longest = 0;
        for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
            longest = std::max(longest, Characters(grid.TextMatrix(r, c)));
        need[k] = std::max(headFm.horizontalAdvance(Q(grid.TextMatrix(0, c))),
                           charWidth * static_cast<double>(longest)) +
                  2 * charWidth;
        fixed += need[k];
    }
    const double flexWidth = std::max(0.0, gridWidth - fixed);
    std::vector<QRectF> colBox;
    double x = margin_;
    for (std::size_t k = 0; k < cols.size(); ++k) {
        const int c = cols[k];
        double cw = need[k];
        if (flexTwips > 0 && grid.ColWidth(c) >= kNameTwips)
            cw = flexWidth * grid.ColWidth(c) / flexTwips;
        else if (flexTwips == 0 && twips > 0)
            cw = gridWidth * grid.ColWidth(c) / twips;
        colBox.emplace_back(x + pad / 2, 0, std::max(0.0, cw - pad), 0);
        x += cw;
    }

    double y = titleHeight_ + margin_;
    for (std::size_t i = 0; i < cols.size(); ++i) {
        const QRectF box(colBox[i].left(), y, colBox[i].width(), headHeight_);
        texts_.push_back(Place(Q(grid.TextMatrix(0, cols[i])), headFont_, box,
                               Qt::AlignHCenter | Qt::AlignVCenter, kAccent));
    }
    if (withBars)
        texts_.push_back(
            Place("Win Pool", headFont_,
                  QRectF(w - margin_ - barsWidth + pad, y, barsWidth - pad, headHeight_),
                  Qt::AlignHCenter | Qt::AlignVCenter, kAccent));
    y += headHeight_;
    headLine_ = QRectF(margin_, y - 2, w - 2 * margin_, 3);

    for (int i = 0; i < perPage && top + i < grid.Rows(); ++i) {
        const int r = top + i;
        const QRectF line(margin_, y, w - 2 * margin_, rowHeight_);
        if (i % 2 == 1) stripes_.push_back(line);
        for (std::size_t k = 0; k < cols.size(); ++k) {
            const std::string& cell = grid.TextMatrix(r, cols[k]);
            Qt::Alignment align = Qt::AlignLeft;
            switch (grid.CellAlignment(r, cols[k])) {
                case CellAlign::kCenter:
                    align = Qt::AlignHCenter;
                    break;
                case CellAlign::kRight:
                    align = Qt::AlignRight;
                    break;
                case CellAlign::kLeft:
                    break;
                case CellAlign::kGeneral: {
                    double v;
                    if (SortsAsNumber(cell, v)) align = Qt::AlignRight;
                    break;
                }
            }
            const QColor color = cell == " Scratched" ? kScratch : cell == "No Bets" ? kDim : kText;
            const QRectF box(colBox[k].left(), y, colBox[k].width(), rowHeight_);
            texts_.push_back(Place(Q(cell), cellFont_, box, align | Qt::AlignVCenter, color));
        }
        if (withBars) {
            const double share = logic_.RowWinShare(r);
            if (share >= 0) {
                const double labelWidth = barsWidth * 0.32;
                Bar bar;
                bar.rect = QRectF(w - margin_ - barsWidth + pad, y + rowHeight_ * 0.22,
                                  barsWidth - pad - labelWidth, rowHeight_ * 0.56);
                bar.share = share;
                bar.label = Place(QString::number(std::lround(share * 100)) + "%", headFont_,
                                  QRectF(w - margin_ - labelWidth, y, labelWidth, rowHeight_),
                                  Qt::AlignRight | Qt::AlignVCenter, kText);
                barRows_.push_back(bar);
            }
        }
        y += rowHeight_;
    }
    update();
}

void OddsBoard::Draw(QPainter& p, const Text& t) {
    // Static text is drawn in the painter's font: the one it was laid out in.
    if (p.font() != t.font) p.setFont(t.font);
    p.setPen(t.color);
    p.drawStaticText(t.at, t.text);
}

void OddsBoard::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), kBackground);
    p.fillRect(QRectF(0, 0, width(), titleHeight_), kStrip);
    p.fillRect(QRectF(0, titleHeight_ - 3, width(), 3), kAccent);
    for (const QRectF& s : stripes_) p.fillRect(s, kStripe);
    p.fillRect(headLine_, kAccent.darker(130));
    for (const Bar& b : barRows_) {
        p.fillRect(b.rect, kStripe.lighter(130));
        p.fillRect(QRectF(b.rect.left(), b.rect.top(), b.rect.width() * b.share, b.rect.height()),
                   kBar);
        Draw(p, b.label);
    }
    for (const Text& t : texts_) Draw(p, t);
}

void OddsBoard::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Measure();
    Refresh();
}

void OddsBoard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

void OddsBoard::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!left_) {
        left_ = true;
        emit left();
    }
}

}  // namespace tt::gui
