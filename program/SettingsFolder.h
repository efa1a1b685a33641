#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/Outlook.h"
#include "program/CommandLine.h"
#include "program/files.h"

namespace program {

/// The item in which the add-in keeps the list of preferred accounts, in the form of data-access components.
/// Pairs are address and account.
host::Message preferredAccountsItem(const std::vector<std::pair<std::wstring, std::wstring>>& accounts);

/// Keeps the --folder file, when there is one, to this run until it ends, as Outlook keeps a mailbox file to
/// itself; another run that uses it is waited for, after a call of `waiting`. Throws std::runtime_error when
/// the file is none that could be written.
std::optional<FileLock> holdSettingsFolder(const CommandLine& line, const std::function<void()>& waiting);

/// The profile that the command line describes, with what its --folder file holds of the settings folder.
/// Throws std::runtime_error when there is such a file and it cannot be used.
host::Profile prepareProfile(const CommandLine& line);

/// Writes the items of the settings folder, when there is one, to the --folder file, when there is one.
/// Throws std::runtime_error when it cannot be written.
void keepSettingsFolder(const CommandLine& line, const host::Outlook& outlook);

}  // namespace program
