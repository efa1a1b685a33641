#pragma once

#include "server/Module.h"

namespace server {

/// Keeps the DLL loaded, as an object that COM holds does.
class Held {
  public:
    Held() { liveObjects().add(); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { liveObjects().remove(); }
};

}  // namespace server
