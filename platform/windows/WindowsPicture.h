#pragma once

#include <windows.h>

#include <ocidl.h>

#include "platform/ResourceModule.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/ComTarget.h"

namespace platform::windows {

/// A picture as Office takes it for a menu, and as a dialog shows it.
class WindowsPicture final : public Picture {
  public:
    WindowsPicture(ComPtr<IPicture> picture, PictureKind kind) : picture_(std::move(picture)), kind_(kind) {}

    automation::Object object() const override {
        return automation::Object(
            std::make_shared<ComTarget>(query<IUnknown>(picture_.get(), IID_IUnknown), nullptr));
    }
    const ComPtr<IPicture>& picture() const noexcept { return picture_; }
    PictureKind kind() const noexcept { return kind_; }

  private:
    ComPtr<IPicture> picture_;
    PictureKind kind_;
};

}  // namespace platform::windows
