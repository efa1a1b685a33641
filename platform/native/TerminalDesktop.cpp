#include "platform/native/TerminalDesktop.h"

#include <algorithm>
#include <cstdlib>
#include <istream>
#include <ostream>

#include "platform/formLists.h"
#include "platform/formPages.h"
#include "platform/native/accessKeys.h"
#include "platform/number.h"
#include "platform/terminalText.h"
#include "platform/text.h"

namespace platform::native {

namespace {

using Controls = std::vector<forms::Control*>;

constexpr std::size_t lineWidth = 76;
const std::string rule(lineWidth, '-');

/// The controls that a person can use, in tab order; their numbers on the terminal are their places here.
Controls usable(const forms::Form& form) {
    Controls controls;
    std::ranges::copy_if(form.controls(), std::back_inserter(controls),
                         [](const forms::Control* control) { return accepts(*control); });
    return controls;
}

forms::Control* choose(const std::wstring& word, const forms::Form& form) {
    const Controls controls = usable(form);
    if (!word.empty() && std::ranges::all_of(word, [](wchar_t c) { return c >= L'0' && c <= L'9'; })) {
        const auto number = std::wcstoul(word.c_str(), nullptr, 10);
        return number >= 1 && number <= controls.size() ? controls[number - 1] : nullptr;
    }
    if (word.size() == 1) {
        return findByAccessKey(form, word[0]);
    }
    forms::Control* control = findControl(form, word);
    return control && accepts(*control) ? control : nullptr;
}

/// The entries of a list, numbered, each on a line of its own.
std::wstring drawing(const forms::List& list) {
    std::wstring lines = L"[" + list.value() + L"]";
    for (int index = 0; const std::wstring& item : list.items()) {
        lines +=
            (index == list.selected() ? L"\n  > " : L"\n    ") + std::to_wstring(index + 1) + L" " + item;
        ++index;
    }
    return lines;
}

struct Marks {
    const wchar_t* marked;
    const wchar_t* unmarked;
};

std::wstring drawing(const forms::MarkedList& list, const Marks& marks) {
    std::wstring lines = L"[" + list.value() + L"]";
    for (int position = 0; const forms::MarkedList::Row& row : list.rows()) {
        lines += L"\n" + std::wstring(row.marked ? marks.marked : marks.unmarked) +
                 std::to_wstring(++position) + L" " + row.text;
    }
    return lines;
}

std::wstring drawing(const forms::TabStrip& strip) {
    std::wstring row;
    for (std::size_t index = 0; const forms::Frame* page : strip.pages()) {
        const bool selected = index++ == strip.selected();
        row += (row.empty() ? L"" : L" | ") + std::to_wstring(index) + (selected ? L" [" : L" ") +
               page->caption() + (selected ? L"]" : L"");
    }
    return row;
}

std::wstring drawing(const forms::Control& control) {
    const std::wstring caption = plainCaption(control);
    switch (control.kind()) {
        case forms::Kind::Label:
            return caption;
        case forms::Kind::Button: {
            const bool isDefault =
                static_cast<const forms::Button&>(control).role() == forms::Button::Role::Default;
            return L"[ " + caption + L" ]" + (isDefault ? L" (Enter)" : L"");
        }
        case forms::Kind::CheckBox:
            return (control.value() == L"1"   ? L"[x] "
                    : control.value() == L"2" ? L"[-] "
                                              : L"[ ] ") +
                   caption;
        case forms::Kind::OptionButton:
            return (control.value() == L"1" ? L"(o) " : L"( ) ") + caption;
        case forms::Kind::TextBox:
            return L"[" + control.value() + L"]";
        case forms::Kind::ListBox:
        case forms::Kind::ComboBox:
            return drawing(static_cast<const forms::List&>(control));
        case forms::Kind::CheckList:
            return drawing(static_cast<const forms::MarkedList&>(control), {L"    [x] ", L"    [ ] "});
        case forms::Kind::SelectionList:
            return drawing(static_cast<const forms::MarkedList&>(control), {L"  > ", L"    "});
        case forms::Kind::Link:
            return L"<" + caption + L">";
        case forms::Kind::TabStrip:
            return drawing(static_cast<const forms::TabStrip&>(control));
        case forms::Kind::Frame:
            return static_cast<const forms::Frame&>(control).border() == forms::Frame::Border::Box
                       ? caption + L":"
                       : std::wstring();
        case forms::Kind::Picture:
            break;
    }
    return {};
}

/// How a person is asked for a value of the control.
std::wstring_view questionFor(const forms::Control& control) {
    switch (control.kind()) {
        case forms::Kind::ListBox:
        case forms::Kind::ComboBox:
            return L"Number or text of the entry: ";
        case forms::Kind::CheckList:
            return L"Numbers of the rows to tick, no others, with commas between: ";
        case forms::Kind::SelectionList:
            return L"Numbers of the rows to select, no others, with commas between: ";
        case forms::Kind::TabStrip:
            return L"Number or name of the page: ";
        default:
            return L"New text: ";
    }
}

/// The text that is typed, or that stands at the place that is typed.
std::optional<std::wstring> entryOf(const std::vector<std::wstring>& items, const std::wstring& typed) {
    if (std::ranges::find(items, typed) != items.end()) {
        return typed;
    }
    const auto position = number::parse(typed).value_or(0);
    for (int index = 0; const std::wstring& item : items) {
        if (position == ++index) {
            return item;
        }
    }
    return std::nullopt;
}

std::vector<std::wstring> captionsOf(const forms::TabStrip& strip) {
    std::vector<std::wstring> captions;
    std::ranges::transform(strip.pages(), std::back_inserter(captions), &forms::Frame::caption);
    return captions;
}

/// The value that the typed text means; nothing when the control has none such.
std::optional<std::wstring> valueOf(const forms::Control& control, const std::wstring& typed) {
    switch (control.kind()) {
        case forms::Kind::ListBox:
        case forms::Kind::ComboBox:
            return entryOf(static_cast<const forms::List&>(control).items(), typed);
        case forms::Kind::TabStrip:
            return entryOf(captionsOf(static_cast<const forms::TabStrip&>(control)), typed);
        case forms::Kind::CheckList:
        case forms::Kind::SelectionList: {
            const std::size_t rows = static_cast<const forms::MarkedList&>(control).rows().size();
            return forms::MarkedList::parseMarks(typed, rows) ? std::optional(typed) : std::nullopt;
        }
        case forms::Kind::CheckBox:
            return typed == L"0" || typed == L"1" ? std::optional(typed) : std::nullopt;
        case forms::Kind::OptionButton:
            return typed == L"1" ? std::optional(typed) : std::nullopt;
        default:
            return typed;
    }
}

/// Breaks long lines between words.
std::string wrapped(const std::string& text) {
    std::string result;
    std::size_t column = 0;
    std::size_t lastBlank = std::string::npos;
    for (const char byte : text) {
        result += byte;
        column = byte == '\n' ? 0 : column + ((byte & 0xC0) == 0x80 ? 0 : 1);
        if (byte == '\n') {
            lastBlank = std::string::npos;
        } else if (byte == ' ') {
            lastBlank = result.size() - 1;
        }
        if (column > lineWidth && lastBlank != std::string::npos) {
            result[lastBlank] = '\n';
            column = result.size() - 1 - lastBlank;
            lastBlank = std::string::npos;
        }
    }
    return result;
}

/// The visible controls as a person reads them: by rows, each from left to right.
std::string draw(const forms::Form& form) {
    Controls shown;
    std::ranges::copy_if(form.controls(), std::back_inserter(shown), &forms::Control::visible);
    std::ranges::stable_sort(shown, [](const forms::Control* left, const forms::Control* right) {
        return left->place().top < right->place().top;
    });
    constexpr int rowHeight = 6;  // A text box stands a little above the label beside it.
    const Controls numbered = usable(form);
    std::string picture;
    for (auto row = shown.begin(); row != shown.end();) {
        const auto end = std::find_if(row, shown.end(), [row](const forms::Control* control) {
            return control->place().top >= (*row)->place().top + rowHeight;
        });
        std::stable_sort(row, end, [](const forms::Control* left, const forms::Control* right) {
            return left->place().left < right->place().left;
        });
        std::string line;
        for (; row != end; ++row) {
            const auto place = std::ranges::find(numbered, *row);
            const std::string number =
                place == numbered.end() ? "" : std::to_string(place - numbered.begin() + 1) + " ";
            const std::string drawn = number + terminalText(drawing(**row));
            const bool afterList = line.find('\n') != std::string::npos;
            line += (line.empty() || drawn.empty() ? "" : afterList ? "\n" : "   ") + drawn;
        }
        if (!line.empty()) {
            picture += wrapped(line) + '\n';
        }
    }
    return picture;
}

}  // namespace

std::optional<std::wstring> TerminalDesktop::readLine(std::wstring_view question) {
    output_ << text::toUtf8(question) << std::flush;
    std::string line;
    if (!std::getline(input_, line)) {
        output_ << '\n';
        return std::nullopt;
    }
    return text::fromUtf8(line);
}

void TerminalDesktop::sound() {
    output_ << '\a' << std::flush;
}

std::optional<Answer> TerminalDesktop::ask(const MessagePrompt& prompt) {
    const auto answers = answersOf(prompt.style.buttons);
    std::wstring question;
    for (const Answer answer : answers) {
        question += (question.empty() ? L"[" : L"  [") + std::wstring(nameOf(answer)) +
                    (answer == answers.front() ? L"] (Enter)" : L"]");
    }
    output_ << '\n'
            << rule << '\n'
            << terminalLine(prompt.title) << '\n'
            << rule << '\n'
            << wrapped(terminalText(prompt.text)) << "\n\n";
    for (;;) {
        const auto line = readLine(question + L" ? ");
        if (!line) {
            return std::nullopt;
        }
        const auto word = text::trim(*line);
        if (word.empty()) {
            return answers.front();
        }
        const auto fits = std::ranges::find_if(answers, [word](Answer answer) {
            return text::equalsIgnoringCase(nameOf(answer).substr(0, word.size()), word);
        });
        if (fits != answers.end()) {
            return *fits;
        }
    }
}

std::optional<FormAnswer> TerminalDesktop::ask(const FormPrompt& prompt, const forms::Form& form) {
    output_ << '\n'
            << rule << '\n'
            << terminalLine(prompt.caption) << '\n'
            << rule << '\n'
            << draw(form) << '\n';
    for (;;) {
        const auto line =
            readLine(L"Number or access key, \"number=text\" to fill in, Enter for the default button: ");
        if (!line) {
            return std::nullopt;
        }
        if (auto answer = understand(*line, form)) {
            return answer;
        }
        output_ << "That is not possible here.\n";
    }
}

std::optional<FolderAnswer> TerminalDesktop::ask(const FolderPrompt& prompt) {
    output_ << '\n' << rule << '\n' << terminalLine(prompt.title) << '\n' << rule << '\n';
    auto path = readLine(L"Path of the folder, Enter to cancel: ");
    return path ? std::optional(FolderAnswer{std::move(*path)}) : std::nullopt;
}

std::optional<FormAnswer> TerminalDesktop::understand(const std::wstring& line, const forms::Form& form) {
    if (text::trim(line).empty()) {
        const forms::Button* button = form.button(forms::Button::Role::Default);
        return button ? std::optional(FormAnswer{{}, button->name()}) : std::nullopt;
    }
    const forms::Control* control = choose(std::wstring(text::trim(text::before(line, L'='))), form);
    if (!control) {
        return std::nullopt;
    }
    if (forms::isPressed(control->kind())) {
        return FormAnswer{{}, control->name()};
    }
    std::optional<std::wstring> typed;
    if (const auto cut = line.find(L'='); cut != std::wstring::npos) {
        typed = line.substr(cut + 1);
    } else if (control->kind() == forms::Kind::CheckBox) {
        typed = control->value() == L"1" ? L"0" : L"1";
    } else if (control->kind() == forms::Kind::OptionButton) {
        typed = L"1";
    } else {
        typed = readLine(questionFor(*control));
    }
    const auto value = typed ? valueOf(*control, *typed) : std::nullopt;
    return value ? std::optional(FormAnswer{{{control->name(), *value}}, {}}) : std::nullopt;
}

}  // namespace platform::native
