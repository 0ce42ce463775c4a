#include "soak/DayRecord.h"

#include "platform/sim/SimFiles.h"
#include "surface/EachControl.h"

namespace halyard {

namespace {

std::string State(const Control& control) {
    return control.Caption() + (control.Enabled() ? " on" : " off") + (control.Visible() ? "" : " hidden");
}

/// What a control shows besides its caption.
struct Shown {
    std::string operator()(const TextBox& box) const { return box.Text(); }
    std::string operator()(const ComboBox& box) const { return box.Text(); }
    std::string operator()(const CheckBox& box) const { return std::to_string(box.Value()); }
    std::string operator()(const OptionGroup& group) const { return std::to_string(group.Index()); }
    std::string operator()(const Form& form) const {
        return std::to_string(form.Width()) + "x" + std::to_string(form.Height());
    }
    std::string operator()(const ListBox& list) const {
        auto text = std::to_string(list.ListIndex());
        for (int line = 0; line < list.ListCount(); ++line) text += "\n" + list.List(line);
        return text;
    }
    std::string operator()(const Control&) const { return {}; }
};

bool IsOfBridge(const std::string& path) {
    return path.starts_with("/config/") || path.starts_with("/bridge/");
}

} // namespace

void DayRecord::Absorb(std::string_view bytes) {
    for (char byte : bytes) digest = (digest ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
}

void DayRecord::Note(std::string_view kind, std::string_view bytes) {
    Absorb(kind);
    Absorb(":");
    Absorb(bytes);
    Absorb("\n");
    if (onNote) onNote(kind, bytes);
}

void DayRecord::NoteWindow(frmMain& window) {
    window.EachControl(
        [this](auto& control) { Note(control.Name, State(control) + " " + Shown()(control)); });
}

void DayRecord::NoteFiles(const SimFiles& disk) {
    for (const auto& path : disk.Paths())
        if (!IsOfBridge(path)) Note(path, disk.Contents(path));
}

std::string DayRecord::Digest() const {
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[digest >> shift & 15U];
    return digits;
}

} // namespace halyard
