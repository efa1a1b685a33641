#include <gtest/gtest.h>

#include <filesystem>

#include "platform/native/FakeRegistry.h"
#include "platform/native/FileResources.h"
#include "platform/text.h"
#include "tests/TemporaryFolder.h"

namespace {

namespace native = platform::native;

TEST(FakeRegistry, AnswersWithWindowsStatusCodes) {
    using platform::RootKey;
    native::FakeRegistry registry;
    registry.setText(RootKey::LocalMachine, L"SOFTWARE\\Corvane\\Veltro", L"PreSetupID", L"1");
    registry.setNumber(RootKey::LocalMachine, L"software\\corvane\\veltro", L"Count", 0x01020304);
    registry.failOpen(RootKey::LocalMachine, L"SOFTWARE\\Secret");

    std::unique_ptr<platform::RegistryKey> key;
    EXPECT_EQ(registry.open(RootKey::CurrentUser, L"SOFTWARE\\Corvane\\Veltro", 0, key),
              platform::registry::fileNotFound);
    EXPECT_EQ(registry.open(RootKey::LocalMachine, L"SOFTWARE\\Secret", 0, key),
              native::FakeRegistry::accessDenied);
    EXPECT_EQ(registry.open(RootKey::LocalMachine, L"SOFTWARE\\Corvane", 0, key),
              platform::registry::success);
    ASSERT_EQ(registry.open(RootKey::LocalMachine, L"Software\\CORVANE\\Veltro\\", 0, key),
              platform::registry::success);

    platform::RegistryData data;
    EXPECT_EQ(key->query(L"presetupid", data), platform::registry::success);
    EXPECT_EQ(data.type, platform::registry::typeString);
    EXPECT_EQ(data.bytes, (std::vector<std::uint8_t>{'1', 0, 0, 0}));
    EXPECT_EQ(key->query(L"Other", data), platform::registry::fileNotFound);
    std::wstring name;
    EXPECT_EQ(key->enumerate(1, name, data), platform::registry::success);
    EXPECT_EQ(name, L"Count");
    EXPECT_EQ(data.bytes, (std::vector<std::uint8_t>{4, 3, 2, 1}));
    EXPECT_EQ(key->enumerate(2, name, data), platform::registry::noMoreItems);
    EXPECT_EQ(key->close(), platform::registry::success);
    EXPECT_EQ(key->close(), native::FakeRegistry::invalidHandle);
    EXPECT_EQ(key->query(L"PreSetupID", data), native::FakeRegistry::invalidHandle);
}

TEST(FileResources, ReadsALibraryAndRefusesWhatIsNone) {
    const TemporaryFolder folder;
    const auto file =
        folder.write("Resource.dll", "# texts\r\n515=Vel=tro\r\n\n521=T\xC3\xB6st\nbitmap 604\n");
    std::uint32_t error = 0;
    native::FileResources resources;
    // The add-in joins its folder and the name with a backslash.
    const auto windowsPath = text::fromUtf8(file.parent_path().string()) + L"\\Resource.dll";
    const auto library = resources.load(windowsPath, error);
    ASSERT_TRUE(library);
    EXPECT_EQ(library->string(515, 100), L"Vel=tro");
    EXPECT_EQ(library->string(521, 2), L"T\u00F6");
    EXPECT_EQ(library->string(511, 100), L"");

    EXPECT_EQ(library->pictureHandle(platform::PictureKind::Icon, 604), 0U);
    const auto handle = library->pictureHandle(platform::PictureKind::Bitmap, 604);
    std::shared_ptr<platform::Picture> picture;
    EXPECT_NE(resources.wrap(platform::PictureKind::Icon, handle, picture), 0);
    EXPECT_EQ(resources.wrap(platform::PictureKind::Bitmap, handle, picture), 0);
    EXPECT_EQ(resources.livePictures(), 1U);
    picture.reset();
    EXPECT_EQ(resources.livePictures(), 0U);

    const auto expectRefused = [&](const std::filesystem::path& path, std::uint32_t number) {
        EXPECT_FALSE(resources.load(text::fromUtf8(path.string()), error)) << path;
        EXPECT_EQ(error, number) << path;
    };
    expectRefused(folder.file("missing.dll"), native::FileResources::moduleNotFound);
    expectRefused(folder.file("."), native::FileResources::moduleNotFound);
    for (const char* contents :
         {"", "# only a comment\n", "MZ\x90", "515=Veltro\ngarbage\n", "x=y\n", "=y\n"}) {
        expectRefused(folder.write("bad.dll", contents), native::FileResources::badFormat);
    }
}

}  // namespace
