#pragma once

#include <memory>
#include <string>
#include <vector>

#include "mail/Globals.h"
#include "platform/FunctionTarget.h"

namespace addin {

/// The product's part of Office's ribbon, which Outlook draws in main windows from 2010 on and in item
/// windows from 2007 on. Outlook asks for it before it connects the add-in, calls back by names, and keeps
/// each answer until it is told that it no longer holds. No callback throws; nothing is asked of the user
/// while Outlook draws.
class Ribbon {
  public:
    explicit Ribbon(mail::Globals& globals);
    ~Ribbon();
    Ribbon(const Ribbon&) = delete;
    Ribbon& operator=(const Ribbon&) = delete;

    /// For the windows of that kind; empty for those in which the product has nothing.
    std::wstring customUI(const std::wstring& ribbonId) const;
    /// What the callbacks are members of. Each fails once the ribbon is gone.
    automation::Object callbacks() const { return automation::Object(callbacks_); }
    void connected() { gone_ = false; }
    /// Lets Outlook's ribbons go, and has none until the next connection.
    void disconnected() {
        gone_ = true;
        loaded_.clear();
    }

  private:
    automation::Value picture(const automation::Object& control) const;
    automation::Value account(const automation::Object& control) const;
    void pressed(const automation::Object& control);
    void askForAccountAnew() const;

    mail::Globals& globals_;
    bool gone_ = false;
    /// One for each ribbon that shows an account.
    std::vector<automation::Object> loaded_;
    std::shared_ptr<automation::FunctionTarget> callbacks_;
};

}  // namespace addin
