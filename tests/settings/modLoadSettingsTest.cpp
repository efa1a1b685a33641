#include "settings/modLoadSettings.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "platform/text.h"
#include "settings/AlertingDesktop.h"
#include "settings/modRegKeys.h"
#include "tests/TemporaryFolder.h"
#include "tests/TestWorld.h"

namespace {

namespace fs = std::filesystem;
using modLoadSettings::exportSettingsFile;
using platform::MemorySettingsStore;

constexpr char fileName[] = "Veltro_Settings.ini";

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::wstring pathOf(const TemporaryFolder& folder) {
    return folder.file("").wstring();
}

std::size_t filesIn(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.file("")), {}));
}

std::string withLineEnds(const std::string& text) {
    return text::toUtf8(text::replaceAll(text::fromUtf8(text), L"\n", L"\r\n"));
}

constexpr char layout[] = R"(' Veltro Settings
' ===================
'
' If SettingsID is nothing or different than the one provided last time, then these
' settings will be applied to the Veltro settings on the destination users.
' If the SettingsID is same as the last time, the Settings will not be applied.
'
SettingsID=100
'
AttachKeyWords=
AutoDelayAll=
AutoRemoveSpamWords=
CheckAttachMissing=
CheckEmptySubject=
CheckMultipleReFwd=
ConfirmEmailAddrs=
ConfirmForXRecipients=
DelayedEmailAddrs=
DelayEmails=
DelayTime=
DisplayConfirmation=
DomainName=
DoNotShowSelect=
EmailList=
IntroEmailCreated=
IgnoreAttach=
IgnoreAttachValue=
IgnoreText=
IgnoreTextValue=<VTSig></VTSig>
MsgAddAddress=
NotifyBeforeDelaying=
OldEmailDays=
PlaySound=
PromptReplyOnOlderEmails=
RemoveSpamWords=
ReplyALL_BCC=
ReplyAllAny=
ReplyAllAutoRemove=
ReplyInternalCheck=
ReplyMultiple=
ShowStartupWizard=
SpamKeyWords=
UseOutlookSettings=
XRecipients=
'
'[Enable Fields]
Password=
'[/Enable Fields]
'
)";

TEST(SettingsExport, WritesEverySettingInItsPlace) {
    const TemporaryFolder folder;
    MemorySettingsStore store;
    store.write(L"LastCheckUpdateDate", L"no part of the file");
    EXPECT_TRUE(exportSettingsFile(store, pathOf(folder)));
    EXPECT_EQ(contentsOf(folder.file(fileName)), withLineEnds(layout));

    store.write(L"SettingsID", L"7");
    store.write(L"AttachKeyWords", L"\u00FC;\u20AC");
    store.write(L"IgnoreTextValue", L"one\r\ntwo");
    store.write(L"Password", L"v1:00");
    store.write(L"LockFields", L"One=Yes;Two=No");
    EXPECT_TRUE(exportSettingsFile(store, pathOf(folder)));
    std::wstring expected = text::fromUtf8(layout);
    for (const auto& [from, to] : {std::pair{L"ID=100", L"ID=7"},
                                   {L"AttachKeyWords=", L"AttachKeyWords=\u00FC;\u20AC"},
                                   {L"<VTSig>", L"<VTSig>one\ntwo"},
                                   {L"Password=", L"Password=v1:00\nOne=Yes\nTwo=No"}}) {
        expected = text::replaceAll(expected, from, to);
    }
    const std::wstring written = text::fromCodePage(contentsOf(folder.file(fileName)));
    EXPECT_EQ(written, text::replaceAll(expected, L"\n", L"\r\n"));
    EXPECT_EQ(filesIn(folder), 1U);
}

/// The keys of the layout above.
std::vector<std::wstring> exportedKeys() {
    std::vector<std::wstring> keys;
    const std::wstring lines = text::fromUtf8(layout);
    for (const std::wstring_view line : text::split(lines, L'\n')) {
        if (!line.starts_with(L'\'') && line.find(L'=') != std::wstring_view::npos) {
            keys.emplace_back(text::before(line, L'='));
        }
    }
    return keys;
}

