#pragma once
// What the ticket windows share over Qt: keys as the window logic reads them, combo boxes that
// take typed text shown from their state, and the focus and text selection the logic asks for.

#include <QDialog>
#include <QKeyEvent>
#include <QObject>
#include <optional>
#include <set>
#include <string>

#include "betting/combo_state.h"
#include "model/form_state.h"
#include "model/grid_data.h"
#include "shell/forms/gui_support.h"

class QComboBox;
class QTableView;
class QWidget;

namespace tt::gui {

// The key code of a key as the logic's key handlers take it: 13 Enter, 113 F2, 114 F3, the
// capital letter of a letter key; 0 for keys that have none of these.
int KeyCodeOf(const QKeyEvent* e);
// 1 Shift, 2 Ctrl, 4 Alt.
int ShiftOf(const QKeyEvent* e);
// The character a key press types, as a key press handler takes it; 0 for none.
int CharCodeOf(const QKeyEvent* e);
bool IsEnterKey(const QKeyEvent* e);

// The first steps of a key pressed in a ticket window: Esc closes it, Tab and Shift+Tab move the
// focus as always, and the window's Form_KeyDown has its say, the window refreshed when it takes
// the key. Whether the key was taken; nullopt when the window goes on with it.
template <class Window>
std::optional<bool> TicketWindowKeyDown(Window* window, QObject* watched, QKeyEvent* e) {
    if (e->key() == Qt::Key_Escape) {
        window->reject();
        return true;
    }
    if (e->key() == Qt::Key_Tab || e->key() == Qt::Key_Backtab) return false;
    bool handled = false;
    Guard(window, false, [&] {
        handled = window->logic.Form_KeyDown(KeyCodeOf(e), ShiftOf(e), S(watched->objectName()));
    });
    if (!handled) return std::nullopt;
    window->Refresh();
    return true;
}

// Shows a combo box's state. The list is filled again only when its entries changed, so that
// what is being typed stays where it is.
void ShowCombo(QComboBox* box, const ComboState& state);

// A grid's columns at their widths, but never narrower than their heading in the desktop's
// font; `stretch` takes the room left over, -1 for none.
void LayOutColumns(QTableView* view, const GridData& grid, int stretch);

// The focus and text selection the logic asked for; both requests are then done. A combo box
// selects the text of its edit box.
void ApplyFocusAndSelection(QWidget* form, FormState& logic, std::string& selectText);

// The Enter key pressed in a control: its key up is that control's. A key up whose press went
// elsewhere, to a message box that it closed, counts only while CancelFlag says that a box was
// there to close.
class EnterKeys {
  public:
    void Pressed(const QObject* control) { down_.insert(control); }
    // Whether the key up goes to the control's handler.
    bool Released(const QObject* control);

  private:
    std::set<const QObject*> down_;
};

}  // namespace tt::gui
