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

    forms::Picture imgAboutScreen{*this, L"imgAboutScreen", {0, 0, 240, 50}, forms::Picture::Image::Given};
    forms::Picture imgLogo{*this, L"imgLogo", {10, 60, 32, 30}, forms::Picture::Image::Given};
    forms::Label lblTitle;
    forms::Label lblVersion{*this, L"lblVersion", {52, 74, 178, 9}};
    forms::Label lblAbout{*this, L"lblAbout", {52, 88, 178, 27}};
    forms::Link lblHomePage;
    forms::Button cmdSysInfo{*this, L"cmdSysInfo", {98, 139, 82, 14}, L"&System Information..."};
    forms::Button cmdOK{*this, L"cmdOK", {184, 139, 50, 14}, L"OK", forms::Button::Role::Default};
};

}  // namespace support
