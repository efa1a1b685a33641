#pragma once

#include <set>
#include <string>

#include "checks/AnsweredMail.h"

namespace checks {

/// Recipients told apart by their addresses, in whatever form these are known, and by their names where an
/// address is unknown on either side: a recipient that could not be read in one of two mails is still the
/// same one.
class RecipientSet {
  public:
    void add(const MailRecipient& recipient);
    void remove(const RecipientSet& others);
    bool contains(const MailRecipient& recipient) const;

  private:
    std::set<std::wstring> keys_;
};

}  // namespace checks
