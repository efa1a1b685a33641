#include "settings/modLoadSettings.h"

#include <optional>
#include <sstream>

#include "mail/errorTrap.h"
#include "platform/MemorySettingsStore.h"
#include "platform/files.h"
#include "platform/replaceFile.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/settingsFile.h"

namespace modLoadSettings {

namespace {

using namespace modRegKeys;
using mail::Globals;
using platform::SettingsStore;
namespace settingsFile = settings::settingsFile;

/// The settings that travel with the file, in its order.
constexpr const wchar_t* exportedKeys[] = {AttachKeyWords.key,
                                           AutoDelayAll.key,
                                           AutoRemoveSpamWords.key,
                                           CheckAttachMissing.key,
                                           CheckEmptySubject.key,
                                           CheckMultipleReFwd.key,
                                           ConfirmEmailAddrs.key,
                                           ConfirmForXRecipients.key,
                                           DelayedEmailAddrs.key,
                                           DelayEmails.key,
                                           DelayTime.key,
                                           DisplayConfirmation.key,
                                           DomainName.key,
                                           DoNotShowSelect.key,
                                           EmailList.key,
                                           IntroEmailCreated.key,
                                           IgnoreAttach.key,
                                           IgnoreAttachValue.key,
                                           IgnoreText.key,
                                           IgnoreTextValue.key,
                                           MsgAddAddress.key,
                                           NotifyBeforeDelaying.key,
                                           OldEmailDays.key,
                                           PlaySound.key,
                                           PromptReplyOnOlderEmails.key,
                                           RemoveSpamWords.key,
                                           ReplyALL_BCC.key,
                                           ReplyAllAny.key,
                                           ReplyAllAutoRemove.key,
                                           ReplyInternalCheck.key,
                                           ReplyMultiple.key,
                                           ShowStartupWizard.key,
                                           SpamKeyWords.key,
                                           UseOutlookSettings.key,
                                           XRecipients.key};

/// The identifier of a file whose exporter has none.
constexpr wchar_t firstId[] = L"100";

constexpr const wchar_t* head[] = {
    L"' Veltro Settings",
    L"' ===================",
    L"'",
    L"' If SettingsID is nothing or different than the one provided last time, then these",
    L"' settings will be applied to the Veltro settings on the destination users.",
    L"' If the SettingsID is same as the last time, the Settings will not be applied.",
    L"'",
};
constexpr wchar_t groupEnd[] = L"'";

/// The settings as a file has them: absent is empty.
platform::MemorySettingsStore contentsOf(SettingsStore& stored) {
    platform::MemorySettingsStore contents;
    const auto take = [&](const wchar_t* key) { contents.write(key, stored.read(key).value_or(L"")); };
    take(SettingsID.key);
    if (contents.read(SettingsID.key) == L"") {
        contents.write(SettingsID.key, firstId);
    }
    for (const wchar_t* key : exportedKeys) {
        take(key);
    }
    take(Password.key);
    take(LockFields.key);
    return contents;
}

/// The lines of a file, as they are written.
class Lines {
  public:
    void add(std::wstring_view line) {
        text_ += line;
        text_ += text::lineBreak;
    }
    void addSetting(const std::wstring& key, const std::wstring& value) { add(key + L'=' + value); }
    const std::wstring& text() const { return text_; }

  private:
    std::wstring text_;
};

std::wstring fileOf(platform::MemorySettingsStore& contents) {
    const auto value = [&](const wchar_t* key) { return contents.read(key).value_or(L""); };
    Lines lines;
    for (const wchar_t* line : head) {
        lines.add(line);
    }
    lines.addSetting(SettingsID.key, value(SettingsID.key));
    lines.add(groupEnd);
    for (const wchar_t* key : exportedKeys) {
        const bool isSignature = key == std::wstring_view(IgnoreTextValue.key);
        lines.addSetting(key, isSignature ? settingsFile::signature + value(key) + settingsFile::signatureEnd
                                          : value(key));
    }
    lines.add(groupEnd);
    lines.add(settingsFile::lockBlock);
    lines.addSetting(Password.key, value(Password.key));
    const std::wstring lockFields = value(LockFields.key);
    for (const std::wstring_view field : text::split(lockFields, L';')) {
        lines.add(field);
    }
    lines.add(settingsFile::lockBlockEnd);
    lines.add(groupEnd);
    return lines.text();
}

/// The format has no way to write some values: those with line breaks where lines end values, with what the
/// reader takes for a marker, or with characters of other code pages. Rather than to know them all, the file
/// is read as it will be.
bool readsAs(const std::string& file, const platform::MemorySettingsStore& contents) {
    platform::MemorySettingsStore read;
    std::istringstream stream(file);
    settings::SettingsFileReader().read(stream, read);
    return read.settings() == contents.settings();
}

}  // namespace

std::wstring settingsFilePath(const Globals& globals) {
    const std::wstring stored = VT_Settings_FilePath.read(globals);
    const std::wstring_view path = text::trim(stored);
    std::error_code ignored;
    return std::filesystem::is_regular_file(platform::filePath(path), ignored) ? std::wstring(path)
                                                                               : std::wstring();
}

void importSettingsFile(const Globals& globals, settings::SettingsFileReader& reader) noexcept {
    mail::skipErrors([&] {
        std::wstring path = settingsFilePath(globals);
        if (path.empty()) {
            path = globals.platform.system.addInFolder() + L'/' + settingsFile::name;
        }
        reader.read(platform::filePath(path), globals.platform.settings);
    });
}

bool exportSettingsFile(SettingsStore& settings, const std::wstring& folder) noexcept {
    return mail::attempt([&] {
               platform::MemorySettingsStore contents = contentsOf(settings);
               const std::string file = text::toCodePage(fileOf(contents));
               if (!readsAs(file, contents)) {
                   return false;
               }
               platform::replaceFile(platform::filePath(platform::joinPath(folder, settingsFile::name)),
                                     file);
               return true;
           })
        .value_or(false);
}

void exportToChosenFolder(const Globals& globals) {
    platform::Desktop& desktop = globals.platform.desktop;
    const std::wstring folder = desktop.chooseFolder(L"Where do you want to save the Settings file?");
    if (folder.empty()) {
        return;
    }
    const std::wstring path = platform::joinPath(folder, settingsFile::name);
    const std::wstring title = L"Export " + globals.product.title + L" settings";
    if (exportSettingsFile(globals.platform.settings, folder)) {
        desktop.messageBox(L"Veltro settings have been saved in a .ini file at\r\n" + path,
                           {platform::Buttons::Ok, platform::Icon::Information}, title);
    } else {
        desktop.messageBox(L"Veltro settings could not be saved at\r\n" + path,
                           {platform::Buttons::Ok, platform::Icon::Critical}, title + L" - Error");
    }
}

}  // namespace modLoadSettings
