#pragma once

#include <optional>
#include <string>

#include "checks/AnsweredMail.h"
#include "mail/Globals.h"

/// Who the user is, and whether a mail was openly addressed to them.
namespace checks {

/// Stands for a sender's address where none is given.
inline constexpr wchar_t noSender[] = L"EMPTY";

/// The user's own addresses as one ";"-separated text: those of the profile's accounts, or those the user has
/// listed, as the settings say. Nothing on failure, which is reported.
std::optional<std::wstring> vtGetUserEmails(mail::Globals& globals);

/// True when one of the user's own addresses is the given sender's or that of a recipient of the mail.
/// Nothing on failure, which is reported: who cannot tell must not warn.
std::optional<bool> vtCheckIfUserInRecipients(mail::Globals& globals, AnsweredMail& mail,
                                              const std::wstring& senderAddress);

/// True when every recipient and the sender belong to one of the user's own domains. False on failure, which
/// is reported.
bool vtRecipientsAllSameDomain(mail::Globals& globals, AnsweredMail& mail);

}  // namespace checks
