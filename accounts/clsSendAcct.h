#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "accounts/EntryStore.h"
#include "accounts/ListChange.h"
#include "accounts/listFolder.h"
#include "accounts/wordSide.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

namespace accounts {

/// The list that says which account to send with to which address, and what is done with accounts at a send.
///
/// The list is stored as text in the body of one mail item of the user's own mailbox. It is held in memory
/// from one load to the next; a change is made to the list as it is stored at that moment, since another
/// Outlook on the same mailbox may have changed it meanwhile, and the whole of it is written back at once,
/// unless it has been stored anew just then: the change is made again to that. A body that is no list is
/// never written over. No operation throws.
class clsSendAcct : public EntryStore {
  public:
    explicit clsSendAcct(mail::Globals& globals) : globals_(globals) {}

    /// The current values: Find and a move fill them from the row, Update writes them into it.
    std::wstring strEmailAddress;
    std::wstring strAccount;
    /// What was answered in Word's process, where the template's macros ask in place of a dialog.
    wordSide::Answers answeredInWord;
    /// Why the last Edit, Update or Delete failed; empty when it did not.
    std::wstring ErrorReport;

    /// Looks for the folder of the list, and gives what it holds. Without one nothing is shown.
    listFolder::Place Initialise();
    /// The same below the mailbox's top folders.
    listFolder::Place Initialise(const listFolder::Folders& top);

    // The stored list.
    /// Writes the rows in place of the stored ones. When that fails, which is shown, the item keeps what it
    /// held.
    bool EmailAddressMailSave(const rowset::Rowset& rows, const std::wstring& folderPath);
    /// Adds an item with an empty list to the folder; nothing on failure, which is reported.
    outlook::Item EmailAddressListMailMake(const outlook::Folder& folder);
    void MarkMailAsRead(const outlook::Item& item);
    /// The item that holds the list, made when missing; nothing without a folder, or on failure, which is
    /// reported.
    outlook::Item EmailAddressListMailGet();
    /// Reads the stored list anew. A failure is shown, and leaves no list loaded.
    bool EmailAddressListMailOpen(const std::wstring& folderPath);
    /// The same, once the folder has been found or made; before that it does nothing and gives false.
    bool LoadList();
    /// The same from where the list was found a moment ago. Where that is no longer to be relied on, or holds
    /// no list, this says nothing and gives false.
    bool LoadFound(const listFolder::Place& place);

    // The list in memory.
    bool isLoaded() const { return list_ != nullptr; }
    /// 0 while no list is loaded.
    std::size_t count() const { return list_ ? list_->count() : 0; }
    /// Of the row below count(), without moving to it. An address or account that is null reads as empty.
    const std::wstring& addressAt(std::size_t row) const { return list_->address(row); }
    const std::wstring& accountAt(std::size_t row) const { return list_->account(row); }

    /// The 1-based position of the current row; endOfList when there is none.
    std::int32_t AbsolutePosition() const;
    static constexpr std::int32_t endOfList = -3;
    /// Moves to the row at a position, and takes its values. A failure is shown.
    void AbsolutePosition(std::int32_t position);

    /// Moves to the first row from the current one on that holds exactly this address, and takes its values;
    /// to the end when there is none. An address with an apostrophe is never found: the criterion that the
    /// stored lists have always been searched with cannot hold one.
    bool Find(const std::wstring& address);
    void AddNew() { editMode_ = EditMode::Add; }
    /// Always true; ErrorReport tells whether there is a row to edit.
    bool Edit();
    bool Update();
    bool Delete();

    // The same as the dialogs use it.
    std::wstring PreferredAccount(const std::wstring& address) override;
    bool IsListed(const std::wstring& address) override;
    std::wstring AddEntry(const AccountEntry& entry) override;
    std::wstring ReplaceEntry(const AccountEntry& listed, const AccountEntry& entry) override;
    std::wstring SetAccount(const std::wstring& address, const std::wstring& account) override;

    // Accounts.
    std::vector<std::wstring> LoadAccounts() override;
    /// The name of the profile's first account; empty on failure.
    static std::wstring GetAccountInUse(mail::OutgoingMail& mail);
    /// The name of the account set on a saved mail; empty when it has none, or on failure.
    static std::wstring GetSelectedMailAccount(mail::OutgoingMail& mail);
    /// True when the profile has an account of this name, letter case and surrounding spaces aside.
    static bool PrefAcctExists(mail::OutgoingMail& mail, const std::wstring& account);
    /// Marks the mail as one to be sent with the account, and saves it. False on failure, which leaves the
    /// mail as it was.
    static bool SendUsingPrefAccount(mail::OutgoingMail& mail, const std::wstring& account);

    // The folder.
    enum class Asked { BySend, ByUser };
    /// Makes the folder of the list when it is missing, and tells the user. Gives the folder with what it
    /// holds; nothing when there is none afterwards. Every send asks for it, so that a folder that is there
    /// already is mentioned only to a user who has asked for it himself.
    std::optional<listFolder::Place> CreatePostrouteFolder(Asked asked = Asked::BySend);
    /// Nothing when there is none, or on failure.
    outlook::Folder GetDefaultFolder();

  private:
    enum class EditMode { None, Add, Edit };

    /// What an attempt to change the stored list has come to.
    struct ChangeAttempt {
        /// The list that was to be replaced.
        std::wstring before;
        /// The one that was written, yet stands there no more; nothing where nothing was.
        std::optional<AccountRows> written;
        /// Whether Outlook refused to save it, and why.
        bool refused = false;
        std::wstring error;
    };

    listFolder::Place requirePlace();
    outlook::Item makeItem(const outlook::Folder& folder);
    bool change(const ListChange& wanted);
    std::optional<bool> changeOnce(const ListChange& wanted, ChangeAttempt& former);
    bool keep(AccountRows rows);
    bool store(const AccountEntry& entry);
    std::wstring updateTo(const AccountEntry& entry);
    bool hasCurrentRow() const { return list_ && !list_->atEnd(); }
    void takeCurrentValues();
    bool fail(std::wstring report);
    void showItemMissing() const;
    void showNotSaved(const std::wstring& why) const;
    void show(const std::wstring& prompt, platform::Icon icon, const std::wstring& title) const;

    mail::Globals& globals_;
    /// Nothing while no list is loaded.
    std::unique_ptr<AccountRows> list_;
    EditMode editMode_ = EditMode::None;
};

}  // namespace accounts
