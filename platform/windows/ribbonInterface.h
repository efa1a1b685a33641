#pragma once

#include <windows.h>

#include <oaidl.h>

namespace platform::windows {

// {000C0396-0000-0000-C000-000000000046}
inline constexpr GUID ribbonExtensibilityId = {
    0x000C0396, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// The dispatch ids of IRibbonExtensibility.
namespace ribbonExtensibility {
inline constexpr DISPID getCustomUI = 1;
}  // namespace ribbonExtensibility

// As every COM interface it has no virtual destructor: Release deletes.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// What Office asks an add-in for its part of the ribbon by. The callbacks that the ribbon names are members
/// of this same dispatch interface.
class IRibbonExtensibility : public IDispatch {
  public:
    virtual HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* ribbon) = 0;

  protected:
    // Not virtual: it would take a place in the table.
    ~IRibbonExtensibility() = default;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

}  // namespace platform::windows
