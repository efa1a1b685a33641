#pragma once

#include <string>

#include "mail/Globals.h"
#include "platform/forms.h"

namespace update {

/// Tells of a newer version whose download page cannot be opened from here: the service has named something
/// that is no address on the web. What it named is shown, to be copied.
class frmNoDownload : public forms::Form {
  public:
    frmNoDownload(mail::Globals& globals, const std::wstring& version, const std::wstring& message,
                  const std::wstring& link);

  private:
    forms::Picture ImageIcon{*this, L"ImageIcon", {7, 8, 21, 20}, forms::Picture::Image::Information};
    forms::Label lblMessage{*this, L"lblMessage", {36, 8, 217, 18}};
    forms::Label lblLink{*this,
                         L"lblLink",
                         {36, 30, 217, 18},
                         L"The update service names a download page that cannot be opened from here:"};
    forms::TextBox txtLink{*this, L"txtLink", {36, 50, 217, 13}};
    forms::TextBox txtMessage{*this, L"txtMessage", {36, 68, 217, 44}, forms::TextBox::Lines::Many};
    forms::Button cmdOK{*this, L"cmdOK", {203, 119, 50, 14}, L"OK", forms::Button::Role::Default};
};

}  // namespace update
