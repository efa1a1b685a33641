#include "program/Report.h"

#include <map>
#include <ostream>
#include <vector>

#include "host/LocalTime.h"
#include "platform/terminalText.h"
#include "platform/text.h"
#include "program/Answers.h"

namespace program {

namespace {

using platform::Answer;
using platform::Icon;
using platform::plainUtf8;
using platform::terminalLine;

const char* nameOf(Icon icon) {
    switch (icon) {
        case Icon::None:
            break;
        case Icon::Critical:
            return "critical";
        case Icon::Question:
            return "question";
        case Icon::Warning:
            return "warning";
        case Icon::Information:
            return "information";
    }
    return "none";
}

const char* nameOf(host::ReplyKind kind) {
    switch (kind) {
        case host::ReplyKind::Reply:
            break;
        case host::ReplyKind::ReplyAll:
            return "reply-all";
        case host::ReplyKind::Forward:
            return "forward";
    }
    return "reply";
}

const std::wstring& addressText(const host::Address& address) {
    return !address.smtpAddress.empty() ? address.smtpAddress
           : !address.address.empty()   ? address.address
                                        : address.name;
}

/// The recipients' addresses; of one type unless `type` is 0.
std::vector<std::wstring> addressesOf(const host::ItemView& mail, int type) {
    std::vector<std::wstring> addresses;
    for (const host::RecipientView& recipient : mail.recipients) {
        if (type == 0 || recipient.type == type) {
            addresses.push_back(addressText(recipient.address));
        }
    }
    return addresses;
}

Json toJson(const std::vector<std::wstring>& texts) {
    Json array = Json::array();
    for (const std::wstring& text : texts) {
        array.push_back(plainUtf8(text));
    }
    return array;
}

std::string joined(const std::vector<std::wstring>& items) {
    std::string result;
    for (const std::wstring& item : items) {
        result += (result.empty() ? "" : ", ") + terminalLine(item);
    }
    return result.empty() ? "nobody" : result;
}

/// Continuation lines of a prompt's text stand under its first.
std::string indented(const std::wstring& text, std::size_t columns = 6) {
    return platform::terminalText(text::replaceAll(text::replaceAll(text, text::lineBreak, L"\n"), L"\n",
                                                   L"\n" + std::wstring(columns, L' ')));
}

}  // namespace

void Report::line(const std::string& text) {
    output_ << text << '\n' << std::flush;
}

Json Report::event(const char* name) const {
    return {{"event", name}, {"file", file_ ? Json(plainUtf8(*file_)) : Json(nullptr)}};
}

void Report::message(const platform::MessagePrompt& prompt, std::optional<Answer> answer) {
    const std::string answered = answer ? plainUtf8(platform::nameOf(*answer)) : "";
    if (!json()) {
        if (!promptsSeen_) {
            line("  message: " + terminalLine(prompt.title));
            line("      " + indented(prompt.text));
            line("    answer: " + (answer ? answered : "none"));
        }
        return;
    }
    Json buttons = Json::array();
    for (const Answer button : platform::answersOf(prompt.style.buttons)) {
        buttons.push_back(plainUtf8(platform::nameOf(button)));
    }
    Json told = event("message");
    told["title"] = plainUtf8(prompt.title);
    told["text"] = plainUtf8(prompt.text);
    told["buttons"] = std::move(buttons);
    told["icon"] = nameOf(prompt.style.icon);
    told["answer"] = answer ? Json(answered) : Json(nullptr);
    line(jsonText(told));
}

void Report::form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer) {
    if (!json()) {
        formText(prompt, answer);
        return;
    }
    Json told = event("form");
    told["form"] = plainUtf8(prompt.form);
    told["caption"] = plainUtf8(prompt.caption);
    told["controls"] = Json::object();
    for (const platform::ControlState& control : prompt.controls) {
        told["controls"][plainUtf8(control.name)] = {{"caption", plainUtf8(control.caption)},
                                                     {"value", plainUtf8(control.value)},
                                                     {"enabled", control.enabled},
                                                     {"visible", control.visible}};
    }
    told["answer"] = answer ? Json(plainUtf8(answerText(*answer))) : Json(nullptr);
    line(jsonText(told));
}

void Report::formText(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer) {
    if (promptsSeen_) {
        return;
    }
    line("  form " + terminalLine(prompt.form) + ": " + terminalLine(prompt.caption));
    for (const platform::ControlState& control : prompt.controls) {
        const bool shows = !control.caption.empty() || !control.value.empty() || control.fillable;
        if (control.visible && shows) {
            constexpr std::size_t belowName = 10;
            const bool bracketed = control.fillable || !control.value.empty();
            line("      " + terminalLine(control.name) + ":" +
                 (control.caption.empty() ? "" : ' ' + indented(control.caption, belowName)) +
                 (bracketed ? " [" + indented(control.value, belowName) + "]" : "") +
                 (control.enabled ? "" : " (disabled)"));
        }
    }
    line("    answer: " + (answer ? indented(answerText(*answer)) : "none"));
}

