#pragma once

#include <windows.h>

#include <oaidl.h>

#include "platform/windows/LiveObjects.h"

namespace platform::windows {

// COM interfaces have no virtual destructor, since nobody may delete an object through one: Release does.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// Base of the COM objects that this module implements: counts references, starting with the maker's, and
/// deletes the object with the last one. The first interface is the object's identity.
template <class First, class... Others>
class ComObject : public First, public Others... {
  public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) final {
        if (!object) {
            return E_POINTER;
        }
        *object = id == IID_IUnknown ? identity() : find(id);
        if (!*object) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() final { return ++references_; }
    STDMETHODIMP_(ULONG) Release() final {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    IUnknown* identity() noexcept { return static_cast<First*>(this); }
    const IUnknown* identity() const noexcept { return static_cast<const First*>(this); }

  protected:
    /// The object counts in `liveObjects` as long as it lives.
    explicit ComObject(LiveObjects& liveObjects) noexcept : liveObjects_(liveObjects) { liveObjects_.add(); }
    virtual ~ComObject() { liveObjects_.remove(); }

    /// The interface of that id, IUnknown aside; null when the object has none.
    virtual void* find(REFIID id) noexcept = 0;

  private:
    LiveObjects& liveObjects_;
    std::atomic<ULONG> references_{1};
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

/// The same for objects that are called late bound and describe themselves no further.
template <class First, class... Others>
class DispatchObject : public ComObject<First, Others...> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) final {
        if (!count) {
            return E_POINTER;
        }
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) final {
        if (info) {
            *info = nullptr;
        }
        return DISP_E_BADINDEX;
    }

  protected:
    using ComObject<First, Others...>::ComObject;
};

}  // namespace platform::windows
