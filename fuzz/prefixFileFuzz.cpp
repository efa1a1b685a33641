#include "checks/subjectCleaning.h"
#include "fuzz/FuzzWorld.h"

/// The bytes of a prefix file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzWorld world;
    for (const std::wstring& prefix : checks::prefixesOf({reinterpret_cast<const char*>(data), size})) {
        fuzz::require(!prefix.empty() && text::trim(prefix) == prefix);
        fuzz::require(prefix.find(L'\n') == std::wstring::npos);
        const std::wstring subject = prefix + L" x " + prefix + L" y";
        fuzz::require(checks::MultipleRemove(world.globals, subject, prefix).starts_with(prefix));
    }
    return 0;
}
