#include <utility>

#include "checks/basVeltro.h"
#include "checks/frmReplyMultRecipt.h"
#include "checks/ownAddresses.h"
#include "checks/pruneReply.h"
#include "checks/responseRecipients.h"
#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

/// The add-in's own answer to a mail, about which its checks keep quiet. `how` is a method of items: Reply or
/// ReplyAll.
outlook::Item answer(Globals& globals, const outlook::Item& item, const wchar_t* how) {
    struct Answering {
        std::optional<std::wstring>& id;
        std::optional<std::wstring> before;
        ~Answering() { id = std::move(before); }
    };
    const Answering answering{globals.answering, std::exchange(globals.answering, item.entryId())};
    return outlook::Item(item.object().call(how).toObject());
}

RecipientSet recipientsOf(AnsweredMail& answered, const outlook::Item& response) {
    RecipientSet recipients;
    for (const MailRecipient& recipient : readResponse(answered, response)) {
        recipients.add(recipient);
    }
    return recipients;
}

std::vector<forms::MarkedList::Row> rowsOf(const std::vector<MailRecipient>& recipients,
                                           const RecipientSet& ticked) {
    std::vector<forms::MarkedList::Row> rows;
    for (const MailRecipient& recipient : recipients) {
        rows.push_back({recipient.shown(), ticked.contains(recipient)});
    }
    return rows;
}

void setSubject(const outlook::Item& reply, const std::wstring& subject) {
    if (reply.subject() != subject) {
        reply.setSubject(subject);
    }
}

/// What the user asked for in the first place.
void openPlainReply(Globals& globals, const AnsweredMail& answered, const std::wstring& subject) {
    const outlook::Item original = globals.outlook.mapiNameSpace().item(answered.item().entryId());
    const outlook::Item reply = answer(globals, original, L"Reply");
    setSubject(reply, subject);
    reply.display();
}

/// What is deleted among the Deleted Items is gone.
void deleteForGood(const Globals& globals, const outlook::Item& item) {
    mail::skipErrors([&] {
        const auto nameSpace = globals.outlook.mapiNameSpace();
        item.moveTo(nameSpace.defaultFolder(outlook::folderId::deletedItems)).remove();
    });
}

void openSaved(const Globals& globals, const outlook::Item& reply) {
    try {
        reply.recipients().object().call(L"ResolveAll");
        reply.save();
        globals.outlook.mapiNameSpace().item(reply.entryId()).display();
    } catch (...) {
        deleteForGood(globals, reply);  // The user gets the plain reply and never saw this one.
        throw;
    }
}

/// Replaces the plain reply by one whose recipients the user chooses, at first those of the plain one.
/// Nothing is saved before the user has chosen.
void offerOtherRecipients(Globals& globals, AnsweredMail& answered, const outlook::Item& plainReply) {
    const std::wstring subject = plainReply.subject();  // The subject checks have been over it.
    const RecipientSet plain = recipientsOf(answered, plainReply);
    const outlook::Item replyAll = answer(globals, answered.item(), L"ReplyAll");
    clearOwnAddresses(globals, answered, replyAll, plain);
    frmReplyMultRecipt form(globals, rowsOf(readResponse(answered, replyAll), plain));
    prompts::show(globals, form);
    if (!form.confirmed()) {
        openPlainReply(globals, answered, subject);
        return;
    }
    deleteRecipients(replyAll, form.untickedPositions());
    setSubject(replyAll, subject);
    openSaved(globals, replyAll);
}

}  // namespace

void vtReplyCheck(Globals& globals, AnsweredMail& answered, const outlook::Item& reply, bool& cancel) {
    const auto report = mail::ErrorReport::module(L"vtReplyCheck");
    const auto concerned = [&] {
        return modRegKeys::ReplyMultiple.read(globals) && answered.safe().recipients().count() > 1 &&
               vtCheckIfUserInRecipients(globals, answered, noSender).value_or(false);
    };
    if (!mail::trapErrors(globals, report, concerned, false)) {
        return;
    }
    mail::trapErrors(globals, mail::ErrorReport(report).ofRefusals(), [&] {
        offerOtherRecipients(globals, answered, reply);
        // Only now: had anything failed, the plain reply would open after all.
        cancel = true;
    });
}

}  // namespace checks
