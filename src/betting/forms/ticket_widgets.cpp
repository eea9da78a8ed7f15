#include "betting/forms/ticket_widgets.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

#include "model/race_file.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

int KeyCodeOf(const QKeyEvent* e) {
    const int k = e->key();
    if (k == Qt::Key_Return || k == Qt::Key_Enter) return 13;
    if (k == Qt::Key_F2) return 113;
    if (k == Qt::Key_F3) return 114;
    if (k >= Qt::Key_A && k <= Qt::Key_Z) return 'A' + (k - Qt::Key_A);
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return '0' + (k - Qt::Key_0);
    return 0;
}

int ShiftOf(const QKeyEvent* e) {
    const Qt::KeyboardModifiers m = e->modifiers();
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}

int CharCodeOf(const QKeyEvent* e) {
    if (IsEnterKey(e)) return 13;
    const QString t = e->text();
    if (t.isEmpty()) return 0;
    const char16_t c = t.at(0).unicode();
    return static_cast<int>(c);
}

bool IsEnterKey(const QKeyEvent* e) {
    return e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
}

void ShowCombo(QComboBox* box, const ComboState& state) {
    const ListData& list = state.list;
    bool same = box->count() == list.ListCount();
    for (int i = 0; same && i < list.ListCount(); ++i)
        same = box->itemText(i) == Q(list.List(i)) &&
               box->itemData(i).toLongLong() == list.ItemData(i);
    QSignalBlocker block(box);
    if (!same) FillCombo(box, list);
    if (box->currentIndex() != list.ListIndex()) box->setCurrentIndex(list.ListIndex());
    if (box->isEditable() && box->currentText() != Q(state.text)) box->setEditText(Q(state.text));
    box->setToolTip(Q(state.state.toolTip));
    box->setVisible(state.state.visible);
    box->setEnabled(state.state.enabled);
    box->setStyleSheet(state.state.backColor == kColorWhite ? QString()
                                                            : QString("background: red;"));
}

void LayOutColumns(QTableView* view, const GridData& grid, int stretch) {
    ApplyGridLayout(view, grid);
    QHeaderView* header = view->horizontalHeader();
    header->setStretchLastSection(false);
    int total = 0;
    for (int c = 0; c < grid.Cols(); ++c) {
        if (grid.ColWidth(c) <= 0) continue;
        const int width = std::max(Twips(grid.ColWidth(c)), header->sectionSizeHint(c));
        header->setSectionResizeMode(
            c, c == stretch ? QHeaderView::Stretch : QHeaderView::Interactive);
        view->setColumnWidth(c, width);
        total += width;
    }
    // Room for every column and the scroll bar, so that the stretching one never gets less.
    view->setMinimumWidth(total + view->verticalScrollBar()->sizeHint().width() +
                          2 * view->frameWidth());
}

void ApplyFocusAndSelection(QWidget* form, FormState& logic, std::string& selectText) {
    // A window not yet on screen takes its first focus when it shows.
    if (!form->isVisible()) return;
    if (!logic.focus.empty()) {
        if (auto* w = form->findChild<QWidget*>(Q(logic.focus)))
            if (w->isVisible() && w->isEnabled()) w->setFocus(Qt::OtherFocusReason);
        logic.focus.clear();
    }
    if (selectText.empty()) return;
    QLineEdit* edit = form->findChild<QLineEdit*>(Q(selectText));
    if (!edit)
        if (auto* box = form->findChild<QComboBox*>(Q(selectText))) edit = box->lineEdit();
    // Once the focus has arrived; a box the focus has left again keeps no selection.
    if (edit)
        QTimer::singleShot(0, edit, [edit] {
            if (edit->hasFocus()) edit->selectAll();
        });
    selectText.clear();
}

bool EnterKeys::Released(const QObject* control) {
    if (down_.erase(control) != 0) return true;
    return bool(G.CancelFlag);
}

}  // namespace tt::gui