TEST(SettingsExport, ReadsBackAsItWas) {
    const TemporaryFolder folder;
    EXPECT_EQ(exportedKeys().size(), 37U) << "35 settings, the identifier and the password";
    for (const wchar_t* value :
         {L"x", L" a ", L"a=b;c", L"=", L"'x", L"\u20AC\u00E4\u00AD\u0081", L"</VTSig>", L"<VTSig>",
          L"Password=x", L"'[Enable Fields]", L"\t", L"IgnoreTextValue"}) {
        MemorySettingsStore store;
        for (const std::wstring& key : exportedKeys()) {
            store.write(key, value);
        }
        store.write(L"LockFields", L"");
        ASSERT_TRUE(exportSettingsFile(store, pathOf(folder))) << text::toUtf8(value);
        MemorySettingsStore imported;
        settings::SettingsFileReader().read(folder.file(fileName), imported);
        EXPECT_EQ(imported.settings(), store.settings()) << text::toUtf8(value);
    }
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"IgnoreTextValue", L"one\r\n\r\n two\r\n"}, {L"IgnoreTextValue", L"\r\n"},
        {L"IgnoreTextValue", L"a</VTSig>b"},          {L"LockFields", L"One=Yes;Two=No"},
        {L"LockFields", L" One = Yes ;;Two;"},
    };
    for (const auto& [key, value] : cases) {
        MemorySettingsStore store;
        store.write(key, value);
        ASSERT_TRUE(exportSettingsFile(store, pathOf(folder))) << text::toUtf8(value);
        MemorySettingsStore imported;
        settings::SettingsFileReader().read(folder.file(fileName), imported);
        EXPECT_EQ(imported.read(key), value);
    }
}

TEST(SettingsExport, RefusesWhatWouldNotReadBack) {
    const TemporaryFolder folder;
    folder.write(fileName, "old");
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"DomainName", L"a\r\nb"},
        {L"DomainName", L"a\n"},
        {L"DomainName", L"\ra"},
        {L"DomainName", L"\u4E2D"},
        {L"DomainName", L"\u0101"},  // Windows would write "a".
        {L"DomainName", L"x\r\nPlaySound=True"},
        {L"AttachKeyWords", L"a;IgnoreTextValue=b"},
        {L"IgnoreTextValue", L"a\nb"},
        {L"IgnoreTextValue", L"a</VTSig>\r\nb"},
        {L"IgnoreTextValue", L"a\r\nIgnoreTextValue=b"},
        {L"SettingsID", L"1\r\n2"},
        {L"Password", L"a\r\nb"},
        {L"LockFields", L"One\r\nTwo"},
        {L"LockFields", L"One;Password=x"},
        {L"LockFields", L"One; ' ;Two"},
        {L"LockFields", L"One;'[/Enable Fields];Two"},
        {L"LockFields", L";One"},
    };
    for (const auto& [key, value] : cases) {
        MemorySettingsStore store;
        store.write(key, value);
        EXPECT_FALSE(exportSettingsFile(store, pathOf(folder))) << text::toUtf8(value);
        EXPECT_EQ(contentsOf(folder.file(fileName)), "old");
    }
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST(SettingsExport, NeedsEverySettingRead) {
    struct FailingStore : MemorySettingsStore {
        std::size_t left = 0;
        std::optional<std::wstring> read(const std::wstring& key) override {
            if (left-- == 0) {
                throw automation::Error(automation::errors::fileAccess, L"unreadable");
            }
            return MemorySettingsStore::read(key);
        }
    } store;
    const TemporaryFolder folder;
    const std::size_t reads = exportedKeys().size() + 1;
    for (std::size_t failing = 0; failing < reads; ++failing) {
        store.left = failing;
        EXPECT_FALSE(exportSettingsFile(store, pathOf(folder))) << failing;
    }
    EXPECT_EQ(filesIn(folder), 0U);
    store.left = reads;
    EXPECT_TRUE(exportSettingsFile(store, pathOf(folder)));
}

/// While it lives, files have no room for more than so many bytes.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

