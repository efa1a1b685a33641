#include "platform/windows/dialogTemplate.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include "platform/formPages.h"

namespace platform::windows {

namespace {

struct WindowKind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle = 0;
    bool isDrawn = true;
};

constexpr DWORD listBox = WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;

WindowKind windowKind(const forms::TextBox& box) {
    const DWORD lines = box.lines() == forms::TextBox::Lines::Many
                            ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL
                            : DWORD{ES_AUTOHSCROLL};
    const DWORD hidden = box.lines() == forms::TextBox::Lines::Hidden ? ES_PASSWORD : 0;
    return {WC_EDITW, WS_TABSTOP | lines | hidden, WS_EX_CLIENTEDGE};
}

WindowKind windowKind(const forms::Button& button) {
    const bool isDefault = button.role() == forms::Button::Role::Default;
    return {WC_BUTTONW, WS_TABSTOP | (isDefault ? DWORD{BS_DEFPUSHBUTTON} : DWORD{BS_PUSHBUTTON})};
}

WindowKind windowKind(const forms::Picture& picture) {
    const bool given = picture.image() == forms::Picture::Image::Given;
    return {WC_STATICW, (given ? DWORD{SS_BITMAP} : DWORD{SS_ICON}) | SS_CENTERIMAGE};
}

WindowKind windowKind(const forms::Frame& frame) {
    return frame.border() == forms::Frame::Border::Box ? WindowKind{WC_BUTTONW, BS_GROUPBOX}
                                                       : WindowKind{WC_STATICW, SS_LEFT, 0, false};
}

WindowKind windowKind(const forms::Control& control) {
    switch (control.kind()) {
        case forms::Kind::Label:
            return {WC_STATICW, SS_LEFT};
        case forms::Kind::Link:
            return {WC_LINK, WS_TABSTOP};
        case forms::Kind::Frame:
            return windowKind(static_cast<const forms::Frame&>(control));
        case forms::Kind::TabStrip:
            return {WC_TABCONTROLW, WS_TABSTOP};
        case forms::Kind::TextBox:
            return windowKind(static_cast<const forms::TextBox&>(control));
        case forms::Kind::Button:
            return windowKind(static_cast<const forms::Button&>(control));
        case forms::Kind::CheckBox:
            return {WC_BUTTONW, WS_TABSTOP | BS_3STATE | BS_MULTILINE};
        case forms::Kind::OptionButton:
            return {WC_BUTTONW, BS_AUTORADIOBUTTON | BS_MULTILINE};
        case forms::Kind::ListBox:
            return {WC_LISTBOXW, listBox, WS_EX_CLIENTEDGE};
        case forms::Kind::SelectionList:
            return {WC_LISTBOXW, listBox | LBS_EXTENDEDSEL, WS_EX_CLIENTEDGE};
        case forms::Kind::ComboBox:
            return {WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST};
        case forms::Kind::CheckList:
            return {WC_LISTVIEWW, WS_TABSTOP | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL,
                    WS_EX_CLIENTEDGE};
        case forms::Kind::Picture:
            break;
    }
    return windowKind(static_cast<const forms::Picture&>(control));
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

void writeControl(TemplateWriter& writer, const forms::Control& control, DWORD id, DWORD groupStyle) {
    const WindowKind kind = windowKind(control);
    writer.align();
    writer.number(0);  // help
    writer.number(kind.extendedStyle);
    writer.number(WS_CHILD | WS_VISIBLE | kind.style | groupStyle);
    writer.place(kind.isDrawn ? control.place() : forms::Place());
    writer.number(id);
    writer.text(kind.windowClass);
    writer.text(L"");
    writer.word(0);  // no further data
}

bool isOption(const forms::Control* control) {
    return control->kind() == forms::Kind::OptionButton;
}

bool isSelected(const forms::Control* control) {
    return isOption(control) && static_cast<const forms::OptionButton*>(control)->selected();
}

/// True for options that exclude each other.
bool areOneGroup(const forms::Control* one, const forms::Control* other) {
    return isOption(one) && isOption(other) && one->frame() == other->frame();
}

using Controls = std::vector<const forms::Control*>;

/// As the windows follow each other, which is what the keyboard goes by: options that exclude each other
/// stand together.
Controls windowOrder(const forms::Form& form) {
    Controls order;
    for (const forms::Control* control : form.controls()) {
        const auto sameGroup = [control](const forms::Control* other) { return areOneGroup(control, other); };
        if (!isOption(control)) {
            order.push_back(control);
        } else if (std::ranges::none_of(order, sameGroup)) {
            std::ranges::copy_if(form.controls(), std::back_inserter(order), sameGroup);
        }
    }
    return order;
}

/// The arrow keys move within a group and the Tab key leads to its selected option, or to the first while
/// there is none. Windows moves the tab stop with the selection.
DWORD groupStyle(const Controls& order, std::size_t index) {
    const forms::Control* const control = order[index];
    const forms::Control* const former = index > 0 ? order[index - 1] : nullptr;
    const bool goesOn = former && (isOption(control) ? areOneGroup(control, former) : !isOption(former));
    const auto selectedBeside = [control](const forms::Control* other) {
        return areOneGroup(control, other) && isSelected(other);
    };
    const bool anySelected = std::ranges::any_of(order, selectedBeside);
    const bool tabStop = isOption(control) && (anySelected ? isSelected(control) : !goesOn);
    return (goesOn ? 0 : DWORD{WS_GROUP}) | (tabStop ? DWORD{WS_TABSTOP} : 0);
}

}  // namespace

std::vector<DWORD> dialogTemplate(const forms::Form& form) {
    TemplateWriter writer;
    writeDialog(writer, form);
    const Controls order = windowOrder(form);
    for (std::size_t index = 0; index < order.size(); ++index) {
        const auto place = std::ranges::find(form.controls(), order[index]) - form.controls().begin();
        writeControl(writer, *order[index], firstControlId + static_cast<DWORD>(place),
                     groupStyle(order, index));
    }
    return writer.finish();
}

}  // namespace platform::windows
