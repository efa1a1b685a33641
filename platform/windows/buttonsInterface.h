#pragma once

#include <windows.h>

#include <oaidl.h>

namespace platform::windows {

// {BA5C28D2-3E40-46F0-885A-5ED66F1C660A}
inline constexpr GUID buttonsInterfaceId = {
    0xBA5C28D2, 0x3E40, 0x46F0, {0x88, 0x5A, 0x5E, 0xD6, 0x6F, 0x1C, 0x66, 0x0A}};

// As every COM interface it has no virtual destructor: Release deletes.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// What the macros of the Word template call. Each answers in `held` whether the mail must not leave. The
/// order of the members is that of the virtual table.
class IButtons : public IDispatch {
  public:
    virtual HRESULT STDMETHODCALLTYPE SelPostroute(BSTR accountInUse, BSTR preferred, BSTR address,
                                                   VARIANT_BOOL* held) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddEmailAddressToList(BSTR address, BSTR accountInUse,
                                                            VARIANT_BOOL* held) = 0;
    virtual HRESULT STDMETHODCALLTYPE PrefAcctExistsFalse(LONG mode, BSTR accountInUse, BSTR address,
                                                          BSTR message, VARIANT_BOOL* held) = 0;
    virtual HRESULT STDMETHODCALLTYPE DelayEmailSending(IDispatch* item, VARIANT_BOOL* cancel,
                                                        VARIANT_BOOL* held) = 0;
    virtual HRESULT STDMETHODCALLTYPE EmptySubjectCheck(IDispatch* item, VARIANT_BOOL* cancel,
                                                        VARIANT_BOOL* held) = 0;

  protected:
    // Not virtual: it would take a place in the table.
    ~IButtons() = default;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

}  // namespace platform::windows