TEST(SettingsExport, ThatFailsLeavesTheOldFileAndNothingElse) {
    const TemporaryFolder folder;
    MemorySettingsStore store;
    folder.write("file", "x");
    for (const char* name : {"", "missing/", "file/"}) {
        EXPECT_FALSE(exportSettingsFile(store, folder.file(name + std::string(300, 'x')).wstring())) << name;
        if (*name != '\0') {
            EXPECT_FALSE(exportSettingsFile(store, folder.file(name).wstring())) << name;
        }
    }
    const auto file = folder.write(fileName, "old");
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_FALSE(exportSettingsFile(store, pathOf(folder)));
    fs::permissions(file, fs::perms::owner_all);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    {
        const FullDisk full(500);
        EXPECT_FALSE(exportSettingsFile(store, pathOf(folder)));
    }
    std::signal(SIGXFSZ, ignored);
    EXPECT_EQ(contentsOf(file), "old");
    EXPECT_EQ(filesIn(folder), 2U);

    fs::remove(file);
    fs::create_directory(file);
    EXPECT_FALSE(exportSettingsFile(store, pathOf(folder)));
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(filesIn(folder), 2U);
}

TEST(SettingsExportDeathTest, ThatIsKilledLeavesTheOldFile) {
    const TemporaryFolder folder;
    folder.write(fileName, "old");
    MemorySettingsStore store;
    EXPECT_EXIT(
        {
            const FullDisk full(
                500);  // Which ends a process that does not ignore it, in the middle of the write.
            exportSettingsFile(store, pathOf(folder));
        },
        testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_EQ(contentsOf(folder.file(fileName)), "old");
}

TEST(SettingsFilePath, IsThatOfAFile) {
    const TemporaryFolder folder;
    const std::wstring file = folder.write("a b.ini", "").wstring();
    const struct {
        std::wstring stored;
        std::wstring path;
    } cases[] = {
        {L"", L""},         {L"  ", L""},          {file, file}, {L" " + file + L"  ", file},
        {file + L"x", L""}, {pathOf(folder), L""},
    };
    for (const auto& [stored, path] : cases) {
        TestWorld world;
        EXPECT_EQ(modLoadSettings::settingsFilePath(world.globals), L"");
        world.settings.write(L"VT_Settings_FilePath", stored);
        EXPECT_EQ(modLoadSettings::settingsFilePath(world.globals), path) << text::toUtf8(stored);
    }
}

TEST(SettingsExport, AsksWhereAndSaysWhetherItWorked) {
    const TemporaryFolder folder;
    const std::wstring path = pathOf(folder);
    const std::wstring plain = path.substr(0, path.size() - 1);
    const struct {
        std::wstring chosen;
        std::wstring file;
        bool saved;
    } cases[] = {
        {plain, plain + L"\\Veltro_Settings.ini", true},
        {plain + L"\\", plain + L"\\Veltro_Settings.ini", true},
        {path + L"none", path + L"none\\Veltro_Settings.ini", false},
    };
    for (const auto& [chosen, file, saved] : cases) {
        TestWorld world({L"folder=" + chosen, L"Export=OK"});
        world.globals.product.title = L"Veltro Pro";
        modLoadSettings::exportToChosenFolder(world.globals);
        ASSERT_EQ(world.log.messages.size(), 1U);
        const platform::MessagePrompt& told = world.log.messages[0];
        EXPECT_EQ(told.title, saved ? L"Export Veltro Pro settings" : L"Export Veltro Pro settings - Error");
        EXPECT_EQ(told.text, (saved ? L"Veltro settings have been saved in a .ini file at\r\n"
                                    : L"Veltro settings could not be saved at\r\n") +
                                 file);
        EXPECT_EQ(told.style.buttons, platform::Buttons::Ok);
        EXPECT_EQ(told.style.icon, saved ? platform::Icon::Information : platform::Icon::Critical);
        EXPECT_EQ(world.log.folders,
                  std::vector<std::wstring>{L"Where do you want to save the Settings file?"});
        EXPECT_EQ(fs::remove(folder.file(fileName)), saved);
    }
}

TEST(SettingsExport, IsNotMadeWhenTheUserCancels) {
    TestWorld world({L"folder="});
    modLoadSettings::exportToChosenFolder(world.globals);
    EXPECT_TRUE(world.log.messages.empty());
    EXPECT_FALSE(world.desktop.unanswered());
}

TEST(AlertingDesktop, CountsTheFolderBrowserAndSoundsNothing) {
    TestWorld world({L"folder=/x"});
    modRegKeys::PlaySound.write(world.globals, 1);
    settings::AlertingDesktop desktop(world.desktop, world.globals);
    EXPECT_EQ(desktop.chooseFolder(L"Where?"), L"/x");
    EXPECT_EQ(world.globals.promptsShown, 1U);
    EXPECT_EQ(world.log.beeps, 0);
}

}  // namespace
