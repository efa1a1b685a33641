#pragma once

#include "platform/Http.h"
#include "platform/windows/MessageWindow.h"

namespace platform::windows {

/// The web as Windows reaches it: with the user's proxy and the machine's certificates. The thread of a
/// request holds the DLL in memory till its end, so that nobody has to wait for it: Windows does not always
/// give up at once what it has begun.
class WinInetHttp final : public Http {
  public:
    explicit WinInetHttp(OwnerLock owner = nullptr) : owner_(std::move(owner)) {}

    std::unique_ptr<HttpRequest> get(const WebAddress& address, std::function<void(Answer)> done) override;

  private:
    OwnerLock owner_;
};

}  // namespace platform::windows
