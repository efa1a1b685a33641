#include "tests/windows/windowPicture.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace {

template <class Part>
void write(std::ofstream& stream, const Part& part) {
    stream.write(reinterpret_cast<const char*>(&part), sizeof part);
}

/// The pixels of a part of the screen, four bytes each, the lowest line first.
std::vector<std::byte> screenPixels(const RECT& area, const BITMAPINFOHEADER& header) {
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, header.biWidth, header.biHeight);
    HGDIOBJ former = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, area.left, area.top, SRCCOPY);
    SelectObject(memory, former);
    std::vector<std::byte> pixels(4 * static_cast<std::size_t>(header.biWidth) *
                                  static_cast<std::size_t>(header.biHeight));
    BITMAPINFO format{};
    format.bmiHeader = header;
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(header.biHeight), pixels.data(), &format, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

}  // namespace

void saveWindowPicture(HWND window, const std::wstring& file) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT area{};
    GetWindowRect(window, &area);
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = area.right - area.left;
    header.biHeight = area.bottom - area.top;
    header.biPlanes = 1;
    header.biBitCount = 32;
    const std::vector<std::byte> pixels = screenPixels(area, header);

    BITMAPFILEHEADER start{};
    start.bfType = 0x4D42;  // "BM"
    start.bfOffBits = sizeof start + sizeof header;
    start.bfSize = start.bfOffBits + static_cast<DWORD>(pixels.size());
    std::ofstream stream(std::filesystem::path(file), std::ios::binary);
    write(stream, start);
    write(stream, header);
    stream.write(reinterpret_cast<const char*>(pixels.data()), static_cast<std::streamsize>(pixels.size()));
    if (!stream.flush()) {
        throw std::runtime_error("the picture cannot be saved");
    }
}
