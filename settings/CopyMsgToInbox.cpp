#include "settings/CopyMsgToInbox.h"

#include "mail/MapiSession.h"
#include "mail/errorTrap.h"
#include "platform/files.h"
#include "settings/modRegKeys.h"

namespace settings {

namespace {

constexpr wchar_t created[] = L"CREATED";

void receive(const mail::Globals& globals, const std::wstring& file) {
    const redemption::Session session(globals);
    session.logonIfNeeded();
    session.receiveFile(file, globals.platform.clock.now());
}

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
    if (mail::skipErrors([&] { receive(globals, file); })) {
        note(created);
    }
}

}  // namespace settings
