#pragma once

#include <string>

#include "host/Automated.h"

namespace host {

/// Outlook's Application.
class Application : public Automated<Application> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<Application>> members();

    explicit Application(World& world) : Automated(world) {}

    std::wstring className() const override { return L"Application"; }
    EventSource* eventSource() override { return &events_; }
    /// Closes all windows and raises Quit.
    void quit();

  private:
    static const Member<Application> table_[];
    EventSource events_{0x0006304E, 0x0006300E, 0x0006302C};
};

}  // namespace host
