#pragma once

#include <windows.h>

#include <ocidl.h>

#include "platform/ResourceModule.h"
#include "platform/windows/ComPtr.h"

namespace platform::windows {

/// A picture as Office takes it for a menu, and as a dialog shows it.
class WindowsPicture final : public Picture {
  public:
    WindowsPicture(ComPtr<IPicture> picture, PictureKind kind) : picture_(std::move(picture)), kind_(kind) {}

    const ComPtr<IPicture>& picture() const noexcept { return picture_; }
    PictureKind kind() const noexcept { return kind_; }

  private:
    ComPtr<IPicture> picture_;
    PictureKind kind_;
};

}  // namespace platform::windows
