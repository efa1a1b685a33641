#pragma once

#include "settings/encodings.h"

/// Every setting, once: its key, how it is kept and what it reads as when absent. Each is named after its
/// key; reading and writing go through it, and nothing is cached.
namespace modRegKeys {

// clang-format off

// Replies.
inline constexpr TextFlag ReplyMultiple{L"ReplyMultiple", true};
inline constexpr TextFlag ReplyALL_BCC{L"ReplyALL_BCC", true};
inline constexpr TextFlag ReplyAllAny{L"ReplyAllAny", true};
inline constexpr TextFlag ReplyInternalCheck{L"ReplyInternalCheck", false};
inline constexpr Text DomainName{L"DomainName", L""};
inline constexpr TextFlag ReplyAllAutoRemove{L"ReplyAllAutoRemove", true};
inline constexpr TextFlag PlaySound{L"PlaySound", false};

// Subjects.
inline constexpr TextFlag CheckEmptySubject{L"CheckEmptySubject", true};
inline constexpr TextFlag RemoveSpamWords{L"RemoveSpamWords", true};
inline constexpr NumberFlag AutoRemoveSpamWords{L"AutoRemoveSpamWords", 0};
inline constexpr Text SpamKeyWords{L"SpamKeyWords", L"SPAM-LOW:;SPAM-MED:;SPAM-HIGH:"};
inline constexpr TextFlag CheckMultipleReFwd{L"CheckMultipleReFwd", true};
inline constexpr TextFlag PromptReplyOnOlderEmails{L"PromptReplyOnOlderEmails", true};
inline constexpr WholeNumber OldEmailDays{L"OldEmailDays", L"28"};

// Attachments.
inline constexpr TextFlag CheckAttachMissing{L"CheckAttachMissing", true};
inline constexpr Text AttachKeyWords{L"AttachKeyWords",
                                     L"attach;attached;attachment;enclose;enclosed;enclosing"};

// Preferred accounts.
inline constexpr NumberFlag MsgAddAddress{L"MsgAddAddress", 0};
inline constexpr NumberFlag DoNotShowSelect{L"DoNotShowSelect", 0};

// Confirmation before sending.
inline constexpr Choice DisplayConfirmation{L"DisplayConfirmation"};
inline constexpr Text ConfirmEmailAddrs{L"ConfirmEmailAddrs", L""};
inline constexpr TextFlag ConfirmForXRecipients{L"ConfirmForXRecipients", false};
inline constexpr WholeNumber XRecipients{L"XRecipients", L"5"};

// Delayed sending.
inline constexpr TextFlag DelayEmails{L"DelayEmails", false};
inline constexpr Text DelayTime{L"DelayTime", L"60", L"0"};
inline constexpr NumberFlag AutoDelayAll{L"AutoDelayAll", 1};
inline constexpr Text DelayedEmailAddrs{L"DelayedEmailAddrs", L""};
inline constexpr TextFlag NotifyBeforeDelaying{L"NotifyBeforeDelaying", true};

// The user's own addresses.
inline constexpr TextFlag UseOutlookSettings{L"UseOutlookSettings", true};
inline constexpr OwnAddresses EmailList{L"EmailList"};

// What the attachment check passes over.
inline constexpr TextFlag IgnoreText{L"IgnoreText", false};
inline constexpr TextFlag IgnoreAttach{L"IgnoreAttach", false};

// Kept as they are by the modules that own them.
inline constexpr Plain ShowStartupWizard{L"ShowStartupWizard"};
inline constexpr Plain Tutorial{L"Tutorial"};
inline constexpr Plain blnMoveVT{L"blnMoveVT"};
inline constexpr Plain IntroEmailCreated{L"IntroEmailCreated"};
inline constexpr Plain IgnoreTextValue{L"IgnoreTextValue"};
inline constexpr Plain IgnoreAttachValue{L"IgnoreAttachValue"};
inline constexpr Plain LockFields{L"LockFields"};
inline constexpr Plain Password{L"Password"};
inline constexpr Plain SettingsID{L"SettingsID"};
inline constexpr Plain VT_Settings_FilePath{L"VT_Settings_FilePath"};
inline constexpr Plain PreSetupID{L"PreSetupID"};
inline constexpr Plain LastCheckUpdateDate{L"LastCheckUpdateDate"};
inline constexpr Plain blnAutomaticUpdate{L"blnAutomaticUpdate"};
inline constexpr Plain intNumDayUpdate{L"intNumDayUpdate"};
inline constexpr Plain dtmLastUpdateDate{L"dtmLastUpdateDate"};
inline constexpr Plain blnNotNotify{L"blnNotNotify"};
inline constexpr Plain strVersionNotNotify{L"strVersionNotNotify", L"False"};
inline constexpr Plain strRegistryInitialise{L"strRegistryInitialise"};

// clang-format on

}  // namespace modRegKeys
