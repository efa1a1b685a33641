#pragma once

#include <string>

#include "addin/WindowWrappers.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

/// The add-in's hold on the Outlook application, from the opening of the first window to the closing of the
/// last.
class OutAddIn {
  public:
    OutAddIn(basGlobals::Globals& globals, WindowWrappers& wrappers)
        : globals_(globals), wrappers_(wrappers) {}

    bool initialised() const { return initialised_; }
    /// Takes hold of the application and its MAPI name space. Throws automation::Error.
    void Initialise(const outlook::Application& application, const std::wstring& progId);
    /// Lets everything of Outlook go, so that it can shut down.
    void UnInitialise();

  private:
    basGlobals::Globals& globals_;
    WindowWrappers& wrappers_;
    outlook::Application objOutlook_;
    std::wstring progId_;
    outlook::NameSpace nameSpace_;
    bool initialised_ = false;
};
