#include "program/SettingsFolder.h"

#include <stdexcept>

#include "platform/replaceFile.h"
#include "platform/text.h"
#include "program/MessageJson.h"

namespace program {

namespace {

constexpr wchar_t listSubject[] = L"Email Address";

constexpr wchar_t listHead[] =
    L"<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'\r\n"
    L"\txmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'\r\n\txmlns:rs='urn:schemas-microsoft-com:rowset'\r\n"
    L"\txmlns:z='#RowsetSchema'>\r\n<s:Schema id='RowsetSchema'>\r\n\t<s:ElementType name='row' "
    L"content='eltOnly' rs:updatable='true'>\r\n\t\t<s:AttributeType name='strEmailAddress' rs:number='1' "
    L"rs:nullable='true' rs:write='true'>\r\n\t\t\t<s:datatype dt:type='string' dt:maxLength='255'/>\r\n"
    L"\t\t</s:AttributeType>\r\n\t\t<s:AttributeType name='strAccount' rs:number='2' rs:nullable='true' "
    L"rs:write='true'>\r\n\t\t\t<s:datatype dt:type='string' dt:maxLength='255'/>\r\n\t\t</s:AttributeType>\r\n"
    L"\t\t<s:extends type='rs:rowbase'/>\r\n\t</s:ElementType>\r\n</s:Schema>\r\n<rs:data>\r\n";

std::wstring attributeValue(std::wstring_view value) {
    std::wstring result = text::replaceAll(value, L"&", L"&#x26;");
    for (const auto& [character, reference] :
         {std::pair{L"'", L"&#x27;"}, {L"\"", L"&#x22;"}, {L"<", L"&#x3c;"}, {L">", L"&#x3e;"}}) {
        result = text::replaceAll(result, character, reference);
    }
    return L"'" + result + L"'";
}

[[noreturn]] void fail(const CommandLine& line, const std::string& why) {
    throw std::runtime_error("folder file " + text::toUtf8(*line.folderFile) + ": " + why);
}

/// Also of files that are yet to be made, and of links: a run that locked one file twice would wait for
/// itself.
bool isSameFile(const std::filesystem::path& left, const std::filesystem::path& right) {
    std::error_code ignored;
    return std::filesystem::equivalent(left, right, ignored) ||
           std::filesystem::weakly_canonical(std::filesystem::absolute(left, ignored), ignored) ==
               std::filesystem::weakly_canonical(std::filesystem::absolute(right, ignored), ignored);
}

}  // namespace

host::Message preferredAccountsItem(const std::vector<std::pair<std::wstring, std::wstring>>& accounts) {
    host::Message item;
    item.subject = listSubject;
    item.body = listHead;
    for (const auto& [address, account] : accounts) {
        item.body += L"\t<z:row strEmailAddress=" + attributeValue(address) + L" strAccount=" +
                     attributeValue(account) + L"/>\r\n";
    }
    item.body += L"</rs:data>\r\n</xml>";
    return item;
}

std::optional<FileLock> holdSettingsFolder(const CommandLine& line, const std::function<void()>& waiting) {
    if (!line.folderFile) {
        return std::nullopt;
    }
    try {
        const auto file = pathOf(*line.folderFile);
        if (line.settingsFile && isSameFile(pathOf(*line.settingsFile), file)) {
            throw std::runtime_error("is the settings file too");
        }
        if (auto lock = FileLock::tryLock(file)) {
            return lock;
        }
        waiting();
        return FileLock(file);
    } catch (const std::runtime_error& error) {
        fail(line, error.what());
    }
}

host::Profile prepareProfile(const CommandLine& line) {
    host::Profile profile = line.profile();
    if (!line.folderFile) {
        return profile;
    }
    try {
        const std::string contents = readKeptFile(pathOf(*line.folderFile));
        if (contents.empty()) {
            return profile;
        }
        profile.folders = {host::settingsFolder};
        for (const MessageFile& kept : parseMessages(contents)) {
            // A list on the command line takes the place of the one that was kept.
            if (line.preferredAccounts.empty() || kept.message.subject != listSubject) {
                profile.messages.push_back({host::settingsFolder, kept.message});
            }
        }
    } catch (const std::runtime_error& error) {
        fail(line, error.what());
    }
    return profile;
}

void keepSettingsFolder(const CommandLine& line, const host::Outlook& outlook) {
    if (!line.folderFile || !outlook.folderExists(host::settingsFolder)) {
        return;
    }
    std::vector<MessageFile> kept;
    for (const automation::Object& item : outlook.itemsIn(host::settingsFolder)) {
        const host::ItemView view = outlook.view(item);
        kept.push_back({{}, {.itemClass = view.itemClass, .subject = view.subject, .body = view.body}});
    }
    try {
        platform::replaceFile(pathOf(*line.folderFile), toJson(kept) + "\n");
    } catch (const std::runtime_error& error) {
        fail(line, error.what());
    }
}

}  // namespace program
