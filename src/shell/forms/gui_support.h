#pragma once
// What every window shares: twips, the general error path around event handlers, lists and
// grids shown from the core's data, and the Qt implementations of the ports.

#include <QAbstractTableModel>
#include <QDialog>
#include <QIcon>
#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "model/form_state.h"
#include "model/grid_data.h"
#include "model/list_data.h"
#include "model/ports.h"

class QComboBox;
class QListWidget;
class QTableView;
class QWidget;
class QLabel;
class QAbstractButton;
class QLineEdit;

namespace tt::gui {

inline QString Q(const std::string& s) {
    return QString::fromStdString(s);
}
inline std::string S(const QString& s) {
    return s.toStdString();
}

// Twips to pixels: 15 twips a pixel at 96 dots an inch, scaled by the screen's logical DPI.
int Twips(double twips);
double ToTwips(int pixels);

// Runs an event handler; any error shows the unexpected-error box, and with unloadOnError the
// window closes (never the main window).
void Guard(QWidget* form, bool unloadOnError, const std::function<void()>& handler);

// A focus change that the text boxes' GotFocus and LostFocus events follow: not the window
// coming to the front or going behind, nor a popup opening or closing.
inline bool UserFocusReason(Qt::FocusReason reason) {
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

// The end of a window's refresh: the focus moves to the control the logic named, and the text of
// the box named in selectText is selected once the focus is there. Both requests are then done.
void ApplyFocus(QWidget* form, FormState& logic);
void ApplyFocus(QWidget* form, FormState& logic, std::string& selectText);

// The window frame or Esc on a dialog whose logic asks before it goes: when its
// Form_QueryUnload cancels, the dialog stays open and shows the logic's state; otherwise the
// logic unloads and the dialog closes. The form has a public `logic` and `Refresh()`.
template <class Form>
void RejectUnlessKept(Form* form) {
    auto& logic = form->logic;
    if (!logic.unloaded) {
        bool cancel = false;
        Guard(form, false, [&] { logic.Form_QueryUnload(cancel); });
        if (cancel && !logic.unloaded) {
            form->Refresh();
            return;
        }
        logic.Unload();
    }
    form->QDialog::reject();
}

// A child window's kept place: its frame (its sub-window in the document area, or the window
// itself) placed from the settings on its first show, with the size kept when there is one and
// not below what its layout needs, and kept again when it closes, unless minimised or
// maximised.
class KeptPlacement {
  public:
    KeptPlacement(QWidget* form, std::string keyPrefix, bool withSize)
        : form_(form), prefix_(std::move(keyPrefix)), withSize_(withSize) {}
    // On every show; only the first places the window.
    void Restore();
    void Save();
    bool Placed() const { return placed_; }

  private:
    QWidget* Frame() const;
    QWidget* form_;
    std::string prefix_;
    bool withSize_;
    bool placed_ = false;
};

// Lists and combo boxes filled from the core's list data (item data kept in Qt::UserRole).
void FillCombo(QComboBox* box, const ListData& list);
void FillList(QListWidget* box, const ListData& list);

// Controls set from their state: text, tool tip, visibility, enabled, check value, colour.
void Apply(QLabel* label, const ControlState& s);
void Apply(QAbstractButton* button, const ControlState& s);
void Apply(QLineEdit* edit, const ControlState& s);

// A grid's cells shown through a table model.
class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
    // Shows the grid; call again after the grid changed.
    void SetGrid(const GridData* grid);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;

  private:
    const GridData* grid_ = nullptr;
};

// Sets up a view for a grid: its fixed rows as headers, widths and heights from twips, hidden
// zero-width columns, selection by rows.
void ApplyGridLayout(QTableView* view, const GridData& grid);

// The program's icon: a green tile with the initials.
QIcon AppIcon();

// The ports over Qt.
std::unique_ptr<MessagePort> MakeMessageBoxes();
std::unique_ptr<FileDialogPort> MakeFileDialogs();
std::unique_ptr<PrinterPort> MakePrinter();

}  // namespace tt::gui
