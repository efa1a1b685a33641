#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace support {

/// The product's name and version, the way to its maker, and to the system's own report.
class frmAbout : public forms::Form {
  public:
    explicit frmAbout(mail::Globals& globals);

  private:
    void lblHomePage_Click();

    mail::Globals& globals_;

    forms::Picture imgAboutScreen{*this, L"imgAboutScreen", {0, 0, 280, 40}, forms::Picture::Image::Given};
    forms::Picture imgLogo{*this, L"imgLogo", {10, 50, 32, 30}, forms::Picture::Image::Given};
    forms::Label lblTitle;
    forms::Label lblVersion{*this, L"lblVersion", {52, 64, 218, 9}};
    forms::Label lblAbout{*this, L"lblAbout", {52, 78, 218, 46}};
    forms::Link lblHomePage;
    forms::Button cmdSysInfo{*this, L"cmdSysInfo", {134, 147, 82, 14}, L"&System Information..."};
    forms::Button cmdOK{*this, L"cmdOK", {220, 147, 50, 14}, L"OK", forms::Button::Role::Default};
};

}  // namespace support
