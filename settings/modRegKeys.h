#pragma once

#include <tuple>

#include "settings/encodings.h"

/// Every setting, once: what it does, its key, how it is kept and what it reads as when absent. Each is named
/// after its key; reading and writing go through it, and nothing is cached. README's tables of settings are
/// made from this file by tools/settings.py, which takes the lines as they stand here: the comment is the
/// explanation, the line above a group its heading.
namespace modRegKeys {

// clang-format off

// Replies

/// Show the other recipients when Reply is clicked on an e-mail that had several, to be ticked.
inline constexpr TextFlag ReplyMultiple{L"ReplyMultiple", true};
/// Warn when Reply to All is clicked on an e-mail that reached the user as a blind copy.
inline constexpr TextFlag ReplyALL_BCC{L"ReplyALL_BCC", true};
/// Show the recipients whenever Reply to All is clicked, to be unticked.
inline constexpr TextFlag ReplyAllAny{L"ReplyAllAny", true};
/// Show no recipients when all of them are in the domains of `DomainName`.
inline constexpr TextFlag ReplyInternalCheck{L"ReplyInternalCheck", false};
/// The organisation's own domains, joined by `;`.
inline constexpr Text DomainName{L"DomainName", L""};
/// Take the user's own addresses off the recipients of a Reply to All.
inline constexpr TextFlag ReplyAllAutoRemove{L"ReplyAllAutoRemove", true};
/// Sound the system's alert before everything that Veltro asks or says.
inline constexpr TextFlag PlaySound{L"PlaySound", false};

// Subjects

/// Ask for the subject of an e-mail that has none.
inline constexpr TextFlag CheckEmptySubject{L"CheckEmptySubject", true};
/// Take the marks of spam filters off subjects.
inline constexpr TextFlag RemoveSpamWords{L"RemoveSpamWords", true};
/// Take them off without asking.
inline constexpr NumberFlag AutoRemoveSpamWords{L"AutoRemoveSpamWords", 0};
/// The marks, joined by `;`.
inline constexpr Text SpamKeyWords{L"SpamKeyWords", L"SPAM-LOW:;SPAM-MED:;SPAM-HIGH:"};
/// Take repeated `RE:` and `FW:` from subjects.
inline constexpr TextFlag CheckMultipleReFwd{L"CheckMultipleReFwd", true};
/// Show the subject, to be corrected, when an old e-mail is answered.
inline constexpr TextFlag PromptReplyOnOlderEmails{L"PromptReplyOnOlderEmails", true};
/// The days after which an e-mail counts as old.
inline constexpr WholeNumber OldEmailDays{L"OldEmailDays", 28};

// Attachments

/// Ask when the text promises an attachment and none is there.
inline constexpr TextFlag CheckAttachMissing{L"CheckAttachMissing", true};
/// The words that promise one, joined by `;`.
inline constexpr Text AttachKeyWords{L"AttachKeyWords", L"attach;attached;attachment;enclose;enclosed;enclosing"};

// Preferred accounts

/// Offer no new addresses for the list.
inline constexpr NumberFlag MsgAddAddress{L"MsgAddAddress", 0};
/// Switch to the preferred account without asking.
inline constexpr NumberFlag DoNotShowSelect{L"DoNotShowSelect", 0};

// Confirmation before sending

/// Ask before sending: `0` never, `1` always, `2` for e-mails to `ConfirmEmailAddrs`.
inline constexpr Choice DisplayConfirmation{L"DisplayConfirmation"};
/// The addresses that want a confirmation, joined by `;`.
inline constexpr Text ConfirmEmailAddrs{L"ConfirmEmailAddrs", L""};
/// Ask before sending to more than `XRecipients` recipients.
inline constexpr TextFlag ConfirmForXRecipients{L"ConfirmForXRecipients", false};
/// That number.
inline constexpr WholeNumber XRecipients{L"XRecipients", 5};

// Delayed sending

/// Hold e-mails back before they leave.
inline constexpr TextFlag DelayEmails{L"DelayEmails", false};
/// For how many seconds; none when stored empty.
inline constexpr Text DelayTime{L"DelayTime", L"60", L"0"};
/// Hold all of them back; `0`: only those to `DelayedEmailAddrs`.
inline constexpr NumberFlag AutoDelayAll{L"AutoDelayAll", 1};
/// The addresses whose e-mails are held back, joined by `;`.
inline constexpr Text DelayedEmailAddrs{L"DelayedEmailAddrs", L""};
/// Ask before an e-mail is held back.
inline constexpr TextFlag NotifyBeforeDelaying{L"NotifyBeforeDelaying", true};

// The user's own addresses

/// Set `EmailList` to the addresses of the profile's accounts at each start of Outlook.
inline constexpr TextFlag UseOutlookSettings{L"UseOutlookSettings", true};
/// The user's own addresses, joined by `;`.
inline constexpr OwnAddresses EmailList{L"EmailList"};

// What the attachment check passes over

/// Pass over the text of `IgnoreTextValue`.
inline constexpr TextFlag IgnoreText{L"IgnoreText", false};
/// A signature or disclaimer that contains such words; of several lines where needed.
inline constexpr Plain IgnoreTextValue{L"IgnoreTextValue"};
/// Pass over the attachments of `IgnoreAttachValue`.
inline constexpr TextFlag IgnoreAttach{L"IgnoreAttach", false};
/// Their full names, such as that of a business card, joined by `;`.
inline constexpr Plain IgnoreAttachValue{L"IgnoreAttachValue"};

// The administrator's settings file

/// Where it is; beside the add-in when there is no such file.
inline constexpr Plain VT_Settings_FilePath{L"VT_Settings_FilePath"};
/// The identifier of the file that was last applied.
inline constexpr Plain SettingsID{L"SettingsID"};
/// The fields of the settings dialog that may be locked, each with `=Yes` or `=No`, joined by `;`.
inline constexpr Plain LockFields{L"LockFields"};
/// The password of the lock, scrambled; empty: nothing is locked.
inline constexpr Plain Password{L"Password"};

// The check for a newer version

/// Check for a newer version now and then: `1`.
inline constexpr Plain blnAutomaticUpdate{L"blnAutomaticUpdate"};
/// The days between two automatic checks.
inline constexpr Plain intNumDayUpdate{L"intNumDayUpdate"};
/// Keep quiet about the version of `strVersionNotNotify`: `1`.
inline constexpr Plain blnNotNotify{L"blnNotNotify"};
/// The version that the user wants to hear no more of.
inline constexpr Plain strVersionNotNotify{L"strVersionNotNotify", L"False"};
/// The day of the last check that the user asked for; `DoNotCheck`: never check unasked.
inline constexpr Plain LastCheckUpdateDate{L"LastCheckUpdateDate"};
/// Whether the user has said so in the dialog: `1`.
inline constexpr Plain DoNotCheck{L"DoNotCheck"};
/// The day of the last automatic check.
inline constexpr Plain dtmLastUpdateDate{L"dtmLastUpdateDate"};
/// `ProgrammerInitialised` once this schedule has its first values.
inline constexpr Plain strRegistryInitialise{L"strRegistryInitialise"};

// What Veltro notes for itself

/// The machine-wide preset that was last applied.
inline constexpr Plain PreSetupID{L"PreSetupID"};
/// `1` once the user was told what is missing without the Redemption library.
inline constexpr Plain LibraryMissingTold{L"LibraryMissingTold"};
/// `1` once the mailbox folder with the list of preferred accounts has its present name.
inline constexpr Plain blnMoveVT{L"blnMoveVT"};

/// `False` once the settings dialog has been shown at a start.
inline constexpr Plain ShowStartupWizard{L"ShowStartupWizard"};
/// `CREATED` once the e-mail that introduces Veltro has been made, `NOTCREATED` when that failed.
inline constexpr Plain IntroEmailCreated{L"IntroEmailCreated"};

// Without effect in this version

/// Whether the tutorial is offered.
inline constexpr Plain Tutorial{L"Tutorial"};
// clang-format on

/// All of them, for whoever goes through the settings.
inline constexpr std::tuple all{ReplyMultiple,
                                ReplyALL_BCC,
                                ReplyAllAny,
                                ReplyInternalCheck,
                                DomainName,
                                ReplyAllAutoRemove,
                                PlaySound,
                                CheckEmptySubject,
                                RemoveSpamWords,
                                AutoRemoveSpamWords,
                                SpamKeyWords,
                                CheckMultipleReFwd,
                                PromptReplyOnOlderEmails,
                                OldEmailDays,
                                CheckAttachMissing,
                                AttachKeyWords,
                                MsgAddAddress,
                                DoNotShowSelect,
                                DisplayConfirmation,
                                ConfirmEmailAddrs,
                                ConfirmForXRecipients,
                                XRecipients,
                                DelayEmails,
                                DelayTime,
                                AutoDelayAll,
                                DelayedEmailAddrs,
                                NotifyBeforeDelaying,
                                UseOutlookSettings,
                                EmailList,
                                IgnoreText,
                                IgnoreAttach,
                                ShowStartupWizard,
                                Tutorial,
                                LibraryMissingTold,
                                blnMoveVT,
                                IntroEmailCreated,
                                IgnoreTextValue,
                                IgnoreAttachValue,
                                LockFields,
                                Password,
                                SettingsID,
                                VT_Settings_FilePath,
                                PreSetupID,
                                LastCheckUpdateDate,
                                DoNotCheck,
                                blnAutomaticUpdate,
                                intNumDayUpdate,
                                dtmLastUpdateDate,
                                blnNotNotify,
                                strVersionNotNotify,
                                strRegistryInitialise};

}  // namespace modRegKeys
