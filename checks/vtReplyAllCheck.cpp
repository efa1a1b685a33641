#include <algorithm>

#include "checks/basVeltro.h"
#include "checks/frmReplyMultRecipt.h"
#include "checks/ownAddresses.h"
#include "checks/pruneReply.h"
#include "mail/Provider.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

/// A list or an unknown address may hide the user, so that nothing is certain.
bool userMayBeHidden(AnsweredMail& answered) {
    return !answered.ownAddresses() || answered.ownAddresses()->empty() ||
           std::ranges::any_of(answered.recipients(), [](const MailRecipient& recipient) {
               return recipient.list || recipient.unknown || recipient.address.empty();
           });
}

std::wstring blindCopyQuestion(AnsweredMail& answered) {
    const wchar_t* finding = userMayBeHidden(answered)
                                 ? L"You do not APPEAR to be in the addresses of this email, therefore you "
                                   L"MAY be BCCed on this email!"
                                 : L"It appears that you were BCCed on this e-mail as your e-mail address "
                                   L"could not be found on the list of recipients!";
    return std::wstring(L"You clicked Reply to All.\r\n\r\n") + finding +
           L"\r\n\r\nA Reply to All means that all recipients will become aware that you also received a "
           L"copy of the email.\r\n\r\nDo you want to do a Reply to All to this e-mail?";
}

/// False when the user was a blind copy and decides against the Reply to All.
bool mayReveal(Globals& globals, AnsweredMail& answered) {
    if (!modRegKeys::ReplyALL_BCC.read(globals) ||
        vtCheckIfUserInRecipients(globals, answered, noSender).value_or(true) ||
        vtCheckIfUserInRecipients(globals, answered, answered.sender()).value_or(true)) {
        return true;
    }
    const auto answer = prompts::ask(globals, L"BCCed e-mail", blindCopyQuestion(answered),
                                     {platform::Buttons::YesNo, platform::Icon::Question});
    return answer == platform::Answer::Yes;
}

bool showsList(Globals& globals, AnsweredMail& answered) {
    return modRegKeys::ReplyAllAny.read(globals) &&
           !(modRegKeys::ReplyInternalCheck.read(globals) && vtRecipientsAllSameDomain(globals, answered));
}

std::wstring joined(const std::vector<int>& positions) {
    std::wstring text;
    for (const int position : positions) {
        text += (text.empty() ? L"" : L";") + std::to_wstring(position);
    }
    return text;
}

/// False when the user decides against the Reply to All.
bool chooseRecipients(Globals& globals, AnsweredMail& answered, const outlook::Item& reply) {
    std::vector<forms::MarkedList::Row> rows;
    for (const MailRecipient& recipient : answered.recipients()) {
        rows.push_back({recipient.shown(), true});
    }
    frmReplyMultRecipt form(globals, rows);
    form.Set_ReplyToAll();
    prompts::show(globals, form);
    if (!form.confirmed()) {
        return false;
    }
    const std::vector<int> unticked = form.untickedPositions();
    if (!unticked.empty()) {
        answered.somebodyUnticked = true;
        mail::AddUserProperties(globals, reply, replyMark::removeRecipients, joined(unticked));
    }
    return true;
}

/// False when the user decides against the Reply to All. A failure is reported and decides nothing.
bool userGoesOn(Globals& globals, AnsweredMail& answered, const outlook::Item& reply) {
    return mail::trapErrors(
        globals, mail::ErrorReport::module(L"vtReplyAllCheck"),
        [&] {
            return mayReveal(globals, answered) &&
                   (!showsList(globals, answered) || chooseRecipients(globals, answered, reply));
        },
        true);
}

}  // namespace

void vtReplyAllCheck(Globals& globals, AnsweredMail& answered, const outlook::Item& reply, bool& cancel) {
    const mail::MapiCleanUp cleanUp(globals);
    if (!userGoesOn(globals, answered, reply)) {
        cancel = true;
        return;
    }
    mail::trapErrors(globals, mail::ErrorReport::module(L"vtReplyAllCheck"), [&] {
        if (clearsOwnAddresses(globals)) {
            mail::AddUserProperties(globals, reply, replyMark::clearOwnAddress, L"True");
        }
    });
}

}  // namespace checks
