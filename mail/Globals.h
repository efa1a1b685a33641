#pragma once

#include <memory>
#include <optional>
#include <string>

#include "mail/clsResource.h"
#include "platform/Platform.h"
#include "platform/outlook.h"

class clsSendAcct;

namespace basGlobals {

/// Why the dialog for an entry of the list of preferred accounts was opened; the numbers are those that the
/// macros of the Word template take.
enum class DialogMode {
    None = 0,
    Add = 1,
    Edit = 2,
    /// The answer that the dialogs of a send have left is not to be acted upon.
    AnswerIgnored = 3,
    MissingAccount = 4
};

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
    /// The list of preferred accounts; nothing until it is first opened, and after the last window has
    /// closed.
    std::shared_ptr<clsSendAcct> sendAccounts;
    /// The Redemption library, which reads mails, cannot be had. The user was told at the start, so that what
    /// needs it is left out without a word.
    bool redemptionMissing = false;
    /// True when one of the profile's stores is a Google Apps store.
    bool googleApps = false;
    /// From the first step of the start-up to its last; stays set when Outlook started without a window.
    bool startingUp = false;
    /// The entry id of the mail that the add-in itself is answering: its checks keep quiet about that answer,
    /// and about no other that comes inside the same call of Outlook's.
    std::optional<std::wstring> answering;
    /// Raised by the offer to add an address, on either side of Word's, to stop the send.
    bool sendCancelled = false;
    DialogMode dialogMode = DialogMode::None;
    /// Path of the mailbox folder that holds the list of preferred accounts; empty until it was found or
    /// made.
    std::wstring settingsFolder;

    /// A string of the resource library, or `fallback` when it does not supply it.
    std::wstring resourceOr(std::uint32_t id, const std::wstring& fallback) const {
        return resources ? resources->stringOr(id, fallback) : fallback;
    }
};

}  // namespace basGlobals
