// Every window, at the smallest size it can be given (a tile of the document area, a dialog
// dragged small), still shows each of its labels, buttons and frame captions whole, as the
// desktop's font measures them; message boxes are wide enough for their title.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QRadioButton>
#include <QStyle>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolButton>

#include "files/race_file_io.h"
#include "model/race_file.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"
#include "support/fakes.h"

namespace tt::gui {
namespace {

QString Shown(QString text) {
    // An access key's "&" is not drawn; "&&" shows one.
    text.replace("&&", "\x01").remove('&').replace('\x01', '&');
    return text;
}

bool InScrolledArea(QWidget* w, QWidget* window) {
    for (QWidget* p = w->parentWidget(); p && p != window; p = p->parentWidget())
        if (auto* area = qobject_cast<QAbstractScrollArea*>(p->parentWidget()))
            if (area->viewport() == p) return true;
    return false;
}

// Each caption of WINDOW whole: as wide and high as its text, and not cut by what holds it.
void ExpectCaptionsWhole(QWidget* window, const std::string& where) {
    for (QWidget* w : window->findChildren<QWidget*>()) {
        if (!w->isVisibleTo(window) || InScrolledArea(w, window)) continue;
        QString text;
        QSize need;
        const QFontMetrics fm = w->fontMetrics();
        if (auto* l = qobject_cast<QLabel*>(w)) {
            if (!l->pixmap().isNull() || l->text().isEmpty()) continue;
            QString plain = l->text();
            if (l->textFormat() == Qt::RichText || Qt::mightBeRichText(plain)) {
                QTextDocument doc;
                doc.setHtml(plain);
                plain = doc.toPlainText();
            }
            text = Shown(plain);
            if (l->wordWrap()) {
                need = QSize(0, l->heightForWidth(l->width()) - 1);
            } else {
                int widest = 0;
                const QStringList lines = text.split('\n');
                for (const QString& line : lines)
                    widest = std::max(widest, fm.horizontalAdvance(line));
                need = QSize(widest, fm.height() * int(lines.size())) +
                       QSize(2 * l->margin() + 2 * l->frameWidth(), 2 * l->frameWidth());
            }
        } else if (auto* b = qobject_cast<QAbstractButton*>(w)) {
            text = Shown(b->text());
            if (text.isEmpty()) continue;
            // The text, beside the box or circle of a check box or option, or within a button's
            // margins.
            auto* tool = qobject_cast<QToolButton*>(b);
            if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly) continue;
            QStyle* st = b->style();
            int extra = 2 * st->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, b);
            if (qobject_cast<QCheckBox*>(b))
                extra = st->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, b) +
                        st->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, b);
            else if (qobject_cast<QRadioButton*>(b))
                extra = st->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, b) +
                        st->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, b);
            if (!b->icon().isNull()) extra += b->iconSize().width() + 4;
            int widest = 0;
            const QStringList lines = text.split('\n');
            for (const QString& line : lines) widest = std::max(widest, fm.horizontalAdvance(line));
            need = QSize(widest + extra, fm.height() * int(lines.size()));
        } else if (auto* g = qobject_cast<QGroupBox*>(w)) {
            text = Shown(g->title());
            if (text.isEmpty()) continue;
            need = QSize(fm.horizontalAdvance(text), 0);
        } else {
            continue;
        }
        const std::string what =
            where + " " + w->objectName().toStdString() + " \"" + text.toStdString() + "\"";
        EXPECT_GE(w->width(), need.width()) << what;
        EXPECT_GE(w->height(), need.height()) << what;
        for (QWidget* p = w->parentWidget(); p; p = p->parentWidget()) {
            const QRect r(w->mapTo(p, QPoint(0, 0)), w->size());
            EXPECT_TRUE(p->rect().contains(r))
                << what << " is cut by " << p->objectName().toStdString();
            if (p == window) break;
        }
    }
}

