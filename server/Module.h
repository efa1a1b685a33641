#pragma once

#include "platform/windows/LiveObjects.h"

namespace server {

/// Everything of this DLL that COM holds: objects, class factories, locks. COM asks for the total without
/// saying of whom, so it is the one count that belongs to the module itself; nothing has to be done when the
/// DLL goes, not even in a host that ends without letting go.
platform::windows::LiveObjects& liveObjects() noexcept;

}  // namespace server
