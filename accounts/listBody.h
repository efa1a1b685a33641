#pragma once

#include <string>

#include "mail/Provider.h"

/// The body of the item that holds the list, which others write as well: Outlook delivers other sends inside
/// of its calls, and another Outlook may be at work on the same mailbox.
namespace accounts::listBody {

/// Outlook need not give back a body character for character as it was written.
bool holdSameList(const std::wstring& left, const std::wstring& right);

enum class Outcome {
    Stored,
    /// Another list stands there than the one that was to be replaced; nothing was written.
    Overtaken,
    /// It was written, yet another list stands there now, which may have the change in it or not.
    Overwritten,
    /// It could not be saved; the item is as it was.
    Refused,
    /// It could not be saved, and the item may show it nevertheless.
    Uncertain
};

struct Result {
    Outcome outcome = Outcome::Stored;
    /// Why it could not be saved.
    std::wstring error;
};

/// Writes a list in place of the one that was read as `before`, all of it or none. Throws automation::Error
/// when the item cannot be read.
Result replace(const mail::SafeItem& item, const std::wstring& before, const std::wstring& after);

}  // namespace accounts::listBody
