#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace update {

/// Shown while the service is being asked because the user wants to know. Whoever shows it hides it when the
/// answer is there.
class frmCheckUpdate : public forms::Form {
  public:
    explicit frmCheckUpdate(const mail::Globals& globals);

    bool waits() const override { return true; }

  private:
    forms::Label lblChecking{*this, L"lblChecking", {7, 9, 206, 18}};
    forms::Button cmdCancel{*this, L"cmdCancel", {163, 32, 50, 14}, L"Cancel", forms::Button::Role::Cancel};
};

}  // namespace update
