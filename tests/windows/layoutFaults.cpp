#include "tests/windows/layoutFaults.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/text.h"
#include "platform/windows/dialogProperties.h"
#include "platform/windows/dialogTemplate.h"
#include "platform/windows/windowText.h"

namespace {

/// Fonts differ a little from system to system: texts get this part of their room only.
constexpr double usableWidth = 0.95;

struct Shown {
    HWND window;
    std::string name;
    forms::Kind kind;
    std::wstring text;
    /// In the dialog's client area.
    RECT place;
};

LONG width(const RECT& area) {
    return area.right - area.left;
}

LONG height(const RECT& area) {
    return area.bottom - area.top;
}

std::vector<Shown> shownControls(HWND dialog) {
    std::vector<Shown> controls;
    for (int id = platform::windows::firstControlId; HWND window = GetDlgItem(dialog, id); ++id) {
        if ((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) == 0) {
            continue;
        }
        const auto name = platform::windows::attachedName(window, platform::windows::controlNameProperty);
        Shown control{window, text::toUtf8(name.value_or(L"?")),
                      platform::windows::attachedKind(window).value_or(forms::Kind::Label),
                      platform::windows::windowText(window), RECT{}};
        GetWindowRect(window, &control.place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&control.place), 2);
        controls.push_back(std::move(control));
    }
    return controls;
}

/// The size of a text in a font, wrapped between words to `room` pixels when `format` says so.
RECT measure(const std::wstring& text, HFONT font, LONG room, UINT format) {
    HDC context = CreateCompatibleDC(nullptr);
    HGDIOBJ former = SelectObject(context, font);
    RECT area{0, 0, room, 0};
    DrawTextW(context, text.c_str(), -1, &area, format | DT_CALCRECT);
    SelectObject(context, former);
    DeleteDC(context);
    return area;
}

/// What a control's kind leaves of it for its text, in pixels.
struct Margins {
    LONG across;
    LONG down;
};

Margins marginsOf(forms::Kind kind) {
    switch (kind) {
        case forms::Kind::Button:
            return {8, 6};  // The edges and the frame of the focus on both sides.
        case forms::Kind::CheckBox:
        case forms::Kind::OptionButton:
            return {GetSystemMetrics(SM_CXMENUCHECK) + 6, 0};  // The box and the gap behind it.
        default:
            return {0, 0};
    }
}

/// True when the text has no room, on as many lines as the control may give it.
bool isCutOff(const Shown& control, const std::wstring& text, UINT format) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control.window, WM_GETFONT, 0, 0));
    const auto [across, down] = marginsOf(control.kind);
    const auto room = static_cast<LONG>((width(control.place) - across) * usableWidth);
    const RECT needed = measure(text, font, room, format);
    return width(needed) > room || height(needed) > height(control.place) - down;
}

/// Those that do not fit are reached by arrows, which nobody looks for.
bool tabsAreCutOff(const Shown& strip) {
    const LRESULT count = SendMessageW(strip.window, TCM_GETITEMCOUNT, 0, 0);
    RECT last{};
    SendMessageW(strip.window, TCM_GETITEMRECT, static_cast<WPARAM>(count - 1),
                 reinterpret_cast<LPARAM>(&last));
    return last.right > width(strip.place) * usableWidth || last.bottom > height(strip.place) + 2;
}

bool isCutOff(const Shown& control) {
    switch (control.kind) {
        case forms::Kind::Label: {
            const bool plain = (GetWindowLongPtrW(control.window, GWL_STYLE) & SS_NOPREFIX) != 0;
            return isCutOff(control, control.text,
                            DT_WORDBREAK | DT_EXPANDTABS | (plain ? UINT{DT_NOPREFIX} : 0));
        }
        case forms::Kind::CheckBox:
        case forms::Kind::OptionButton:
            return isCutOff(control, control.text, DT_WORDBREAK | DT_EXPANDTABS);
        case forms::Kind::Button:
            return isCutOff(control, control.text, DT_SINGLELINE);
        case forms::Kind::TextBox:
        case forms::Kind::ComboBox: {
            const Shown line{control.window, control.name, control.kind, {}, control.place};
            const auto font = reinterpret_cast<HFONT>(SendMessageW(line.window, WM_GETFONT, 0, 0));
            const LONG edges = 2 * GetSystemMetrics(SM_CYEDGE);
            return height(measure(L"Ag", font, 0, DT_SINGLELINE)) > height(line.place) - edges;
        }
        case forms::Kind::Picture:
            return width(control.place) < GetSystemMetrics(SM_CXICON) - 1 ||
                   height(control.place) < GetSystemMetrics(SM_CYICON) - 1;
        case forms::Kind::Link: {
            const auto end = control.text.rfind(L'<');
            const auto start = control.text.find(L'>') + 1;
            return isCutOff(control, control.text.substr(start, end - start), DT_SINGLELINE | DT_NOPREFIX);
        }
        case forms::Kind::TabStrip:
            return tabsAreCutOff(control);
        case forms::Kind::Frame:
            return width(control.place) > 0 && isCutOff(control, control.text, DT_SINGLELINE);
        case forms::Kind::ListBox:
        case forms::Kind::SelectionList:
        case forms::Kind::CheckList:
            break;  // They can be scrolled.
    }
    return false;
}

/// Between the left edge of the title bar and the close box.
bool titleIsCutOff(HWND dialog) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    HFONT font = CreateFontIndirectW(&metrics.lfCaptionFont);
    const RECT needed = measure(platform::windows::windowText(dialog), font, 0, DT_SINGLELINE | DT_NOPREFIX);
    DeleteObject(font);
    RECT client{};
    GetClientRect(dialog, &client);
    return width(needed) > (width(client) - metrics.iCaptionWidth - 8) * usableWidth;
}

bool isInside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

}  // namespace

std::vector<std::string> layoutFaults(HWND dialog) {
    std::vector<std::string> faults;
    if (titleIsCutOff(dialog)) {
        faults.emplace_back("the title is cut off");
    }
    RECT client{};
    GetClientRect(dialog, &client);
    const std::vector<Shown> controls = shownControls(dialog);
    for (auto control = controls.begin(); control != controls.end(); ++control) {
        if (isCutOff(*control)) {
            faults.push_back(control->name + " is cut off");
        }
        if (!isInside(control->place, client)) {
            faults.push_back(control->name + " is not inside the dialog");
        }
        for (auto other = controls.begin(); other != control; ++other) {
            RECT common{};
            const bool framed = control->kind == forms::Kind::Frame || other->kind == forms::Kind::Frame;
            if (!framed && IntersectRect(&common, &control->place, &other->place)) {
                faults.push_back(control->name + " overlaps " + other->name);
            }
        }
    }
    return faults;
}
