#pragma once

// The colours of every window, as blue-green-red integers; negative ones are the system's.

#include "platform/Controls.h"
#include "platform/Strips.h"
#include "platform/Table.h"

namespace halyard {

/// Paints a control by its kind. Handed to a window's EachControl.
class Theme {
  public:
    static constexpr int WindowBack = 9266964;
    static constexpr int WindowFore = -2147483634; ///< the system's highlighted text
    static constexpr int FieldBack = 14271955;
    static constexpr int FieldFore = 1118648;
    static constexpr int ButtonBack = 16379850;
    static constexpr int ButtonFore = -2147483630; ///< the system's button text
    static constexpr int MenuBarBack = 0x5E450E;
    static constexpr int Transparent = -1; ///< shows what is behind

    void operator()(Form& form) const { form.SetColors(WindowBack, WindowFore); }
    void operator()(Frame& frame) const { frame.SetColors(WindowBack, WindowFore); }
    void operator()(Label& label) const { label.SetColors(Transparent, WindowFore); }
    void operator()(CheckBox& box) const { box.SetColors(WindowBack, WindowFore); }
    void operator()(OptionGroup& group) const { group.SetColors(WindowBack, WindowFore); }
    void operator()(ListBox& list) const { list.SetColors(FieldBack, FieldFore); }
    void operator()(TableBox& table) const { table.SetColors(FieldBack, FieldFore); }
    void operator()(Strips& strips) const { strips.SetColors(FieldBack, FieldFore); }
    void operator()(Gauge& gauge) const { gauge.SetColors(FieldBack, FieldFore); }
    void operator()(TextBox& box) const { box.SetColors(FieldBack, FieldFore); }
    void operator()(ComboBox& box) const { box.SetColors(FieldBack, FieldFore); }
    void operator()(ChoiceBox& box) const { box.SetColors(ButtonBack, ButtonFore); }
    void operator()(Button& button) const { button.SetColors(ButtonBack, ButtonFore); }
};

} // namespace halyard
