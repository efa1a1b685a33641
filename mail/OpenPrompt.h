#pragma once

#include "mail/Globals.h"

namespace mail {

/// Counts a prompt, for as long as it is open.
class OpenPrompt {
  public:
    explicit OpenPrompt(Globals& globals) : globals_(globals) {
        ++globals_.promptsShown;
        ++globals_.promptsOpen;
    }
    ~OpenPrompt() { --globals_.promptsOpen; }
    OpenPrompt(const OpenPrompt&) = delete;
    OpenPrompt& operator=(const OpenPrompt&) = delete;

  private:
    Globals& globals_;
};

}  // namespace mail
