#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

/// The file that a path of the product names. Paths are Windows paths with "\" between their parts; natively
/// the parts are the same.
std::filesystem::path filePath(std::wstring_view path);

/// `folder`, "\" unless it already ends in one, and `name`.
std::wstring joinPath(std::wstring folder, std::wstring_view name);

}  // namespace platform
