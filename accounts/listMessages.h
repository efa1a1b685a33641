#pragma once

#include <string>

/// What the user is told of the stored list.
namespace accounts::listMessages {

inline constexpr wchar_t notSaved[] = L"The list could not be saved. It is as it was before.";

/// Saving has failed, and so has taking it back.
inline constexpr wchar_t maybeSaved[] =
    L"The list could not be saved, and it is not certain that the change has been taken back altogether. "
    L"Please look at the list once Outlook can reach it again.";

inline constexpr wchar_t alwaysOvertaken[] =
    L"The list could not be saved, because it is being changed elsewhere at the same time. Please try again.";

inline constexpr wchar_t changedMeanwhile[] = L"This record has been changed or deleted meanwhile.";

inline std::wstring corrupted(const std::wstring& folderPath) {
    return L"The list of your Email Addresses appears to be corrupted. \r\n\r\nThis data is saved in an "
           L"e-mail labeled 'Email Addresses' in the folder " +
           folderPath +
           L". This error can only occur if someone has changed the e-mail by hand.\r\n\r\nYou can correct "
           L"this by:\r\n1. Deleting/renaming your old data email so that Veltro can automatically make a "
           L"new email to save its data OR\r\n2. Manually fixing the error in the data email";
}

inline std::wstring folderNotFound(const std::wstring& folderPath) {
    return L"Unable to load list from the folder " + folderPath + L" as the folder could not be found!";
}

}  // namespace accounts::listMessages
