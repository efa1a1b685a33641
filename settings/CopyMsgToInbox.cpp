#include "settings/CopyMsgToInbox.h"

#include <filesystem>

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
    session.receiveFile(file);
}

}  // namespace

void CopyMsgToInbox(const mail::Globals& globals) {
    if (modRegKeys::IntroEmailCreated.read(globals) == created) {
        return;
    }
    const std::wstring file =
        platform::joinPath(globals.platform.system.addInFolder(), L"Introducing_Veltro.msg");
    std::error_code error;
    const bool done = std::filesystem::exists(platform::filePath(file), error) &&
                      mail::skipErrors([&] { receive(globals, file); });
    mail::skipErrors([&] { modRegKeys::IntroEmailCreated.write(globals, done ? created : L"NOTCREATED"); });
}

}  // namespace settings
