#pragma once

#include <windows.h>

#include <unknwn.h>

#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"

namespace server {

/// Makes the objects of one of the DLL's classes.
class ClassFactory final : public platform::windows::ComObject<IClassFactory> {
  public:
    using Make = platform::windows::ComPtr<IUnknown> (*)();
    static platform::windows::ComPtr<IClassFactory> make(Make makeObject);

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

  private:
    explicit ClassFactory(Make makeObject);
    void* find(REFIID id) noexcept override;

    Make makeObject_;
};

}  // namespace server
