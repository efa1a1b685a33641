#include <algorithm>
#include <set>

#include "checks/basVeltro.h"
#include "checks/frmReplyMultRecipt.h"
#include "checks/ownAddresses.h"
#include "checks/pruneReply.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace basVeltro {

namespace {

using basGlobals::Globals;

/// While the add-in itself answers a mail, its own checks keep quiet.
class Suppression {
  public:
    explicit Suppression(Globals& globals) : flag_(globals.suppressed), before_(flag_) { flag_ = true; }
    ~Suppression() { flag_ = before_; }
    Suppression(const Suppression&) = delete;
    Suppression& operator=(const Suppression&) = delete;

  private:
    bool& flag_;
    bool before_;
};

/// Whom the plain reply goes to: the mail's reply recipients, else its sender; addresses in upper case.
std::set<std::wstring> plainReplyAddresses(Globals& globals, AnsweredMail& answered) {
    std::set<std::wstring> addresses;
    const auto replyRecipients = answered.safe().replyRecipients();
    const std::int32_t count = replyRecipients.count();
    for (std::int32_t index = 1; index <= count; ++index) {
        if (const redemption::AddressEntry entry = replyRecipients.item(index).addressEntry()) {
            addresses.insert(text::upper(entry.address()));
            addresses.insert(text::upper(basGlobals::entryAddress(entry)));
        }
    }
    if (count == 0) {
        addresses.insert(text::upper(answered.safe().senderEmailAddress()));
        addresses.insert(text::upper(basGlobals::SenderEmail(globals, answered.item())));
    }
    addresses.erase(L"");
    return addresses;
}

std::vector<forms::CheckList::Row> rowsOf(Globals& globals, AnsweredMail& answered,
                                          const redemption::SafeItem& replyAll) {
    const auto plain = plainReplyAddresses(globals, answered);
    std::vector<forms::CheckList::Row> rows;
    for (const MailRecipient& recipient : readReplyRecipients(globals, replyAll)) {
        const bool inPlainReply = plain.contains(text::upper(recipient.rawAddress)) ||
                                  plain.contains(text::upper(recipient.address));
        rows.push_back({recipient.shown(), inPlainReply});
    }
    return rows;
}

void display(const Globals& globals, const std::wstring& entryId) {
    globals.outlook.mapiNameSpace().item(entryId).display();
}

/// What the user asked for in the first place.
void openPlainReply(const Globals& globals, const AnsweredMail& answered, const std::wstring& subject) {
    const outlook::Item original = globals.outlook.mapiNameSpace().item(answered.item().entryId());
    const outlook::Item reply(original.object().call(L"Reply").toObject());
    if (reply.subject() != subject) {
        reply.setSubject(subject);
    }
    reply.display();
}

void openReplyToChosen(const Globals& globals, const outlook::Item& replyAll,
                       const redemption::SafeItem& safe, const std::vector<int>& unticked,
                       const std::wstring& subject) {
    deleteRecipients(safe, unticked);
    if (replyAll.subject() != subject) {
        replyAll.setSubject(subject);
    }
    safe.save();
    safe.recipients().object().call(L"ResolveAll");
    safe.save();
    display(globals, replyAll.entryId());
}

/// Replaces the plain reply by one whose recipients the user chooses. `subject` is that of the plain reply,
/// which the subject checks have been over.
void offerOtherRecipients(Globals& globals, AnsweredMail& answered, const std::wstring& subject) {
    const Suppression suppression(globals);
    const outlook::Item replyAll(answered.item().object().call(L"ReplyAll").toObject());
    const redemption::SafeItem safe(globals.platform.automation, replyAll);
    frmReplyMultRecipt form(globals, rowsOf(globals, answered, safe));
    prompts::show(globals, form);
    if (form.confirmed()) {
        openReplyToChosen(globals, replyAll, safe, form.untickedPositions(), subject);
    } else {
        if (!replyAll.entryId().empty()) {  // It had to be saved to be read; nobody wants the draft.
            replyAll.object().call(L"Delete");
        }
        openPlainReply(globals, answered, subject);
    }
}

}  // namespace

void vtReplyCheck(Globals& globals, AnsweredMail& answered, const outlook::Item& reply, bool& cancel) {
    basGlobals::trapErrors(globals, basGlobals::ErrorReport::module(L"vtReplyCheck"), [&] {
        if (globals.suppressed || !modRegKeys::ReplyMultiple.read(globals) ||
            answered.safe().recipients().count() <= 1 ||
            !vtCheckIfUserInRecipients(globals, answered, noSender).value_or(false)) {
            return;
        }
        offerOtherRecipients(globals, answered, reply.subject());
        // Only now: had anything failed, the plain reply would open after all.
        cancel = true;
    });
}

}  // namespace basVeltro
