#include <utility>

#include "checks/basVeltro.h"
#include "checks/frmRemoveSpam.h"
#include "checks/subjectCleaning.h"
#include "mail/errorTrap.h"
#include "platform/files.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

std::wstring withoutSpamMarks(const Globals& globals, const std::wstring& subject) {
    if (!modRegKeys::RemoveSpamWords.read(globals)) {
        return subject;
    }
    const std::wstring phrases = modRegKeys::SpamKeyWords.read(globals);
    return removePhrases(subject, text::split(phrases, L';'));
}

std::wstring withoutRepeatedPrefixes(Globals& globals, const std::wstring& subject) {
    bool fromFile = false;
    const std::wstring path = platform::joinPath(globals.platform.system.addInFolder(), L"Tags.txt");
    std::wstring cleaned = FindReFwFromFile(globals, subject, path, fromFile);
    if (!fromFile) {
        cleaned = MultipleRemove(globals, std::move(cleaned), L"RE: ");
        cleaned = MultipleRemove(globals, std::move(cleaned), L"FW: ");
    }
    return RemoveLastTagIfMultipleTogether(globals, TrimSpaceAfterFirstSpace(globals, std::move(cleaned)));
}

std::wstring asUserWants(const Globals& globals, const std::wstring& oldSubject,
                         const std::wstring& newSubject) {
    frmRemoveSpam form(globals, oldSubject, newSubject);
    prompts::show(globals, form);
    return form.confirmed() ? std::wstring(text::trim(form.newSubject())) : oldSubject;
}

}  // namespace

void vtRemoveSpamMarks(Globals& globals, const outlook::Item& item) {
    mail::trapErrors(globals, mail::ErrorReport::usual(L"basVeltro.vtRemoveSpamMarks"), [&] {
        const std::wstring oldSubject = item.subject();
        std::wstring newSubject = withoutSpamMarks(globals, oldSubject);
        const bool phrasesRemoved = newSubject != oldSubject;
        if (modRegKeys::CheckMultipleReFwd.read(globals)) {
            newSubject = withoutRepeatedPrefixes(globals, newSubject);
        }
        newSubject = TrimSpaceAfterFirstSpace(globals, std::move(newSubject));
        if (phrasesRemoved && modRegKeys::AutoRemoveSpamWords.read(globals) == 0) {
            newSubject = asUserWants(globals, oldSubject, newSubject);
        }
        if (newSubject != oldSubject) {
            item.setSubject(newSubject);
        }
    });
}

}  // namespace checks
