#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Outlook.h"
#include "program/CommandLine.h"

namespace program {

/// The item in which the add-in keeps the list of preferred accounts, in the form of data-access components.
/// Pairs are address and account.
host::Message preferredAccountsItem(const std::vector<std::pair<std::wstring, std::wstring>>& accounts);

/// The profile that the command line describes, with what its --folder file holds of the settings folder.
/// Throws std::runtime_error when there is such a file and it cannot be used.
host::Profile prepareProfile(const CommandLine& line);

/// Writes the items of the settings folder, when there is one, to the --folder file, when there is one.
/// Throws std::runtime_error when it cannot be written.
void keepSettingsFolder(const CommandLine& line, const host::Outlook& outlook);

}  // namespace program
