#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The settings that an administrator can lock, and the text that says which of them are locked:
/// "<name>=Yes" or "<name>=No" for each, joined by ";".
namespace settings::lockFields {

struct Field {
    const wchar_t* name;
    const wchar_t* description;
};

/// All of them, in the order in which they are stored and shown.
std::span<const Field> all();

/// What the lock dialog says of the field; empty for a name that is none.
std::wstring Get_EnableField_Description(std::wstring_view name);

struct Entry {
    std::wstring name;
    bool locked = false;
};

/// The entries of a stored text; what is no entry is passed over. "Yes" counts in any letter case.
std::vector<Entry> parse(std::wstring_view stored);

std::wstring text(const std::vector<Entry>& entries);

}  // namespace settings::lockFields
