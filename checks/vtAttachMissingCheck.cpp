#include <algorithm>
#include <optional>

#include "checks/KeywordFinder.h"
#include "checks/basVeltro.h"
#include "checks/quotedHeader.h"
#include "mail/SafeItems.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace basVeltro {

namespace {

using basGlobals::Globals;

constexpr wchar_t nonBreakingSpace = 0xA0;

constexpr wchar_t question[] =
    L"The text of this email indicates that you may have intended to send it with attachments.\r\n\r\n"
    L"However no files were attached.\r\n\r\n"
    L"Do you want to send this e-mail without attachments?";

std::wstring folded(std::wstring_view text) {
    std::wstring result = text::upper(text);
    std::ranges::replace(result, nonBreakingSpace, L' ');
    return result;
}

/// The subject and what the user wrote above the message being answered.
std::wstring writtenText(const redemption::SafeItem& mail) {
    std::wstring text = mail.subject();
    text += text::lineBreak;
    const std::wstring body = mail.body();
    text.append(body, 0, findQuotedHeader(body).value_or(body.size()));
    return text;
}

/// Cuts the block that the user told the check to disregard, a signature say.
std::wstring withoutIgnoredText(const Globals& globals, std::wstring text) {
    if (!modRegKeys::IgnoreText.read(globals)) {
        return text;
    }
    const std::wstring ignored(text::trim(modRegKeys::IgnoreTextValue.read(globals)));
    return text::replaceAll(folded(text), folded(ignored), L" ");
}

bool promisesAttachment(const Globals& globals, const redemption::SafeItem& mail) {
    const std::wstring keywords = modRegKeys::AttachKeyWords.read(globals);
    return KeywordFinder(text::split(keywords, L';')).foundIn(withoutIgnoredText(globals, writtenText(mail)));
}

/// Tells the attachments that count from pictures inside the text and from those to be disregarded.
class AttachmentFilter {
  public:
    AttachmentFilter(const Globals& globals, const redemption::SafeItem& mail)
        : mail_(mail),
          ignoresNames_(modRegKeys::IgnoreAttach.read(globals)),
          ignoredNames_(modRegKeys::IgnoreAttachValue.read(globals)) {}

    bool counts(const redemption::Attachment& attachment) {
        // One whose id cannot be read is no picture inside the text.
        const std::wstring contentId =
            basGlobals::attempt([&] { return attachment.contentId(); }).value_or(L"");
        return !isInlinePicture(contentId) && !isIgnored(attachment);
    }

  private:
    bool isInlinePicture(const std::wstring& contentId) {
        if (contentId.empty()) {
            return false;
        }
        if (!htmlBody_) {
            htmlBody_ = text::upper(mail_.htmlBody());
        }
        return htmlBody_->find(text::upper(contentId)) != std::wstring::npos;
    }

    bool isIgnored(const redemption::Attachment& attachment) const {
        if (!ignoresNames_) {
            return false;
        }
        // One without a name, an embedded object say, cannot be meant by any name on the list.
        const std::wstring name = basGlobals::attempt([&] { return attachment.fileName(); }).value_or(L"");
        if (text::trim(name).empty()) {
            return false;
        }
        for (const std::wstring_view ignored : text::split(ignoredNames_, L';')) {
            if (text::equalsTrimmed(ignored, name)) {
                return true;
            }
        }
        return false;
    }

    const redemption::SafeItem& mail_;
    bool ignoresNames_;
    std::wstring ignoredNames_;
    /// In upper case; read only when an attachment has a content id to look for.
    std::optional<std::wstring> htmlBody_;
};

bool hasAttachment(const Globals& globals, const redemption::SafeItem& mail) {
    const auto attachments = mail.attachments();
    const std::int32_t count = attachments.count();
    AttachmentFilter filter(globals, mail);
    for (std::int32_t index = 1; index <= count; ++index) {
        if (filter.counts(attachments.item(index))) {
            return true;
        }
    }
    return false;
}

}  // namespace

void vtAttachMissingCheck(Globals& globals, const outlook::Item& item, bool& cancel) {
    basGlobals::trapErrors(globals, basGlobals::ErrorReport::check(L"vtAttachMissingCheck"), [&] {
        if (!modRegKeys::CheckAttachMissing.read(globals)) {
            return;
        }
        const redemption::SafeItem mail(globals.platform.automation, item);
        mail.save();
        // The attachments come first: a mail that has one needs no look at a body of any size.
        if (hasAttachment(globals, mail) || !promisesAttachment(globals, mail)) {
            return;
        }
        const auto answer = prompts::ask(globals, L"Attachment(s) missing", question,
                                         {platform::Buttons::YesNo, platform::Icon::Question});
        if (answer == platform::Answer::No) {
            cancel = true;
        }
    });
}

}  // namespace basVeltro
