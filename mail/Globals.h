#pragma once

#include <memory>
#include <string>

#include "mail/clsResource.h"
#include "platform/Platform.h"
#include "platform/outlook.h"

namespace basGlobals {

/// What the product calls itself and where its maker is found; the resource library supplies it at start-up.
struct ProductTexts {
    std::wstring title = L"Veltro";
    std::wstring aboutText;
    std::wstring webSite;
    std::wstring supportAddress;
    std::wstring downloadPage;
    std::wstring helpFile;
};

/// The one global state. Connect owns it and passes it by reference; it lives as long as the connection.
struct Globals {
    explicit Globals(platform::Platform& world) : platform(world) {}

    platform::Platform& platform;
    /// Nothing before the connection and after the last window has closed.
    outlook::Application outlook;
    /// The add-in's own entry in Outlook's list of COM add-ins.
    std::wstring progId;
    ProductTexts product;
    std::unique_ptr<clsResource> resources;
    /// True when one of the profile's stores is a Google Apps store.
    bool googleApps = false;
    /// From the first step of the start-up to its last; stays set when Outlook started without a window.
    bool startingUp = false;
};

}  // namespace basGlobals
