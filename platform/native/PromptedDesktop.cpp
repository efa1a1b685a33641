#include "platform/native/PromptedDesktop.h"

#include <algorithm>

#include "platform/native/accessKeys.h"
#include "platform/text.h"

namespace platform::native {

namespace {

/// Stands for the window of an open form; what it draws is drawn anew at each prompt.
class OpenForm : public forms::View {
  public:
    explicit OpenForm(forms::Form& form) : form_(form), outer_(form.view()) { form_.setView(this); }
    OpenForm(const OpenForm&) = delete;
    OpenForm& operator=(const OpenForm&) = delete;
    ~OpenForm() override { form_.setView(outer_); }

    bool open() const { return open_; }

    void refresh(const forms::Control&) override {}
    void captionChanged() override {}
    void focus(const forms::Control& control) override { form_.focused(control); }
    void close() override { open_ = false; }

  private:
    forms::Form& form_;
    forms::View* outer_;
    bool open_ = true;
};

}  // namespace

forms::Control* findControl(const forms::Form& form, std::wstring_view name) {
    const auto found = std::ranges::find_if(form.controls(), [name](const forms::Control* control) {
        return text::equalsIgnoringCase(control->name(), name);
    });
    return found == form.controls().end() ? nullptr : *found;
}

FormPrompt describe(const forms::Form& form) {
    FormPrompt prompt{form.name(), form.caption(), {}, form.waits()};
    for (const forms::Control* control : form.controls()) {
        prompt.controls.push_back({control->name(), control->caption(), control->value(), control->enabled(),
                                   control->visible(), forms::isFillable(control->kind())});
    }
    return prompt;
}

Answer PromptedDesktop::messageBox(const std::wstring& prompt, MessageStyle style,
                                   const std::wstring& title) {
    if (unanswered_) {
        return neutralAnswer(style.buttons);
    }
    const MessagePrompt message{title, prompt, style};
    const auto answer = ask(message);
    observer_.message(message, answer);
    if (!answer) {
        unanswered_ = L"no answer for the message \"" + title + L"\"";
    }
    return answer.value_or(neutralAnswer(style.buttons));
}

void PromptedDesktop::beep() {
    if (!unanswered_) {
        observer_.beep();
        sound();
    }
}

HelpOutcome PromptedDesktop::showHelp(const std::wstring& file, const std::wstring& topic, HelpView view) {
    if (!unanswered_ && helpOutcome == HelpOutcome::Shown) {
        observer_.help(file, topic, view);
    }
    return helpOutcome;
}

void PromptedDesktop::openAddress(const WebAddress& address) {
    if (!unanswered_) {
        observer_.opened(address);
    }
}

void PromptedDesktop::startProgram(const std::wstring& path) {
    if (!unanswered_) {
        observer_.started(path);
    }
}

void PromptedDesktop::showModal(forms::Form& form) {
    const OpenForm window(form);
    while (window.open() && !unanswered_) {
        runForm(form);
    }
    if (window.open()) {
        form.closeBox();
    }
}

std::wstring PromptedDesktop::chooseFolder(const std::wstring& title) {
    if (unanswered_) {
        return {};
    }
    const FolderPrompt prompt{title};
    const auto answer = ask(prompt);
    observer_.folder(prompt, answer);
    if (!answer) {
        unanswered_ = L"no answer for the folder browser \"" + title + L"\"";
    }
    return answer.value_or(FolderAnswer()).path;
}

void PromptedDesktop::runForm(forms::Form& form) {
    const FormPrompt prompt = describe(form);
    const auto answer = ask(prompt, form);
    if (!answer && form.waits() && events_.step()) {
        return;
    }
    observer_.form(prompt, answer);
    if (answer) {
        apply(*answer, form);
    } else {
        unanswered_ = L"no answer for the form " + form.name() + L" \"" + form.caption() + L"\"";
    }
}

void PromptedDesktop::apply(const FormAnswer& answer, forms::Form& form) {
    for (const auto& [control, value] : answer.entries) {
        if (!enter(form, control, value)) {
            return;
        }
    }
    if (answer.button == L"{Escape}") {
        form.closeBox();
    } else if (answer.button.starts_with(L'{')) {
        press(form, answer.button);
    } else if (!answer.button.empty()) {
        enter(form, answer.button, {});
    }
}

/// A key that stands for a button.
void PromptedDesktop::press(forms::Form& form, const std::wstring& key) {
    constexpr std::wstring_view altKey = L"{Alt+";
    const forms::Control* control = nullptr;
    if (key == L"{Enter}") {
        control = form.button(forms::Button::Role::Default);
    } else if (key.starts_with(altKey) && key.size() == altKey.size() + 2) {
        control = findByAccessKey(form, key[altKey.size()]);
    }
    if (control && forms::isPressed(control->kind())) {
        enter(form, control->name(), {});
    } else {
        unanswered_ = L"the key " + key + L" presses no button of the form " + form.name();
    }
}

/// False when the form cannot be answered so, which leaves it without an answer.
bool PromptedDesktop::enter(forms::Form& form, const std::wstring& controlName, const std::wstring& value) {
    forms::Control* control = findControl(form, controlName);
    if (!control) {
        unanswered_ = L"the form " + form.name() + L" has no control " + controlName;
        return false;
    }
    const bool usable = control->enabled() && control->visible();
    // A button may well disable itself while it is pressed.
    if (!usable || (!control->enter(value) && !forms::isPressed(control->kind()))) {
        unanswered_ = L"the control " + control->name() + L" of the form " + form.name() +
                      L" cannot take \"" + value + L"\" now";
        return false;
    }
    return !unanswered_;
}

}  // namespace platform::native
