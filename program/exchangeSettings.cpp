#include "program/exchangeSettings.h"

#include <optional>

#include "platform/MemorySettingsStore.h"
#include "platform/files.h"
#include "platform/text.h"
#include "program/Console.h"
#include "program/FileSettingsStore.h"
#include "program/files.h"
#include "settings/modLoadSettings.h"
#include "settings/settingsFile.h"

namespace program {

namespace {

ExitStatus exportSettings(platform::SettingsStore& settings, const std::wstring& folder) {
    if (modLoadSettings::exportSettingsFile(settings, folder)) {
        return ExitStatus::Done;
    }
    complain("the settings could not be saved at " +
             text::toUtf8(platform::joinPath(folder, settings::settingsFile::name)));
    return ExitStatus::Cancelled;
}

ExitStatus importSettings(platform::SettingsStore& settings, const std::wstring& file) {
    return settings::SettingsFileReader().read(pathOf(file), settings)
               ? ExitStatus::Done
               : complain(text::toUtf8(file) + ": cannot be read as a settings file");
}

}  // namespace

ExitStatus exchangeSettings(const CommandLine& line) {
    platform::MemorySettingsStore forTheRun;
    std::optional<FileSettingsStore> kept;
    if (line.settingsFile) {
        kept.emplace(pathOf(*line.settingsFile));
    }
    platform::SettingsStore& settings = kept ? static_cast<platform::SettingsStore&>(*kept) : forTheRun;
    for (const auto& [key, value] : line.settings) {
        settings.write(key, value);
    }
    return line.command == Command::ExportSettings ? exportSettings(settings, line.files.front())
                                                   : importSettings(settings, line.files.front());
}

}  // namespace program
