#include "platform/windows/dialogTemplate.h"

#include <cstring>
#include <string_view>

namespace platform::windows {

namespace {

/// Predefined window classes by their numbers in a template.
constexpr WORD buttonClass = 0x80;
constexpr WORD editClass = 0x81;
constexpr WORD staticClass = 0x82;
constexpr WORD listBoxClass = 0x83;
constexpr WORD comboBoxClass = 0x85;

struct WindowKind {
    WORD windowClass;
    DWORD style;
    DWORD extendedStyle = 0;
};

WindowKind windowKind(const forms::TextBox& box) {
    const DWORD lines =
        box.multiline() ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL : DWORD{ES_AUTOHSCROLL};
    return {editClass, WS_TABSTOP | lines, WS_EX_CLIENTEDGE};
}

WindowKind windowKind(const forms::Button& button) {
    const bool isDefault = button.role() == forms::Button::Role::Default;
    return {buttonClass, WS_TABSTOP | (isDefault ? DWORD{BS_DEFPUSHBUTTON} : DWORD{BS_PUSHBUTTON})};
}

WindowKind windowKind(const forms::Control& control) {
    switch (control.kind()) {
        case forms::Kind::Label:
            return {staticClass, SS_LEFT};
        case forms::Kind::TextBox:
            return windowKind(static_cast<const forms::TextBox&>(control));
        case forms::Kind::Button:
            return windowKind(static_cast<const forms::Button&>(control));
        case forms::Kind::CheckBox:
            return {buttonClass, WS_TABSTOP | BS_3STATE | BS_MULTILINE};
        case forms::Kind::OptionButton:
            return {buttonClass, BS_RADIOBUTTON | BS_MULTILINE};
        case forms::Kind::ListBox:
            return {listBoxClass, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                    WS_EX_CLIENTEDGE};
        case forms::Kind::ComboBox:
            return {comboBoxClass, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST};
        case forms::Kind::Picture:
            break;
    }
    return {staticClass, SS_ICON | SS_CENTERIMAGE};
}

/// Writes a template's parts one after the other; texts are empty unless given.
class TemplateWriter {
  public:
    void word(std::size_t value) { append(static_cast<WORD>(value)); }
    void number(DWORD value) { append(value); }
    void text(std::wstring_view value) {
        for (const wchar_t character : value) {
            word(character);
        }
        word(0);
    }
    void place(const forms::Place& place) {
        for (const int length : {place.left, place.top, place.width, place.height}) {
            append(static_cast<short>(length));
        }
    }
    void align() { bytes_.resize((bytes_.size() + 3) / 4 * 4); }

    std::vector<DWORD> finish() {
        align();
        std::vector<DWORD> result(bytes_.size() / sizeof(DWORD));
        std::memcpy(result.data(), bytes_.data(), bytes_.size());
        return result;
    }

  private:
    template <class Part>
    void append(Part part) {
        const auto* start = reinterpret_cast<const std::byte*>(&part);
        bytes_.insert(bytes_.end(), start, start + sizeof part);
    }

    std::vector<std::byte> bytes_;
};

void writeDialog(TemplateWriter& writer, const forms::Form& form) {
    writer.word(1);       // version
    writer.word(0xFFFF);  // an extended template
    writer.number(0);     // help
    writer.number(0);     // extended style
    writer.number(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SHELLFONT);
    writer.word(form.controls().size());
    writer.place({0, 0, form.width(), form.height()});
    writer.word(0);  // menu
    writer.word(0);  // window class: the dialogs' own
    writer.text(L"");
    writer.word(8);  // points
    writer.word(FW_NORMAL);
    writer.word(DEFAULT_CHARSET << 8);  // not italic
    writer.text(L"MS Shell Dlg");
}

void writeControl(TemplateWriter& writer, const forms::Control& control, DWORD id, bool startsGroup) {
    const WindowKind kind = windowKind(control);
    writer.align();
    writer.number(0);  // help
    writer.number(kind.extendedStyle);
    writer.number(WS_CHILD | WS_VISIBLE | kind.style | (startsGroup ? DWORD{WS_GROUP} : 0));
    writer.place(control.place());
    writer.number(id);
    writer.word(0xFFFF);
    writer.word(kind.windowClass);
    writer.text(L"");
    writer.word(0);  // no further data
}

}  // namespace

std::vector<DWORD> dialogTemplate(const forms::Form& form) {
    TemplateWriter writer;
    writeDialog(writer, form);
    DWORD id = firstControlId;
    auto former = forms::Kind::Label;
    for (const forms::Control* control : form.controls()) {
        // The arrow keys move within a run of options.
        const bool option = control->kind() == forms::Kind::OptionButton;
        writeControl(writer, *control, id, option != (former == forms::Kind::OptionButton));
        former = control->kind();
        ++id;
    }
    return writer.finish();
}

}  // namespace platform::windows
