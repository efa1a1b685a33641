#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace platform::windows {

/// A counted reference to a COM interface, or nothing.
template <class Interface>
class ComPtr {
  public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}
    /// Shares the object: adds a reference.
    explicit ComPtr(Interface* object) noexcept : object_(object) {
        if (object_) {
            object_->AddRef();
        }
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    /// An interface converts to those that it derives from.
    template <class Derived>
    requires std::is_convertible_v<Derived*, Interface*> ComPtr(ComPtr<Derived> other)
    noexcept : object_(other.detach()) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() {
        if (object_) {
            object_->Release();
        }
    }

    /// Takes over a reference that somebody else added.
    static ComPtr adopt(Interface* object) noexcept {
        ComPtr result;
        result.object_ = object;
        return result;
    }

    Interface* get() const noexcept { return object_; }
    Interface* operator->() const noexcept { return object_; }
    Interface& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Gives the reference away.
    [[nodiscard]] Interface* detach() noexcept { return std::exchange(object_, nullptr); }
    /// For calls that return a reference through a pointer. Drops what was held.
    Interface** put() noexcept {
        *this = nullptr;
        return &object_;
    }
    void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

  private:
    Interface* object_ = nullptr;
};

/// Asks `object` for an interface; nothing when there is no object or it does not have it.
template <class Interface>
ComPtr<Interface> query(IUnknown* object, REFIID id) noexcept {
    void* found = nullptr;
    // Whatever a failed call left there is no reference.
    const bool has = object && SUCCEEDED(object->QueryInterface(id, &found));
    return ComPtr<Interface>::adopt(has ? static_cast<Interface*>(found) : nullptr);
}

/// COM's notion of the same object: the IUnknown that it answers with.
inline bool sameObject(IUnknown* left, IUnknown* right) noexcept {
    return left == right ||
           (left && right &&
            query<IUnknown>(left, IID_IUnknown).get() == query<IUnknown>(right, IID_IUnknown).get());
}

}  // namespace platform::windows
