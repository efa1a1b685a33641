#include "server/Module.h"

namespace server {

platform::windows::LiveObjects& liveObjects() noexcept {
    static platform::windows::LiveObjects objects;
    return objects;
}

}  // namespace server
