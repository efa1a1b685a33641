#include <algorithm>

#include "checks/KeywordFinder.h"
#include "checks/basVeltro.h"
#include "checks/occurrences.h"
#include "checks/quotedHeader.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

constexpr wchar_t question[] =
    L"The text of this email indicates that you may have intended to send it with attachments.\r\n\r\n"
    L"However no files were attached.\r\n\r\nDo you want to send this e-mail without attachments?";

/// The subject and what the user wrote above the message being answered.
std::wstring writtenText(mail::OutgoingMail& mail) {
    std::wstring text = mail.subject();
    text += text::lineBreak;
    const std::wstring body = mail.safe().body();
    text.append(body, 0, findQuotedHeader(body).value_or(body.size()));
    return text;
}

/// Cuts the block that the user told the check to disregard, a signature say.
std::wstring withoutIgnoredText(const Globals& globals, std::wstring text) {
    if (!modRegKeys::IgnoreText.read(globals)) {
        return text;
    }
    const std::wstring ignored(text::trim(modRegKeys::IgnoreTextValue.read(globals)));
    return text::replaceAll(KeywordFinder::folded(text), KeywordFinder::folded(ignored), L" ");
}

bool promisesAttachment(const Globals& globals, mail::OutgoingMail& mail) {
    const std::wstring keywords = modRegKeys::AttachKeyWords.read(globals);
    return KeywordFinder(text::split(keywords, L';')).foundIn(withoutIgnoredText(globals, writtenText(mail)));
}

/// The attachments that the user told the check to disregard, a business card say.
class IgnoredNames {
  public:
    explicit IgnoredNames(const Globals& globals)
        : active_(modRegKeys::IgnoreAttach.read(globals)),
          names_(modRegKeys::IgnoreAttachValue.read(globals)) {}

    bool contain(const outlook::Attachment& attachment) const {
        if (!active_) {
            return false;
        }
        // One without a name, an embedded object say, cannot be meant by any name on the list.
        const std::wstring name = mail::attempt([&] { return attachment.fileName(); }).value_or(L"");
        if (text::trim(name).empty()) {
            return false;
        }
        return std::ranges::any_of(text::split(names_, L';'), [&name](std::wstring_view ignored) {
            return text::equalsTrimmed(ignored, name);
        });
    }

  private:
    bool active_;
    std::wstring names_;
};

/// True when an attachment counts: one that is neither disregarded nor a picture inside the text.
bool hasAttachment(const Globals& globals, const mail::SafeItem& mail) {
    const IgnoredNames ignored(globals);
    std::vector<std::wstring> marks;
    for (const outlook::Attachment attachment : mail.attachments()) {
        if (ignored.contain(attachment)) {
            continue;
        }
        // One of which that cannot be read is no picture inside the text.
        const std::wstring mark = mail::attempt([&] { return mail.pictureMark(attachment); }).value_or(L"");
        if (mark.empty()) {
            return true;
        }
        marks.push_back(text::upper(mark));
    }
    // Only now the body, which may be of any size: a mail with a real attachment costs no look at it.
    return !marks.empty() && !allOccur(marks, text::upper(mail.htmlBody()));
}

}  // namespace

void vtAttachMissingCheck(Globals& globals, mail::OutgoingMail& mail, bool& cancel) {
    mail::trapErrors(globals, mail::ErrorReport::check(L"vtAttachMissingCheck"), [&] {
        if (!modRegKeys::CheckAttachMissing.read(globals)) {
            return;
        }
        // The attachments come first: a mail that has one needs no look at a body of any size.
        if (hasAttachment(globals, mail.stored()) || !promisesAttachment(globals, mail)) {
            return;
        }
        const auto answer = prompts::ask(globals, L"Attachment(s) missing", question,
                                         {platform::Buttons::YesNo, platform::Icon::Question});
        if (answer == platform::Answer::No) {
            cancel = true;
        }
    });
}

}  // namespace checks
