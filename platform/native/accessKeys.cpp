#include "platform/native/accessKeys.h"

#include "platform/text.h"

namespace platform::native {

namespace {

/// The upper-case character after the caption's "&", or NUL.
wchar_t accessKey(const forms::Control& control) {
    const std::wstring_view caption = control.marksAccessKey() ? control.caption() : std::wstring_view();
    for (std::size_t index = 0; index + 1 < caption.size(); ++index) {
        if (caption[index] == L'&' && caption[++index] != L'&') {
            return text::upperCase(caption[index]);
        }
    }
    return L'\0';
}

}  // namespace

std::wstring plainCaption(const forms::Control& control) {
    const std::wstring& caption = control.caption();
    if (!control.marksAccessKey()) {
        return caption;
    }
    std::wstring plain;
    for (std::size_t index = 0; index < caption.size(); ++index) {
        if (caption[index] == L'&' && ++index == caption.size()) {
            break;
        }
        plain += caption[index];
    }
    return plain;
}

bool accepts(const forms::Control& control) {
    switch (control.kind()) {
        case forms::Kind::Label:
        case forms::Kind::Picture:
        case forms::Kind::Frame:
            return false;
        case forms::Kind::TextBox:
            if (static_cast<const forms::TextBox&>(control).readOnly()) {
                return false;
            }
            break;
        default:
            break;
    }
    return control.visible() && control.enabled();
}

forms::Control* findByAccessKey(const forms::Form& form, wchar_t key) {
    bool labelled = false;
    for (forms::Control* control : form.controls()) {
        const bool named = control->visible() && accessKey(*control) == text::upperCase(key);
        if (accepts(*control) && (named || labelled)) {
            return control;
        }
        labelled = named && control->kind() == forms::Kind::Label;
    }
    return nullptr;
}

}  // namespace platform::native
