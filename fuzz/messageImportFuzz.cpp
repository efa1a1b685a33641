#include <algorithm>
#include <stdexcept>

#include "fuzz/fuzzInput.h"
#include "program/MessageJson.h"
#include "program/native/ImportMessage.h"

namespace {

bool isControl(wchar_t character) {
    return character < L' ' || (character >= 0x7F && character < 0xA0);
}

bool hasControls(const std::wstring& text) {
    return std::ranges::any_of(text, isControl);
}

}  // namespace

/// Any bytes are a mail or refused; what a mail shows on one line is one line, attachments are named by names
/// alone, and nothing is lost on the way through JSON.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    host::Message message;
    try {
        message = program::importMessage({reinterpret_cast<const char*>(data), size});
    } catch (const std::runtime_error&) {
        return 0;
    }
    fuzz::require(!hasControls(message.subject));
    for (const auto& recipients : {message.to, message.cc, message.bcc, message.replyTo}) {
        for (const host::Address& address : recipients) {
            fuzz::require(!address.name.empty() && !hasControls(address.name + address.address));
        }
    }
    for (const host::Attachment& attachment : message.attachments) {
        fuzz::require(!attachment.fileName.empty() && !hasControls(attachment.fileName));
        fuzz::require(attachment.fileName.find_first_of(L"/\\") == std::wstring::npos);
    }
    const std::string json = program::toJson({{L"mail.eml", message}});
    fuzz::require(program::toJson(program::parseMessages(json)) == json);
    return 0;
}
