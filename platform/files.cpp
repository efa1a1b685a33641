#include "platform/files.h"

#include "platform/text.h"

namespace platform {

std::filesystem::path filePath(std::wstring_view path) {
    if constexpr (std::filesystem::path::preferred_separator == '/') {
        return {text::toUtf8(text::replaceAll(path, L"\\", L"/"))};
    } else {
        return {path};
    }
}

std::wstring joinPath(std::wstring folder, std::wstring_view name) {
    if (!folder.ends_with(L'\\')) {
        folder += L'\\';
    }
    return folder += name;
}

}  // namespace platform
