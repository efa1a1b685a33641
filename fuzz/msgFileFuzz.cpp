#include "fuzz/fuzzInput.h"
#include "host/CompoundFile.h"
#include "host/MsgFile.h"
#include "platform/automation.h"

/// Any bytes are a message file or refused, and no more comes out of it than stands in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        std::size_t read = 0;
        for (const auto& [path, contents] : host::readCompoundFile(bytes).streams) {
            fuzz::require(!path.empty() && !path.ends_with('/'));
            read += contents.size();
        }
        fuzz::require(read < size);
        const host::MsgFile file = host::parseMsgFile(bytes);
        fuzz::require(file.message.body.size() + file.message.subject.size() < size);
    } catch (const automation::Error&) {
    }
    return 0;
}
