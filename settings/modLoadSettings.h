#pragma once

#include <string>

#include "mail/Globals.h"
#include "settings/SettingsFileReader.h"

/// The administrator's settings file: all settings in a text file, made on one machine and read at the start
/// of Outlook on the others.
namespace modLoadSettings {

/// Where `VT_Settings_FilePath` says that the file is; empty when it says nothing, or there is no such file.
std::wstring settingsFilePath(const mail::Globals& globals);

/// Reads the file into the user's settings, unless it is the one that was read last. The file is that of
/// settingsFilePath(), else the one beside the add-in. Never throws, and says nothing.
void importSettingsFile(const mail::Globals& globals, settings::SettingsFileReader& reader) noexcept;

/// Writes the settings into the settings file of the folder, as they are stored and with no defaults. False
/// when they cannot be read or the file cannot be written, and also when it would not read as they are: a
/// text that the system's code page does not hold, a line break where a value ends with its line. The file
/// that was there before then stays.
bool exportSettingsFile(platform::SettingsStore& settings, const std::wstring& folder) noexcept;

/// Asks for a folder, writes the file there and says whether it could be done. Throws automation::Error when
/// the user cannot be asked.
void exportToChosenFolder(const mail::Globals& globals);

}  // namespace modLoadSettings
