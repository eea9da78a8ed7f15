#pragma once
// Grid columns sized for the desktop's font.

#include <QAbstractItemView>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>

namespace tt::gui {

// Widens each shown column of a view, already laid out from its grid's twips, to what its
// cells and header need in the desktop's font, and makes the view at least as wide as its
// columns.
inline void FitColumns(QTableView* view) {
    const QAbstractItemView* items = view;
    int total = 0;
    for (int c = 0; c < view->model()->columnCount(); ++c) {
        if (view->isColumnHidden(c)) continue;
        const int need =
            std::max(items->sizeHintForColumn(c), view->horizontalHeader()->sectionSizeHint(c));
        view->setColumnWidth(c, std::max(view->columnWidth(c), need));
        total += view->columnWidth(c);
    }
    view->setMinimumWidth(total + view->verticalScrollBar()->sizeHint().width() +
                          2 * view->frameWidth());
}

}  // namespace tt::gui
