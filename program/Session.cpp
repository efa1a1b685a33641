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

/// A mail that never came to be an item, as far as its message tells.
host::ItemView asWritten(const CommandLine& line, const host::Message& message) {
    host::ItemView view;
    view.subject = message.subject;
    view.account = message.account.empty() ? line.accounts.front().name : message.account;
    for (const host::Address& address : message.to) {
        view.recipients.push_back({.address = address});
    }
    return view;
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
                 std::function<bool()> promptUnanswered, std::function<void()> settle)
    : line_(line),
      outlook_(outlook),
      report_(report),
      promptUnanswered_(std::move(promptUnanswered)),
      settle_(std::move(settle)) {
    veto_ = automation::subscribe(outlook_.application(), outlook::events::application,
                                  [this](std::int32_t event, std::span<automation::Value> arguments) {
                                      if (event == itemSend && arguments.size() == 2 && promptUnanswered_()) {
                                          arguments[1].variable() = true;
                                      }
                                  });
}

ExitStatus Session::run(const std::vector<MessageFile>& messages) {
    reportErrors();
    for (const automation::Object& item : outlook_.itemsIn(L"Inbox")) {
        report_.received(outlook_.view(item));
    }
    if (const auto status = runMenu()) {
        return *status;
    }
    bool cancelled = false;
    for (const MessageFile& file : messages) {
        if (promptUnanswered_()) {
            break;
        }
        report_.begin(file.name);
        const bool done = line_.command == Command::Send ? send(file.message)
                                                         : answer(replyKind(line_.command), file.message);
        cancelled = cancelled || !done;
    }
    report_.end();
    return ended(cancelled);
}

std::optional<ExitStatus> Session::runMenu() {
    switch (line_.command) {
        case Command::List:
            return press(L"Send Account (Preferred) List");
        case Command::Settings:
            return press(L"Settings");
        case Command::Update:
            return press(L"Check for Updates");
        case Command::About:
            return press(L"About Veltro");
        case Command::Support:
            return support();
        case Command::Start:
            settle_();
            reportErrors();
            return ended(false);
        default:
            return std::nullopt;
    }
}

ExitStatus Session::support() {
    const std::size_t before = outlook_.inspectors().size();
    const ExitStatus status = press(L"Contact Support");
    const auto inspectors = outlook_.inspectors();
    if (inspectors.size() <= before) {
        report_.error(L"no e-mail was prepared");
        return ExitStatus::Cancelled;
    }
    report_.prepared(outlook_.view(outlook_.itemOf(inspectors.back())));
    return status;
}

ExitStatus Session::ended(bool cancelled) const {
    if (promptUnanswered_()) {
        return ExitStatus::UnansweredPrompt;
    }
    return cancelled ? ExitStatus::Cancelled : ExitStatus::Done;
}

ExitStatus Session::press(const std::wstring& button) {
    bool pressed = false;
    try {
        outlook_.choose(outlook_.explorers().front(), {L"Tarnwell", L"Veltro", button});
        pressed = true;
    } catch (const automation::Error& error) {
        report_.error(L"the command \"" + button + L"\" cannot be chosen: " + error.description());
    }
    reportErrors();
    return ended(!pressed);
}

bool Session::send(const host::Message& message) {
    try {
        if (const automation::Object inspector = outlook_.openNewMail(message)) {
            const host::SendOutcome outcome = outlook_.send(inspector);
            reportErrors();
            return tell(outcome);
        }
        report_.error(L"the item's window did not open");
    } catch (const automation::Error& error) {
        report_.error(error.description());
    }
    reportErrors();
    report_.cancelled(asWritten(line_, message));
    return false;
}

bool Session::tell(const host::SendOutcome& outcome) {
    if (!outcome.failure.empty()) {
        report_.error(outcome.failure);
    }
    if (outcome.state == host::SendState::Cancelled) {
        report_.cancelled(outcome.mail);
        return false;
    }
    report_.sent(outcome.mail);
    return true;
}

bool Session::answer(host::ReplyKind kind, host::Message message) {
    if (line_.bccMe) {
        hideUser(line_, message);
    }
    try {
        const automation::Object item = outlook_.receive(message);
        const automation::Object window = outlook_.explorers().front();
        outlook_.select(window, {item});
        const host::ReplyOutcome outcome =
            line_.inlineResponse ? outlook_.answerInline(window, kind, item) : outlook_.answer(kind, item);
        reportErrors();
        if (promptUnanswered_()) {
            return false;
        }
        if (const automation::Object response = opened(outcome)) {
            const host::ItemView view = outlook_.view(response);
            report_.reply(view.answers.value_or(kind), view);
            return !line_.inlineResponse || !outcome.opened || sendInline(window);
        }
    } catch (const automation::Error& error) {
        report_.error(error.description());
    }
    reportErrors();
    report_.replyCancelled();
    return false;
}

bool Session::sendInline(const automation::Object& window) {
    const host::SendOutcome outcome = outlook_.sendInline(window);
    reportErrors();
    return tell(outcome);
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
