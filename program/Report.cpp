#include "program/Report.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "host/LocalTime.h"
#include "platform/text.h"
#include "program/Answers.h"

namespace program {

namespace {

using Json = nlohmann::ordered_json;
using platform::Answer;
using platform::Icon;

std::string dump(const Json& json) {
    // Readers take lone surrogates badly: they become U+FFFD.
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

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

std::string addressText(const host::Address& address) {
    const std::wstring& best = !address.smtpAddress.empty() ? address.smtpAddress
                               : !address.address.empty()   ? address.address
                                                            : address.name;
    return text::toUtf8(best);
}

/// The recipients' addresses; of one type unless `type` is 0.
std::vector<std::string> addressesOf(const host::ItemView& mail, int type) {
    std::vector<std::string> addresses;
    for (const host::RecipientView& recipient : mail.recipients) {
        if (type == 0 || recipient.type == type) {
            addresses.push_back(addressText(recipient.address));
        }
    }
    return addresses;
}

std::string joined(const std::vector<std::string>& items) {
    std::string result;
    for (const std::string& item : items) {
        result += (result.empty() ? "" : ", ") + item;
    }
    return result.empty() ? "nobody" : result;
}

/// Continuation lines of a prompt's text stand under its first.
std::string indented(const std::wstring& text, std::size_t columns = 6) {
    return text::toUtf8(text::replaceAll(text::replaceAll(text, text::lineBreak, L"\n"), L"\n",
                                         L"\n" + std::wstring(columns, L' ')));
}

}  // namespace

void Report::line(const std::string& text) {
    output_ << text << '\n' << std::flush;
}

void Report::message(const platform::MessagePrompt& prompt, std::optional<Answer> answer) {
    const std::string answered = answer ? text::toUtf8(platform::nameOf(*answer)) : "";
    if (!json()) {
        if (!promptsSeen_) {
            line("  message: " + text::toUtf8(prompt.title));
            line("      " + indented(prompt.text));
            line("    answer: " + (answer ? answered : "none"));
        }
        return;
    }
    Json buttons = Json::array();
    for (const Answer button : platform::answersOf(prompt.style.buttons)) {
        buttons.push_back(text::toUtf8(platform::nameOf(button)));
    }
    line(dump({{"event", "message"},
               {"title", text::toUtf8(prompt.title)},
               {"text", text::toUtf8(prompt.text)},
               {"buttons", buttons},
               {"icon", nameOf(prompt.style.icon)},
               {"answer", answer ? Json(answered) : Json(nullptr)}}));
}

void Report::form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer) {
    const std::string answered = answer ? text::toUtf8(answerText(*answer)) : "";
    if (!json()) {
        if (promptsSeen_) {
            return;
        }
        line("  form " + text::toUtf8(prompt.form) + ": " + text::toUtf8(prompt.caption));
        for (const platform::ControlState& control : prompt.controls) {
            if (control.visible && !(control.caption.empty() && control.value.empty())) {
                constexpr std::size_t belowName = 10;
                line("      " + text::toUtf8(control.name) + ": " + indented(control.caption, belowName) +
                     (control.value.empty() ? "" : " [" + indented(control.value, belowName) + "]"));
            }
        }
        line("    answer: " + (answer ? answered : "none"));
        return;
    }
    Json controls = Json::object();
    for (const platform::ControlState& control : prompt.controls) {
        controls[text::toUtf8(control.name)] = {{"caption", text::toUtf8(control.caption)},
                                                {"value", text::toUtf8(control.value)},
                                                {"enabled", control.enabled},
                                                {"visible", control.visible}};
    }
    line(dump({{"event", "form"},
               {"form", text::toUtf8(prompt.form)},
               {"caption", text::toUtf8(prompt.caption)},
               {"controls", controls},
               {"answer", answer ? Json(answered) : Json(nullptr)}}));
}

void Report::beep() {
    if (json()) {
        line(dump({{"event", "beep"}}));
    } else if (promptsSeen_) {
        output_ << '\a' << std::flush;
    } else {
        line("  beep");
    }
}

void Report::begin(const std::string& file) {
    if (!json()) {
        line(file);
    }
}

void Report::sent(const std::string& file, const host::ItemView& mail) {
    outcome("sent", file, mail);
}

void Report::cancelled(const std::string& file, const host::ItemView& mail) {
    outcome("cancelled", file, mail);
}

void Report::outcome(const char* event, const std::string& file, const host::ItemView& mail) {
    const auto to = addressesOf(mail, 1);
    if (!json()) {
        line(std::string("  ") + event + ": \"" + text::toUtf8(mail.subject) + "\" to " + joined(to) +
             " with account " + text::toUtf8(mail.account) +
             (mail.deferred ? ", to leave at " + host::toIsoTime(*mail.deferred) : ""));
        return;
    }
    line(dump({{"event", event},
               {"file", file},
               {"subject", text::toUtf8(mail.subject)},
               {"to", to},
               {"deferred", mail.deferred ? Json(host::toIsoTime(*mail.deferred)) : Json(nullptr)},
               {"account", text::toUtf8(mail.account)}}));
}

void Report::reply(host::ReplyKind kind, const host::ItemView& mail) {
    const auto recipients = addressesOf(mail, 0);
    if (!json()) {
        line(std::string("  ") + nameOf(kind) + " opened: \"" + text::toUtf8(mail.subject) + "\" to " +
             joined(recipients));
        return;
    }
    line(dump({{"event", "reply"},
               {"kind", nameOf(kind)},
               {"subject", text::toUtf8(mail.subject)},
               {"recipients", recipients}}));
}

void Report::replyCancelled() {
    line(json() ? dump({{"event", "reply-cancelled"}}) : "  reply cancelled");
}

void Report::error(const std::wstring& text) {
    line(json() ? dump({{"event", "error"}, {"text", text::toUtf8(text)}}) : "  error: " + indented(text));
}

}  // namespace program
