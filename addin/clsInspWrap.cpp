#include "addin/clsInspWrap.h"

#include "addin/eventArguments.h"
#include "addin/replyEvents.h"
#include "addin/sendEvent.h"
#include "mail/OutgoingMail.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

namespace addin {

namespace events = outlook::events;

void clsInspWrap::setInspector(const outlook::Inspector& inspector) {
    inspector_ = inspector;
    inspectorEvents_ =
        automation::subscribe(inspector.object(), events::inspector, sink(&clsInspWrap::onInspectorEvent));
}

void clsInspWrap::setMailItem(const outlook::Item& item) {
    item_ = item;
    mailEvents_ = automation::subscribe(item.object(), events::item, sink(&clsInspWrap::onMailEvent));
}

automation::EventSink clsInspWrap::sink(void (clsInspWrap::*handler)(std::int32_t,
                                                                     std::span<automation::Value>)) {
    return [self = weak_from_this(), handler](std::int32_t event, std::span<automation::Value> arguments) {
        if (const auto wrapper = self.lock()) {  // Held while it handles the closing of its window.
            ((*wrapper).*handler)(event, arguments);
        }
    };
}

void clsInspWrap::onInspectorEvent(std::int32_t event, std::span<automation::Value>) {
    if (event == events::inspectorActivate) {
        activated();
    } else if (event == events::inspectorClose) {
        close();
    }
}

void clsInspWrap::onMailEvent(std::int32_t event, std::span<automation::Value> arguments) {
    if (eventArguments::changeRecipients(event, arguments)) {
        globals_.tellPreferredAccountChanges();
    }
    switch (event) {
        case events::itemSend: {
            mail::skipErrors([&] {
                eventArguments::Cancel cancel(eventArguments::at(arguments, 0));
                m_ObjMail_Send(cancel.flag());
            });
            break;
        }
        case events::itemClose:
            itemCloses();
            break;
        default:
            onAnswered(event, arguments);
            break;
    }
}

/// Only for the window in front: the item may be selected in a main window that handles it.
void clsInspWrap::onAnswered(std::int32_t event, std::span<automation::Value> arguments) {
    if (!replyEvents::isAnswer(event)) {
        return;
    }
    if (isActiveInspector()) {
        replyEvents::handle(globals_, item_, event, arguments);
    } else {
        mail::note(mail::Skipped::OtherWindowActs);
    }
}

bool clsInspWrap::isActiveInspector() const {
    const auto same = [&] {
        const outlook::Inspector active = globals_.outlook.activeInspector();
        active.currentItem().entryId();  // Fails without a window, and for an item that is gone.
        return active.object() == inspector_.object();
    };
    return mail::attempt(same).value_or(false);
}

void clsInspWrap::m_ObjMail_Send(bool& cancel) {
    sending_ = true;
    const auto mail = outgoing_ = std::make_shared<mail::OutgoingMail>(globals_, item_, true, inspector_);
    // The macros start Word where it does not run yet.
    inWord_ = mail::attempt([&] { return mail->editsInWord(); }).value_or(false) || inWord_;
    sendEvent::handle(globals_, mail, cancel);
}

bool clsInspWrap::isAbandoned() const {
    const bool reachable = mail::skipErrors([&] {
        inspector_.currentItem();  // Fails for a window that has closed.
        item_.entryId();
    });
    // A received mail counts as sent, too; what matters is whether it went out from this window.
    const auto sent = [&] { return sending_ && item_.sent(); };
    return !reachable || mail::attempt(sent).value_or(false);
}

void clsInspWrap::activated() {
    shown_ = true;
    keeper_.activated(shared_from_this());
    globals_.tellPreferredAccountChanges();
    prepareWord();
}

/// The template that asks in Word's window. Word may have been started anew since the window was last in
/// front.
void clsInspWrap::prepareWord() {
    const auto inWord = mail::attempt([&] { return basWordMail::editsInWord(globals_, inspector_); });
    if (inWord.value_or(inWord_)) {
        inWord_ = true;
        basWordMail::PrepareWord(globals_, inspector_);
    }
}

void clsInspWrap::itemCloses() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"clsInspWrap.Close"),
                     [&] { keeper_.itemCloses(shared_from_this()); });
}

void clsInspWrap::close() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"clsInspWrap.Close"),
                     [&] { keeper_.closed(shared_from_this()); });
    release();
}

void clsInspWrap::release() {
    mailEvents_.end();
    inspectorEvents_.end();
    outgoing_.reset();
}

}  // namespace addin
