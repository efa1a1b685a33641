#include "platform/Prompts.h"

#include <algorithm>

#include "platform/text.h"

namespace platform {

namespace {

bool startsWithIgnoringCase(std::wstring_view text, std::wstring_view start) {
    return text::equalsIgnoringCase(text.substr(0, start.size()), start);
}

/// Removes the first answer that fits and gives what it says.
template <class What, class Fits>
std::optional<What> takeFirst(std::vector<PromptAnswer>& answers, Fits fits) {
    const auto found = std::ranges::find_if(answers, [&fits](const PromptAnswer& answer) {
        const auto* what = std::get_if<What>(&answer.what);
        return what && fits(answer.where, *what);
    });
    if (found == answers.end()) {
        return std::nullopt;
    }
    What what = std::get<What>(std::move(found->what));
    answers.erase(found);
    return what;
}

}  // namespace

std::optional<Answer> AnswerList::take(const MessagePrompt& prompt) {
    const auto buttons = answersOf(prompt.style.buttons);
    return takeFirst<Answer>(answers_, [&](const std::wstring& where, Answer answer) {
        return startsWithIgnoringCase(prompt.title, where) && std::ranges::count(buttons, answer) > 0;
    });
}

std::optional<FormAnswer> AnswerList::take(const FormPrompt& prompt) {
    return takeFirst<FormAnswer>(answers_, [&](const std::wstring& where, const FormAnswer&) {
        return text::equalsIgnoringCase(prompt.form, where);
    });
}

std::optional<FolderAnswer> AnswerList::take(const FolderPrompt&) {
    return takeFirst<FolderAnswer>(answers_, [](const std::wstring&, const FolderAnswer&) { return true; });
}

std::vector<Answer> answersOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            break;
        case Buttons::OkCancel:
            return {Answer::Ok, Answer::Cancel};
        case Buttons::YesNo:
            return {Answer::Yes, Answer::No};
    }
    return {Answer::Ok};
}

Answer neutralAnswer(Buttons buttons) {
    return answersOf(buttons).back();
}

std::wstring_view nameOf(Answer answer) {
    switch (answer) {
        case Answer::Ok:
            return L"OK";
        case Answer::Cancel:
            return L"Cancel";
        case Answer::Yes:
            return L"Yes";
        case Answer::No:
            break;
    }
    return L"No";
}

std::optional<Answer> answerNamed(std::wstring_view name) {
    for (const Answer answer : {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No}) {
        if (text::equalsIgnoringCase(name, nameOf(answer))) {
            return answer;
        }
    }
    return std::nullopt;
}

}  // namespace platform
