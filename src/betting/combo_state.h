#pragma once
// A combo box that takes typed text as well as a choice from its list, as the betting window's
// race, bettor and pick boxes do: the list with its selection, the text in the box, and the
// control's own state. Typing leaves no entry chosen until the box's own search picks one.

#include <string>

#include "model/form_state.h"
#include "model/list_data.h"

namespace tt {

struct ComboState {
    explicit ComboState(bool sorted = false) : list(sorted) {}

    ListData list;
    std::string text;
    ControlState state;

    // Chooses an entry (-1 for none); the text follows the choice. True when the choice moved.
    bool Select(int index) {
        const int before = list.ListIndex();
        list.SetListIndex(index);
        text = list.Text();
        return list.ListIndex() != before;
    }
    // Empties the list, its choice and its text.
    void Clear() {
        list.Clear();
        text.clear();
    }
};

}  // namespace tt
