#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/MachineRegistry.h"

namespace platform::windows {

/// An owned registry key. The calls return the registry's status codes.
class RegKey {
  public:
    RegKey() noexcept = default;
    RegKey(RegKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegKey& operator=(RegKey&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    RegKey(const RegKey&) = delete;
    RegKey& operator=(const RegKey&) = delete;
    ~RegKey() { close(); }

    LONG open(HKEY root, const std::wstring& path, REGSAM access);
    /// Opens the key for reading and writing; makes it and its parents when missing.
    LONG create(HKEY root, const std::wstring& path);
    LONG close() noexcept;

    LONG query(const std::wstring& name, RegistryData& data) const;
    LONG enumerateValue(DWORD index, std::wstring& name, RegistryData& data) const;
    LONG enumerateKey(DWORD index, std::wstring& name) const;
    /// The text of a text value up to its first NUL, if it has one; nothing when it is missing or of another
    /// type.
    std::optional<std::wstring> text(const std::wstring& name) const;
    std::optional<DWORD> number(const std::wstring& name) const;
    LONG setText(const std::wstring& name, const std::wstring& text) const;
    LONG remove(const std::wstring& name) const;
    LONG setNumber(const std::wstring& name, DWORD number) const;
    /// True when the key holds neither values nor keys, or is not open.
    bool isEmpty() const;

  private:
    HKEY key_ = nullptr;
};

/// Deletes a key with everything below it. A missing key is no failure.
LONG deleteKeyTree(HKEY root, const std::wstring& path);

}  // namespace platform::windows
