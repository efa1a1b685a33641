#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/Message.h"

namespace host {

/// Redemption's numbers of the account types.
enum class AccountType { Pop3 = 0, Imap = 1, Http = 2, Exchange = 3, Mapi = 4, Ldap = 5 };

struct Account {
    std::wstring name{};
    std::wstring address{};
    AccountType type = AccountType::Pop3;
    /// Empty: made from the account's place in the profile.
    std::wstring stamp{};
    /// The account's field 0x000E001F. Empty: made from stamp and address.
    std::wstring sendStamp{};
};

/// Redemption's numbers of the store kinds.
enum class StoreKind {
    Unknown = 0,
    PstAnsi = 1,
    PstUnicode = 2,
    PrimaryExchange = 3,
    DelegateExchange = 4,
    PublicFolders = 5
};

struct Store {
    std::wstring name = L"Personal Folders";
    StoreKind kind = StoreKind::PstUnicode;
    /// Whose mailbox an Exchange store is.
    std::optional<Address> owner{};
    /// Refuses new folders, new items and changes.
    bool readOnly = false;
};

/// The editor of mail windows below version 12; later versions answer Word whatever this says.
enum class Editor { Text = 1, Html = 2, RichText = 3, Word = 4 };

/// Whom Outlook's guard of addresses, texts and sending stops.
enum class GuardMode {
    /// Nobody, as in an Outlook 2000 without its service packs.
    Off,
    /// Up to 2002 every program; from 2003 on what a program reaches from an application that it has made.
    OfVersion,
    /// Everybody: the administrator says so.
    Everybody
};

/// What a guarded call fails with when it is refused: either was seen.
namespace guardRefusal {
inline constexpr auto aborted = static_cast<std::int32_t>(0x80004004);
inline constexpr auto userCancelled = static_cast<std::int32_t>(0x80040102);
}  // namespace guardRefusal

/// An item that a folder holds when Outlook starts.
struct StoredMessage {
    /// Path below the root of the default store, parts joined by "\".
    std::wstring folder{};
    Message message{};
};

/// Where the add-in keeps its data.
inline constexpr wchar_t settingsFolder[] = L"Corvane Settings\\Veltro";

/// The user's Outlook before it starts.
struct Profile {
    std::wstring version = L"14.0.0.4760";
    /// In the profile's order; the first is the default account.
    std::vector<Account> accounts{{.name = L"Work", .address = L"me@example.org"}};
    /// The first holds the default folders.
    std::vector<Store> stores{Store{}};
    Editor editor = Editor::Html;
    /// Folders beside the default ones in the default store, as paths whose parts are joined by "\". The one
    /// named here is the add-in's settings folder: leave it out for a profile on which the add-in never ran.
    std::vector<std::wstring> folders{settingsFolder};
    std::vector<StoredMessage> messages{};
    /// Names that recipients are resolved with, beside mailboxes that stand for themselves.
    std::vector<Address> addressBook{};
    /// None: the first account's address. Its type is what Redemption tells of the current user.
    std::optional<Address> user{};
    /// Windows open when Outlook starts.
    int explorers = 1;
    int inspectors = 0;
    /// A sent item goes on as the object that it was. Otherwise every call to that object fails.
    bool sentItemsStay = false;
    /// MAPI properties, by their tags, that the store refuses to set on an item.
    std::set<std::uint32_t> refusedFields{};
    /// Without it programs have Outlook's own objects only.
    bool redemptionRegistered = true;
    GuardMode guard = GuardMode::OfVersion;
    std::int32_t guardRefusal = guardRefusal::aborted;
    /// What local time is ahead of UTC, in which MAPI keeps times, in minutes.
    int minutesAheadOfUtc = 60;
    bool wordRegistered = true;
    /// Word's macro security lets the macros of templates run.
    bool macrosAllowed = true;
};

}  // namespace host
