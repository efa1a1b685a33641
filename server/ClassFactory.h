#pragma once

#include <windows.h>

#include <unknwn.h>

#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"

namespace server {

/// Makes Veltro.Connect objects.
class ClassFactory final : public platform::windows::ComObject<IClassFactory> {
  public:
    static platform::windows::ComPtr<IClassFactory> make();

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

  private:
    ClassFactory();
    void* find(REFIID id) noexcept override;
};

}  // namespace server
