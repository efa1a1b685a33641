#pragma once

#include <string>
#include <string_view>

#include "host/ItemContent.h"

namespace host {

/// A message in a file of Outlook's (.msg). Recipients, attachments and times are passed over.
struct MsgFile {
    std::wstring messageClass{};
    Message message{};
    bool sent = false;
    bool unread = false;
};

/// What an item made of it holds. Throws automation::Error for a class that is not simulated.
ItemContent contentOf(const MsgFile& file);
/// The item class of "IPM.Note" or "IPM.Post"; the same.
int itemClassOf(std::wstring_view messageClass);

/// Reads the 8-bit form. Throws automation::Error for what Outlook would refuse: a compound file that is
/// damaged, or not that of a message; one without a table of named properties; a property whose size differs
/// from what the table says; and, like Outlook 2003 to 2010, a text of no length.
MsgFile parseMsgFile(std::string_view bytes);

/// The same from a file; `path` is a path of the product. Throws automation::Error when there is none, too.
MsgFile readMsgFile(const std::wstring& path);

}  // namespace host
