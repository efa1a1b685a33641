#include "host/ItemContent.h"
#include "host/MsgFile.h"
#include "host/hostErrors.h"
#include "platform/text.h"

/// What becomes of a message file; apart from its reader, which other programs use without the host.
namespace host {

int itemClassOf(std::wstring_view messageClass) {
    if (text::equalsIgnoringCase(messageClass, L"IPM.Note")) {
        return itemClass::mail;
    }
    if (text::equalsIgnoringCase(messageClass, L"IPM.Post")) {
        return itemClass::post;
    }
    raise::operationFailed();  // No other class is simulated.
}

ItemContent contentOf(const MsgFile& file) {
    ItemContent content = ItemContent::of(file.message);
    content.itemClass = itemClassOf(file.messageClass);
    content.sent = file.sent;
    content.unread = file.unread;
    content.saved = true;
    return content;
}

}  // namespace host
