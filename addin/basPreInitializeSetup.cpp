#include "addin/basPreInitializeSetup.h"

#include <optional>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/basRegistry.h"
#include "settings/modRegKeys.h"

namespace addin::basPreInitializeSetup {

namespace {

using mail::Globals;

/// The id of the machine's preset as text; nothing when there is none.
std::optional<std::wstring> machinePresetId(const Globals& globals) {
    const basRegistry::RegistryValue value = basRegistry::ReadValue(
        globals.platform.registry, platform::RootKey::LocalMachine, presetKey, modRegKeys::PreSetupID.key);
    if (const auto* id = std::get_if<std::wstring>(&value)) {
        return *id;
    }
    if (const auto* id = std::get_if<std::uint32_t>(&value)) {
        return std::to_wstring(*id);
    }
    return std::nullopt;
}

void copyPresets(const Globals& globals, const std::wstring& presetId) {
    const auto presets = basRegistry::EnumerateValues(globals, platform::RootKey::LocalMachine, presetKey);
    bool sawId = false;
    for (const basRegistry::NamedValue& preset : presets) {
        const bool isId = text::equalsIgnoringCase(preset.name, modRegKeys::PreSetupID.key);
        sawId = sawId || isId;
        if (!isId && !preset.name.empty()) {  // The key's default value has no name and is no setting.
            globals.platform.settings.write(preset.name, preset.data);
        }
    }
    // The id comes last: when the key could not be listed, or a value not be read or written, the next start
    // tries all of them again.
    if (sawId) {
        modRegKeys::PreSetupID.write(globals, presetId);
    }
}

}  // namespace

void InitializeSetup(Globals& globals) {
    mail::trapErrors(globals, mail::ErrorReport::usual(L"basPreInitializeSetup.InitializeSetup"), [&] {
        const auto presetId = machinePresetId(globals);
        if (presetId && text::trim(*presetId) != text::trim(modRegKeys::PreSetupID.read(globals))) {
            copyPresets(globals, *presetId);
        }
    });
}

}  // namespace addin::basPreInitializeSetup