void Report::folder(const platform::FolderPrompt& prompt,
                    const std::optional<platform::FolderAnswer>& answer) {
    if (json()) {
        Json told = event("folder");
        told["title"] = plainUtf8(prompt.title);
        told["path"] = answer ? Json(plainUtf8(answer->path)) : Json(nullptr);
        line(jsonText(told));
    } else if (!promptsSeen_) {
        line("  folder: " + terminalLine(prompt.title));
        line("    answer: " + (!answer                ? "none"
                               : answer->path.empty() ? "cancelled"
                                                      : terminalLine(answer->path)));
    }
}

void Report::beep() {
    if (json()) {
        line(jsonText(event("beep")));
    } else if (!promptsSeen_) {
        line("  beep");
    }
}

void Report::help(const std::wstring& file, const std::wstring& topic, platform::HelpView view) {
    const bool contents = view == platform::HelpView::Contents;
    if (json()) {
        Json opened = event("help");
        opened["help_file"] = text::toUtf8(file);
        opened["topic"] = text::toUtf8(topic);
        opened["contents"] = contents;
        line(jsonText(opened));
    } else {
        line("  help: " + terminalLine(file) + (topic.empty() ? "" : ", " + terminalLine(topic)) +
             (contents ? ", with its contents" : ""));
    }
}

void Report::opened(const platform::WebAddress& address) {
    if (!json()) {
        line("  opened: " + terminalLine(address.text()));
        return;
    }
    Json told = event("opened");
    told["address"] = plainUtf8(address.text());
    line(jsonText(told));
}

void Report::started(const std::wstring& program) {
    if (!json()) {
        line("  started: " + terminalLine(program));
        return;
    }
    Json told = event("started");
    told["program"] = plainUtf8(program);
    line(jsonText(told));
}

void Report::prepared(const host::ItemView& mail) {
    const auto to = addressesOf(mail, 0);
    if (!json()) {
        line("  mail opened: \"" + terminalLine(mail.subject) + "\" to " + joined(to));
        line("      " + indented(mail.body));
        return;
    }
    Json told = event("mail");
    told["subject"] = plainUtf8(mail.subject);
    told["to"] = toJson(to);
    told["body"] = plainUtf8(mail.body);
    line(jsonText(told));
}

void Report::begin(const std::wstring& file) {
    file_ = file;
    if (!json()) {
        line(terminalLine(file));
    }
}

void Report::unreadable(const std::wstring& file, const std::string& why) {
    if (json()) {
        begin(file);
        error(text::fromUtf8(why));
        end();
    }
}

void Report::received(const host::ItemView& mail) {
    if (!json()) {
        line("  received: \"" + terminalLine(mail.subject) + '"');
        return;
    }
    Json told = event("received");
    told["subject"] = plainUtf8(mail.subject);
    line(jsonText(told));
}

void Report::sent(const host::ItemView& mail) {
    outcome("sent", mail);
}

void Report::cancelled(const host::ItemView& mail) {
    outcome("cancelled", mail);
}

void Report::outcome(const char* name, const host::ItemView& mail) {
    const auto to = addressesOf(mail, 1);
    if (!json()) {
        line(std::string("  ") + name + ": \"" + terminalLine(mail.subject) + "\" to " + joined(to) +
             " with account " + terminalLine(mail.account) +
             (mail.deferred ? ", to leave at " + host::toIsoTime(*mail.deferred) : ""));
        return;
    }
    Json told = event(name);
    told["subject"] = plainUtf8(mail.subject);
    told["to"] = toJson(to);
    told["deferred"] = mail.deferred ? Json(host::toIsoTime(*mail.deferred)) : Json(nullptr);
    told["account"] = plainUtf8(mail.account);
    line(jsonText(told));
}

void Report::reply(host::ReplyKind kind, const host::ItemView& mail) {
    const auto recipients = addressesOf(mail, 0);
    if (!json()) {
        line(std::string("  ") + nameOf(kind) + " opened: \"" + terminalLine(mail.subject) + "\" to " +
             joined(recipients));
        return;
    }
    Json told = event("reply");
    told["kind"] = nameOf(kind);
    told["subject"] = plainUtf8(mail.subject);
    told["recipients"] = toJson(recipients);
    line(jsonText(told));
}

void Report::replyCancelled() {
    line(json() ? jsonText(event("reply-cancelled")) : "  reply cancelled");
}

void Report::error(const std::wstring& text) {
    if (!json()) {
        line("  error: " + indented(text));
        return;
    }
    Json told = event("error");
    told["text"] = plainUtf8(text);
    line(jsonText(told));
}

void Report::skipped(const std::vector<std::string>& entries) {
    std::map<std::string, int> times;
    for (const std::string& entry : entries) {
        ++times[entry];
    }
    if (!json()) {
        line(times.empty() ? "nothing was left undone" : "left undone:");
    }
    for (const auto& [entry, count] : times) {
        if (!json()) {
            line("  " + std::to_string(count) + " x " + entry);
            continue;
        }
        Json told = event("skipped");
        told["what"] = entry;
        told["times"] = count;
        line(jsonText(told));
    }
}

}  // namespace program
