#include "settings/wizardLists.h"

#include "settings/modRegKeys.h"

namespace settings::wizardLists {

namespace {

constexpr Complaint addressMissing{L"Email Address missing", L"Please enter the e-mail address"};
constexpr Complaint addressExists{L"Existing Email Address",
                                  L"There is already an existing e-mail with this address. "};
constexpr Complaint addressInvalid{L"Invalid Email Address", L"Please enter a valid Email Address"};
constexpr wchar_t addresses[] = L"Email address(es)?";
constexpr wchar_t addAddress[] = L"Add email address";

}  // namespace

const EditedListTexts spamWords{
    .list = L"lstSpamWords",
    .label = L"lblSpamWords",
    .labelCaption = L"SPAM &marks:",
    .add = L"cmdAdd_Spam",
    .remove = L"cmdDelete_Spam",
    .noun = L"item(s)?",
    .rules = {.prompt = L"Enter the SPAM Mark phrase added in Subject by Anti-Spam software",
              .caption = L"Add SPAM Mark phrase",
              .missing = {L"SPAM Mark phrase missing", L"Please enter the SPAM Mark phrase"},
              .existing = {L"Existing SPAM Mark phrase",
                           L"There is already an existing SPAM Mark phrase. \r\nPlease enter another SPAM "
                           L"Mark phrase"}},
    .reset = L"cmdReset_Spam",
    .defaults = modRegKeys::SpamKeyWords.whenAbsent};

const EditedListTexts keywords{
    .list = L"lstKeywords",
    .label = L"lblKeywords",
    .labelCaption = L"&Keywords:",
    .add = L"cmdAdd_Attach",
    .remove = L"cmdDelete_Attach",
    .noun = L"Keyword(s)?",
    .rules = {.prompt = L"Enter a keyword that implies that you need to have attachment(s) to the email",
              .caption = L"Add attachment keyword",
              .missing = {L"Keyword missing", L"Please enter the keyword"},
              .existing = {L"Existing keyword",
                           L"There is already an existing keyword. \r\nPlease enter another keyword"}},
    .reset = L"cmdReset_Attach",
    .defaults = modRegKeys::AttachKeyWords.whenAbsent};

const EditedListTexts confirmedAddresses{
    .list = L"lstConfirmEmailAddresses",
    .label = L"lblConfirmEmailAddresses",
    .labelCaption = L"&E-mail addresses:",
    .add = L"cmdAdd_Confirm",
    .remove = L"cmdDelete_Confirm",
    .noun = addresses,
    .rules = {.prompt = L"Enter the email address for which you want to confirm before sending the email",
              .caption = addAddress,
              .missing = addressMissing,
              .existing = addressExists,
              .invalid = addressInvalid}};

const EditedListTexts delayedAddresses{
    .list = L"lstDelayToEAddr",
    .label = L"lblDelayToEAddr",
    .labelCaption = L"&E-mail addresses:",
    .add = L"cmdAdd_EAddr",
    .remove = L"cmdDelete_EAddr",
    .noun = addresses,
    .rules = {.prompt = L"Enter the email address for which you want to delay the email sending",
              .caption = addAddress,
              .missing = addressMissing,
              .existing = addressExists,
              .invalid = addressInvalid}};

const EditedListTexts ownAddresses{
    .list = L"lstEmailAccounts",
    .label = L"lblEmailAccounts",
    .labelCaption = L"My &e-mail addresses:",
    .add = L"cmdAdd_EmailAcc",
    .remove = L"cmdDelete_EmailAcc",
    .noun = addresses,
    .rules = {.prompt = L"Enter your email address",
              .caption = addAddress,
              .missing = {L"Email address missing", L"Please enter an email address."},
              .existing = {L"Existing email address",
                           L"There is already an existing email address.\r\nPlease enter another email "
                           L"address"},
              .invalid = Complaint{L"Invalid email address", L"Please enter a valid email address."},
              .validityFirst = true}};

}  // namespace settings::wizardLists