// Each page of each tab control in turn.
void ExpectEveryPageWhole(QWidget* window, const std::string& where) {
    QApplication::processEvents();
    ExpectCaptionsWhole(window, where);
    for (QTabWidget* tabs : window->findChildren<QTabWidget*>()) {
        const QSize before = window->size();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            QApplication::processEvents();
            ExpectCaptionsWhole(window, where + " tab " + std::to_string(i));
            EXPECT_EQ(window->size(), before) << where << " changes its size on tab " << i;
        }
        tabs->setCurrentIndex(0);
    }
}

class WindowSizes : public ::testing::Test {
  protected:
    void SetUp() override {
        w.files.files["/cards/spring-meet.tly"] = test::ReadSourceFile("examples/spring-meet.tly");
        G.FilePath = "/cards/spring-meet.tly";
        OpenRaceFile();
        G.CurrentRace = 1;
        G.CurrentRacer = 1;
        G.CurrentBettor = 1;
        RegisterShellForms();
        RegisterFileForms();
        RegisterRaceCardForms();
        RegisterBettingForms();
        RegisterPayoutForms();
        RegisterReportForms();
        main.resize(1200, 900);
        main.show();
    }
    test::FakeWorld w;
    frmMain main;
};

TEST_F(WindowSizes, EveryWindowAtItsSmallestShowsItsCaptionsWhole) {
    // The racer windows work on an open race card's copies.
    std::unique_ptr<QWidget> card(MakeForm("frmRaceCard", &main));
    card->show();
    for (const std::string& name : RegisteredForms()) {
        SCOPED_TRACE(name);
        QWidget* form = nullptr;
        Guard(&main, false, [&] { form = MakeForm(name, &main); });
        ASSERT_NE(form, nullptr);
        if (auto* dialog = qobject_cast<QDialog*>(form)) {
            dialog->show();
            dialog->resize(1, 1);
            ExpectEveryPageWhole(dialog, name);
            delete dialog;
        } else {
            QMdiSubWindow* sub = main.MdiArea()->addSubWindow(form);
            KeepLayoutMinimum(sub);
            sub->show();
            QApplication::processEvents();
            sub->resize(1, 1);
            ExpectEveryPageWhole(sub, name);
            delete sub;
        }
        w.messages.Clear();
    }
}

TEST_F(WindowSizes, TilingNeverSqueezesAWindowBelowItsContents) {
    for (const char* name : {"frmDisplayPayouts", "frmDisplayOdds", "frmTransaction"}) {
        if (IsFormRegistered(name)) main.ShowForm(name, false);
    }
    main.resize(700, 500);
    for (int mode : {1, 2}) {
        main.Arrange(mode);
        QApplication::processEvents();
        for (QMdiSubWindow* sub : main.MdiArea()->subWindowList())
            if (sub->isVisible())
                ExpectCaptionsWhole(sub, sub->widget()->objectName().toStdString() + " tiled " +
                                             std::to_string(mode));
    }
}

TEST(MessageBoxes, AreWideEnoughForTheirTitle) {
    MessageRequest r;
    r.text = "Gone";
    std::unique_ptr<QMessageBox> box = MakeMessageBox(r, nullptr);
    box->show();
    QApplication::processEvents();
    EXPECT_EQ(box->windowTitle(), "Tamberlin Tally");
    EXPECT_GE(box->width(), TitleBarWidth("Tamberlin Tally"));
    QFont bold = QApplication::font("QMdiSubWindowTitleBar");
    bold.setBold(true);
    EXPECT_GT(TitleBarWidth("Tamberlin Tally"),
              QFontMetrics(bold).horizontalAdvance("Tamberlin Tally"));
    // A long text keeps its own width.
    r.text = std::string(200, 'x');
    box = MakeMessageBox(r, nullptr);
    box->show();
    QApplication::processEvents();
    EXPECT_GT(box->width(), TitleBarWidth("Tamberlin Tally"));
}

}  // namespace
}  // namespace tt::gui
