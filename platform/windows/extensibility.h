#pragma once

#include <windows.h>

#include <oaidl.h>

namespace platform::windows {

// {B65AD801-ABAF-11D0-BB8B-00A0C90F2744}
inline constexpr GUID extensibilityId = {
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};

/// The dispatch ids of IDTExtensibility2.
namespace extensibility {
inline constexpr DISPID onConnection = 1;
inline constexpr DISPID onDisconnection = 2;
inline constexpr DISPID onAddInsUpdate = 3;
inline constexpr DISPID onStartupComplete = 4;
inline constexpr DISPID onBeginShutdown = 5;
}  // namespace extensibility

/// When Office connects an add-in.
enum class ConnectMode : LONG { AfterStartup = 0, Startup = 1, External = 2, CommandLine = 3 };
/// Why Office disconnects it.
enum class RemoveMode : LONG { HostShutdown = 0, UserClosed = 1 };

// As every COM interface it has no virtual destructor: Release deletes.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// What Office calls in an add-in. The order of the members is that of the virtual table.
class IDTExtensibility2 : public IDispatch {
  public:
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, ConnectMode mode,
                                                   IDispatch* addInInstance, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(RemoveMode mode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;

  protected:
    // Not virtual: it would take a place in the table.
    ~IDTExtensibility2() = default;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

}  // namespace platform::windows
