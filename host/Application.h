#pragma once

#include <string>

#include "host/Automated.h"

namespace host {

/// Outlook's Application.
class Application : public Automated<Application> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<Application> members;

    explicit Application(Core& core) : Automated(core) {}

    std::wstring className() const override { return L"Application"; }
    EventSource* eventSource() override { return &events_; }
    /// Closes all windows and raises Quit.
    void quit();
    /// The last part of it.
    void announceQuit();

  private:
    EventSource events_{0x0006304E, 0x0006300E, 0x0006302C};
};

}  // namespace host
