#include "settings/CopyMsgToInbox.h"

#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "platform/files.h"
#include "settings/modRegKeys.h"

namespace settings {

namespace {

constexpr wchar_t created[] = L"CREATED";

}  // namespace

void CopyMsgToInbox(const mail::Globals& globals) {
    const auto note = [&globals](const wchar_t* outcome) {
        return mail::skipErrors([&] { modRegKeys::IntroEmailCreated.write(globals, outcome); });
    };
    // Where nothing can be noted each start would bring the e-mail once more.
    if (modRegKeys::IntroEmailCreated.read(globals) == created || !note(L"NOTCREATED")) {
        return;
    }
    const std::wstring file =
        platform::joinPath(globals.platform.system.addInFolder(), L"Introducing_Veltro.msg");
    if (mail::skipErrors(
            [&] { globals.provider->session(globals)->receiveFile(file, globals.platform.clock.now()); })) {
        note(created);
    }
}

}  // namespace settings
