#include "addin/replyEvents.h"

#include "addin/eventArguments.h"
#include "checks/basVeltro.h"
#include "checks/pruneReply.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"

namespace addin::replyEvents {

namespace {

using mail::Globals;
using mail::note;
using mail::Skipped;

/// Who a mail is from and to is not looked at where Outlook would ask the user about it.
bool readsPeople(const Globals& globals) {
    const bool reads = globals.provider->readsPeople();
    if (!reads) {
        note(Skipped::LibraryMissing);
    }
    return reads;
}

void checkSubject(Globals& globals, const outlook::Item& answered, const outlook::Item& response) {
    checks::vtOldSubject(globals, answered, response);
    checks::vtRemoveSpamMarks(globals, response);
}

void reply(Globals& globals, const outlook::Item& answered, const outlook::Item& response, bool& cancel) {
    checkSubject(globals, answered, response);
    if (!readsPeople(globals)) {
        return;
    }
    checks::AnsweredMail mail(globals, answered);
    checks::vtReplyCheck(globals, mail, response, cancel);
}

void replyAll(Globals& globals, const outlook::Item& answered, const outlook::Item& response, bool& cancel) {
    checkSubject(globals, answered, response);
    if (!readsPeople(globals)) {
        return;
    }
    checks::AnsweredMail mail(globals, answered);
    checks::vtReplyAllCheck(globals, mail, response, cancel);
    if (!cancel) {
        checks::pruneReply(globals, mail, response);
    }
}

void forward(Globals& globals, const outlook::Item& /*forwarded*/, const outlook::Item& response,
             bool& /*cancel*/) {
    checks::vtRemoveSpamMarks(globals, response);
}

}  // namespace

bool isAnswer(std::int32_t event) {
    namespace events = outlook::events;
    return event == events::itemReply || event == events::itemReplyAll || event == events::itemForward;
}

void handle(Globals& globals, const outlook::Item& item, std::int32_t event,
            std::span<automation::Value> arguments) {
    namespace events = outlook::events;
    if (!isAnswer(event)) {
        return;
    }
    const auto id = mail::attempt([&] { return item.entryId(); });
    if (!id || id == globals.answering) {
        note(id ? Skipped::OwnAnswer : Skipped::ItemUnreadable);
        return;
    }
    mail::skipErrors([&] {
        const outlook::Item response(eventArguments::at(arguments, 0).toObject());
        eventArguments::Cancel cancel(eventArguments::at(arguments, 1));
        if (!response || cancel.flag()) {
            note(Skipped::CancelledBefore);
            return;
        }
        const auto handler = event == events::itemReply      ? reply
                             : event == events::itemReplyAll ? replyAll
                                                             : forward;
        handler(globals, item, response, cancel.flag());
    });
}

}  // namespace addin::replyEvents
