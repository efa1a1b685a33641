#pragma once

#include <string>

#include "mail/Globals.h"

/// What a question to the product's support says about the user's machine. None of it throws: what cannot be
/// read is said so.
namespace support::systemReport {

/// "Outlook 2010: 14.0.0.4760", from the full text of Outlook's version.
std::wstring OutlookVersion(const std::wstring& version);

/// The name of the running Windows and its word size.
std::wstring WindowsVersion(platform::SystemInfo& system);

/// The add-ins of Outlook that the registry names: the current user's, and the machine's. On a 64-bit Windows
/// those for a 32-bit Outlook are listed too where they differ.
std::wstring AddInList(platform::MachineRegistry& registry, bool is64Bit);

}  // namespace support::systemReport
