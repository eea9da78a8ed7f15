#pragma once
// The state of a window's controls as its logic keeps it: the window's behaviour lives in a
// core class that holds these and has one method per event; the Qt form shows the state and
// forwards the events.

#include <cstdint>
#include <string>

namespace tt {

// Colours as the windows use them.
inline constexpr std::uint32_t kColorWhite = 0xFFFFFF;
inline constexpr std::uint32_t kColorRed = 0x0000FF;  // RGB(255, 0, 0) as the system stores it

struct ControlState {
    std::string text;  // a text box's text, a label's or button's caption
    std::string toolTip;
    bool visible = true;
    bool enabled = true;
    int value = 0;  // a check box: 0 unchecked, 1 checked; an option button: 0 / -1
    std::uint32_t backColor = kColorWhite;
};

// The part a form logic shares: its caption, whether it asked to be unloaded, and the control
// that should take the focus next.
struct FormState {
    std::string caption;
    bool unloaded = false;
    std::string focus;  // the name of the control to focus, "" for none
    void Unload() { unloaded = true; }
    void SetFocus(std::string control) { focus = std::move(control); }
};

}  // namespace tt
