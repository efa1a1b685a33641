#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "host/Core.h"
#include "host/Item.h"
#include "host/dateText.h"

namespace host {

namespace {

/// The subject without one leading "RE:", "FW:" or the like, which Outlook takes for a prefix when it is up
/// to three letters long.
std::wstring normalized(const std::wstring& subject) {
    const auto colon = subject.find(L':');
    const bool prefix =
        colon != std::wstring::npos && colon >= 1 && colon <= 3 &&
        std::all_of(subject.begin(), subject.begin() + static_cast<std::ptrdiff_t>(colon), [](wchar_t c) {
            const wchar_t upper = text::upperCase(c);
            return upper >= L'A' && upper <= L'Z';
        });
    return prefix ? std::wstring(text::trimLeft(subject.substr(colon + 1))) : subject;
}

std::wstring nameAndMailbox(const Address& address) {
    if (address.name.empty() || address.name == address.address) {
        return address.address;
    }
    return address.type == L"SMTP" ? address.name + L" [mailto:" + address.address + L"]" : address.name;
}

std::wstring quotedHeader(const Item& answered) {
    const ItemContent& content = answered.content();
    const auto& from = content.onBehalfOf ? content.onBehalfOf : content.sender;
    std::wstring header = L"-----Original Message-----\r\n";
    header += L"From: " + (from ? nameAndMailbox(*from) : std::wstring()) + L"\r\n";
    header += L"Sent: " + (content.deliveryTime ? longDate(*content.deliveryTime) : std::wstring()) + L"\r\n";
    header += L"To: " + content.names(1) + L"\r\n";
    if (const std::wstring copies = content.names(2); !copies.empty()) {
        header += L"Cc: " + copies + L"\r\n";
    }
    return header + L"Subject: " + content.subject + L"\r\n\r\n";
}

std::wstring asHtml(std::wstring_view lines) {
    std::wstring result = text::replaceAll(lines, L"&", L"&amp;");
    result = text::replaceAll(result, L"<", L"&lt;");
    result = text::replaceAll(result, L">", L"&gt;");
    return text::replaceAll(result, L"\r\n", L"<br>\r\n");
}

/// Recipients of whom each address comes once, letter case ignored.
class DistinctRecipients {
  public:
    void add(const Address& address, int type) {
        if (known_.insert(text::upper(address.address.empty() ? address.name : address.address)).second) {
            list_.push_back(
                std::make_shared<RecipientData>(RecipientData{type, address, isResolved(address)}));
        }
    }
    RecipientList take() && { return std::move(list_); }
    bool empty() const { return list_.empty(); }

  private:
    RecipientList list_;
    std::unordered_set<std::wstring> known_;
};

RecipientList recipientsOfReply(const ItemContent& answered, bool all) {
    DistinctRecipients list;
    for (const auto& recipient : answered.replyTo) {
        list.add(recipient->address, 1);
    }
    const auto& from = answered.onBehalfOf ? answered.onBehalfOf : answered.sender;
    if (list.empty() && from) {
        list.add(*from, 1);
    }
    for (const int type : {1, 2}) {
        for (const auto& recipient : answered.recipients) {
            if (all && recipient->type == type) {
                list.add(recipient->address, type);
            }
        }
    }
    return std::move(list).take();
}

}  // namespace

ItemContent makeResponse(const Item& answered, ReplyKind kind) {
    const ItemContent& original = answered.content();
    ItemContent response;
    response.answers = kind;
    response.subject = (kind == ReplyKind::Forward ? L"FW: " : L"RE: ") + normalized(original.subject);
    const std::wstring header = quotedHeader(answered);
    response.body = L"\r\n\r\n" + header + original.body;
    if (!original.html.empty()) {
        response.html = L"<p>&nbsp;</p>\r\n" + asHtml(header) + original.html;
    }
    if (kind != ReplyKind::Forward) {
        response.recipients = recipientsOfReply(original, kind == ReplyKind::ReplyAll);
    }
    for (const auto& attachment : original.attachments) {
        // A reply keeps the pictures that its quoted text shows.
        if (kind == ReplyKind::Forward || (!original.html.empty() && !attachment->contentId.empty())) {
            response.attachments.push_back(std::make_shared<Attachment>(*attachment));
        }
    }
    return response;
}

}  // namespace host
