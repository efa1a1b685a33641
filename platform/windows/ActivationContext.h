#pragma once

#include <windows.h>

namespace platform::windows {

/// The number of the manifest among the add-in's resources; a DLL's manifest takes part in nothing by itself.
inline constexpr int dialogManifest = 2;

/// Makes the add-in's windows use version 6 of the common controls whatever the host uses. Without the
/// manifest they look as the host's.
class ActivationContext {
  public:
    ActivationContext();
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;
    ~ActivationContext();

    /// Windows made while this lives get the add-in's controls. Scopes nest.
    class Scope {
      public:
        explicit Scope(const ActivationContext& context);
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();

      private:
        ULONG_PTR cookie_ = 0;
        bool active_;  // Made after the cookie, which it fills in.
    };

  private:
    HANDLE handle_;
    HMODULE commonControls_ = nullptr;
};

}  // namespace platform::windows
