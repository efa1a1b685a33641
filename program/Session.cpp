#include "program/Session.h"

#include <algorithm>

#include "platform/outlook.h"
#include "platform/text.h"

namespace program {

namespace {

constexpr std::int32_t itemSend = 0xF002;

host::ReplyKind replyKind(Command command) {
    switch (command) {
        case Command::ReplyAll:
            return host::ReplyKind::ReplyAll;
        case Command::Forward:
            return host::ReplyKind::Forward;
        default:
            return host::ReplyKind::Reply;
    }
}

/// Takes the user's own addresses from what the recipients of the message see.
void hideUser(const CommandLine& line, host::Message& message) {
    const auto isOwn = [&line](const host::Address& address) {
        return std::ranges::any_of(line.accounts, [&address](const host::Account& account) {
            return text::equalsTrimmed(account.address, address.address);
        });
    };
    std::erase_if(message.to, isOwn);
    std::erase_if(message.cc, isOwn);
}

}  // namespace

void prepareSettings(const CommandLine& line, platform::SettingsStore& settings) {
    constexpr wchar_t showWizard[] = L"ShowStartupWizard";
    if (!line.firstRun) {
        settings.write(showWizard, L"False");
    } else if (settings.read(showWizard)) {
        settings.write(showWizard, L"True");
    }
    for (const auto& [key, value] : line.settings) {
        settings.write(key, value);
    }
}

Session::Session(const CommandLine& line, host::Outlook& outlook, Report& report,
                 std::function<bool()> promptUnanswered)
    : line_(line), outlook_(outlook), report_(report), promptUnanswered_(std::move(promptUnanswered)) {
    veto_ = automation::subscribe(outlook_.application(), outlook::events::application,
                                  [this](std::int32_t event, std::span<automation::Value> arguments) {
                                      if (event == itemSend && arguments.size() == 2 && promptUnanswered_()) {
                                          arguments[1].variable() = true;
                                      }
                                  });
}

ExitStatus Session::run(const std::vector<MessageFile>& messages) {
    reportErrors();
    if (line_.command == Command::List) {
        return openList();
    }
    bool cancelled = false;
    for (const MessageFile& file : messages) {
        if (promptUnanswered_()) {
            break;
        }
        report_.begin(file.name);
        try {
            const bool done =
                line_.command == Command::Send ? send(file) : answer(replyKind(line_.command), file);
            cancelled = cancelled || !done;
        } catch (const automation::Error& error) {
            report_.error(error.description());
            cancelled = true;
        }
        reportErrors();
    }
    return ended(cancelled);
}

ExitStatus Session::ended(bool cancelled) const {
    if (promptUnanswered_()) {
        return ExitStatus::UnansweredPrompt;
    }
    return cancelled ? ExitStatus::Cancelled : ExitStatus::Done;
}

ExitStatus Session::openList() {
    bool opened = false;
    try {
        outlook_.pressControl(outlook_.explorers().front(),
                              {L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"});
        opened = true;
    } catch (const automation::Error& error) {
        report_.error(L"the menu has no list of preferred accounts: " + error.description());
    }
    reportErrors();
    return ended(!opened);
}

bool Session::send(const MessageFile& file) {
    const automation::Object inspector = outlook_.openNewMail(file.message);
    if (!inspector) {
        report_.error(L"the item's window did not open");
        return false;
    }
    const host::SendOutcome outcome = outlook_.send(inspector);
    if (promptUnanswered_()) {
        return false;
    }
    reportErrors();
    if (!outcome.failure.empty()) {
        report_.error(outcome.failure);
    }
    if (outcome.state == host::SendState::Cancelled) {
        report_.cancelled(file.name, outcome.mail);
        return false;
    }
    report_.sent(file.name, outcome.mail);
    return true;
}

bool Session::answer(host::ReplyKind kind, const MessageFile& file) {
    host::Message message = file.message;
    if (line_.bccMe) {
        hideUser(line_, message);
    }
    const automation::Object item = outlook_.receive(message);
    outlook_.select(outlook_.explorers().front(), {item});
    const host::ReplyOutcome outcome = outlook_.answer(kind, item);
    if (promptUnanswered_()) {
        return false;
    }
    reportErrors();
    const automation::Object response = opened(outcome);
    if (!response) {
        report_.replyCancelled();
        return false;
    }
    const host::ItemView view = outlook_.view(response);
    report_.reply(view.answers.value_or(kind), view);
    return true;
}

/// The response, or what a handler opened in its place.
automation::Object Session::opened(const host::ReplyOutcome& outcome) const {
    if (outcome.opened) {
        return outcome.item;
    }
    return outcome.newInspectors.empty() ? automation::Object()
                                         : outlook_.itemOf(outcome.newInspectors.back());
}

void Session::reportErrors() {
    const auto& errors = outlook_.errors();
    for (; errorsReported_ < errors.size(); ++errorsReported_) {
        const host::HandlerError& error = errors[errorsReported_];
        report_.error(error.event + L": error " + std::to_wstring(error.number) + L", " + error.description);
    }
}

void Session::quit() {
    veto_.end();
    for (const automation::Object& inspector : outlook_.inspectors()) {
        outlook_.closeInspector(inspector);
    }
    for (const automation::Object& explorer : outlook_.explorers()) {
        outlook_.closeExplorer(explorer);
    }
    outlook_.quit();
    reportErrors();
}

}  // namespace program
