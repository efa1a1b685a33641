#pragma once

/// What an administrator's settings file is made of.
namespace settings::settingsFile {

inline constexpr wchar_t name[] = L"Veltro_Settings.ini";

inline constexpr wchar_t comment = L'\'';
/// The lines around the password and the locked fields.
inline constexpr wchar_t lockBlock[] = L"'[Enable Fields]";
inline constexpr wchar_t lockBlockEnd[] = L"'[/Enable Fields]";
/// Around the one value that may have several lines.
inline constexpr wchar_t signature[] = L"<VTSig>";
inline constexpr wchar_t signatureEnd[] = L"</VTSig>";

}  // namespace settings::settingsFile
