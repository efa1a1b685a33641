#pragma once

#include <memory>
#include <string>

#include "addin/WindowWrappers.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

namespace addin {

/// The add-in's hold on the Outlook application, from the opening of the first window to the closing of the
/// last.
class OutAddIn : public std::enable_shared_from_this<OutAddIn> {
  public:
    OutAddIn(mail::Globals& globals, WindowWrappers& wrappers) : globals_(globals), wrappers_(wrappers) {}

    bool initialised() const { return initialised_; }
    /// Takes hold of the application. Throws automation::Error.
    void Initialise(const outlook::Application& application, const std::wstring& progId);
    /// Lets everything of Outlook go, so that it can shut down.
    void UnInitialise();
    /// The same, with a Word that has edited mails and is not needed any more: Outlook is about to shut down.
    /// `closing` is the window, where it is an item's.
    void lastWindowCloses(const outlook::Inspector& closing = {});

  private:
    /// An error in its own statements goes back to Outlook, which then sends the mail.
    void objOutlook_ItemSend(const outlook::Item& item, bool& cancel);
    void objOutlook_Quit();
    std::shared_ptr<mail::OutgoingMail> outgoingMail(const outlook::Item& item);
    outlook::Inspector windowOf(const outlook::Item& item) const;

    mail::Globals& globals_;
    WindowWrappers& wrappers_;
    outlook::Application objOutlook_;
    automation::Subscription applicationEvents_;
    std::wstring progId_;
    bool initialised_ = false;
};

}  // namespace addin
