#include "platform/MemorySettingsStore.h"

#include "platform/text.h"

namespace platform {

std::optional<std::wstring> MemorySettingsStore::read(const std::wstring& key) {
    const auto found = settings_.find(text::upper(key));
    return found == settings_.end() ? std::nullopt : std::optional(found->second.value);
}

void MemorySettingsStore::write(const std::wstring& key, const std::wstring& value) {
    settings_.try_emplace(text::upper(key), Setting{key, {}}).first->second.value = value;
}

}  // namespace platform
