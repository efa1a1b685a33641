#pragma once

#include <memory>

#include "accounts/EntryStore.h"
#include "accounts/wordSide.h"
#include "platform/automation.h"

namespace accounts {

class clsSendAcct;

/// The list of preferred accounts as the add-in hands it to Word's process: an automation object with the
/// operations of EntryStore, and the answers as properties of its own. The list itself stays where it is,
/// since all of Outlook and Redemption that it works with is there. Every call fails once the list is gone.
automation::Object shareWithWord(const std::shared_ptr<clsSendAcct>& list);

/// Reads the answers from such an object, or any other with these properties. Throws automation::Error.
wordSide::Answers answersIn(const automation::Object& shared);
/// Throws automation::Error.
void putAnswers(const automation::Object& shared, const wordSide::Answers& answers);

/// The far end of such an object. Its operations throw automation::Error when Outlook cannot be reached.
class RemoteSendAcct final : public EntryStore {
  public:
    explicit RemoteSendAcct(automation::Object shared) : shared_(std::move(shared)) {}

    std::vector<std::wstring> LoadAccounts() override;
    std::wstring PreferredAccount(const std::wstring& address) override;
    bool IsListed(const std::wstring& address) override;
    std::wstring AddEntry(const AccountEntry& entry) override;
    std::wstring ReplaceEntry(const AccountEntry& listed, const AccountEntry& entry) override;
    std::wstring SetAccount(const std::wstring& address, const std::wstring& account) override;

  private:
    automation::Object shared_;
};

}  // namespace accounts
