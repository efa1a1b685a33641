#pragma once

#include <optional>

#include "mail/Globals.h"
#include "platform/WebAddress.h"

namespace update {

/// The service that knows the newest version. Its address is the value "UpdateService" of the machine's key
/// HKEY_LOCAL_MACHINE\SOFTWARE\Corvane\Veltro: an address on the web, or "Off", which switches the check for
/// updates off for everybody on the machine. Without the value it is the product's own web site.
class UpdateService {
  public:
    /// As the machine has it now.
    static UpdateService ofMachine(const mail::Globals& globals);

    bool off() const { return off_; }
    /// Where to ask about a newer version than the installed one; nothing when the address is none.
    std::optional<platform::WebAddress> question() const;

  private:
    bool off_ = false;
    std::optional<platform::WebAddress> address_;
};

}  // namespace update
