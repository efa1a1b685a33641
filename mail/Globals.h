#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "mail/clsResource.h"
#include "platform/Platform.h"
#include "platform/outlook.h"

namespace mail {
class OutgoingMail;
class Provider;
/// The one that the globals begin with.
const Provider& redemptionProvider() noexcept;
}  // namespace mail
namespace accounts {
class clsSendAcct;
}

namespace mail {

/// What the product calls itself and where its maker is found; the resource library supplies it at start-up.
struct ProductTexts {
    std::wstring title = L"Veltro";
    std::wstring aboutText;
    std::wstring webSite;
    std::wstring supportAddress;
    std::wstring downloadPage;
    std::wstring helpFile;
};

/// The one global state of the add-in in a process, passed by reference. Connect owns it, and lives as long
/// as the connection; in Word's process, Buttons.
struct Globals {
    explicit Globals(platform::Platform& ports) : platform(ports) {}

    platform::Platform& platform;
    /// Nothing before the connection and after the last window has closed.
    outlook::Application outlook;
    /// The add-in's own entry in Outlook's list of COM add-ins.
    std::wstring progId;
    ProductTexts product;
    std::unique_ptr<clsResource> resources;
    /// The list of preferred accounts; nothing until it is first opened, and after the last window has
    /// closed.
    std::shared_ptr<accounts::clsSendAcct> sendAccounts;
    /// How mails and profiles are read; chosen when Outlook connects the add-in.
    const Provider* provider = &redemptionProvider();
    /// From the first step of the start-up to its last; stays set when Outlook started without a window.
    bool startingUp = false;
    /// The entry id of the mail that the add-in itself is answering: its checks keep quiet about that answer,
    /// and about no other that comes inside the same call of Outlook's.
    std::optional<std::wstring> answering;
    /// While a prompt is open the user and others go on working: what was read before one is not to be
    /// relied on after it.
    std::size_t promptsShown = 0;
    /// How many are open now.
    std::size_t promptsOpen = 0;
    /// How many procedures were left because the user or the administrator has refused a call.
    std::size_t refusals = 0;
    /// The mail that was the last to raise its Send. Its ItemSend comes next, unless another send comes in
    /// between.
    std::weak_ptr<OutgoingMail> outgoing;
    /// Set from Word's process, while a macro asks there: the user does not want the mail to leave.
    bool sendCancelled = false;
    /// Path of the mailbox folder that holds the list of preferred accounts; empty until it was found or
    /// made.
    std::wstring settingsFolder;

    /// Told when the account that is preferred for a mail being written may be another than before: its
    /// recipients or the list have changed. May be empty.
    std::function<void()> preferredAccountChanges;
    void tellPreferredAccountChanges() const {
        if (preferredAccountChanges) {
            preferredAccountChanges();
        }
    }

    /// A string of the resource library, or `fallback` when it does not supply it.
    std::wstring resourceOr(std::uint32_t id, const std::wstring& fallback) const {
        return resources ? resources->stringOr(id, fallback) : fallback;
    }
};

}  // namespace mail
