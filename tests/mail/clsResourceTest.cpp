#include "mail/clsResource.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>

#include "platform/automation.h"
#include "platform/native/FileResources.h"
#include "platform/text.h"
#include "tests/TemporaryFolder.h"

namespace {

using mail::clsResource;
using Bytes = std::vector<std::uint8_t>;
using Picture = std::shared_ptr<platform::Picture>;
using LoadPicture = std::function<Picture(clsResource&, std::uint32_t)>;

/// A library and the add-in's own resources, as files.
struct Resources {
    std::wstring write(const char* name, const char* contents) const {
        return text::fromUtf8(folder.write(name, contents).string());
    }

    TemporaryFolder folder;
    std::wstring library =
        write("Resource.dll",
              "0=Zero\n1=One\n515=Theirs\nbitmap 1\nicon 2\ncursor 3\ndata TEXT 7=abc\ndata TEXT 1=d\n");
    std::wstring own = write("own", "0=Zero\n515=Ours\nbitmap 11\nicon 12\ncursor 13\ndata TEXT 7=xyz\n");
    platform::native::FileResources module{own};
    clsResource resource{module};
};

TEST(Resource, GivesTextsAndDataOfTheLibraryAndOfTheAddIn) {
    Resources given;
    given.resource.setLibraryFilePath(given.library);
    EXPECT_EQ(given.resource.LibraryFilePath(), given.library);
    EXPECT_NE(given.resource.hLibrary(), 0U);
    EXPECT_EQ(given.resource.DLL_LoadString(515), L"Theirs");
    EXPECT_EQ(given.resource.DLL_LoadString(515, 1), L"T");
    EXPECT_EQ(given.resource.DLL_LoadString(0), L"");
    EXPECT_EQ(given.resource.DLL_LoadString(1), L"One");
    EXPECT_EQ(given.resource.DLL_LoadData(1, L"TEXT"), Bytes{'d'});
    EXPECT_EQ(given.resource.stringOr(515, L"Veltro"), L"Theirs");
    EXPECT_EQ(given.resource.stringOr(516, L"Veltro"), L"Veltro");
    EXPECT_EQ(given.resource.DLL_LoadData(7, L"TEXT"), (Bytes{'a', 'b', 'c'}));
    EXPECT_EQ(given.resource.RES_LoadString(515), L"Ours");
    EXPECT_EQ(given.resource.RES_LoadString(515, 2), L"Ou");
    EXPECT_EQ(given.resource.RES_LoadData(7, L"TEXT"), (Bytes{'x', 'y', 'z'}));
}

TEST(Resource, GivesNothingOfALibraryThatIsMissingOrClosed) {
    Resources given;
    const auto expectNothing = [&] {
        EXPECT_EQ(given.resource.hLibrary(), 0U);
        EXPECT_EQ(given.resource.DLL_LoadString(515), L"");
        EXPECT_EQ(given.resource.stringOr(515, L"Veltro"), L"Veltro");
        EXPECT_EQ(given.resource.DLL_LoadData(7, L"TEXT"), Bytes());
        EXPECT_FALSE(given.resource.DLL_LoadBitmap(1));
        EXPECT_EQ(given.resource.pictureFailure(), L"");
        EXPECT_EQ(given.resource.RES_LoadString(515), L"Ours");
    };
    expectNothing();
    const std::wstring missing = text::fromUtf8(given.folder.file("missing.dll").string());
    given.resource.setLibraryFilePath(missing);
    EXPECT_EQ(given.resource.LibraryFilePath(), missing);
    expectNothing();
    given.resource.setLibraryFilePath(given.library);
    given.resource.CloseLibrary();
    expectNothing();
}

TEST(Resource, SaysWhyALibraryCannotBeLoaded) {
    Resources given;
    given.resource.setLibraryFilePath(given.library);
    const std::wstring broken = given.write("broken.dll", "no library");
    try {
        given.resource.setLibraryFilePath(broken);
        FAIL() << "loaded";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), automation::errors::failed);
        EXPECT_EQ(error.description(),
                  L"The LoadLibrary API failed with the error number 193 while trying to load the file '" +
                      broken + L"'");
        EXPECT_EQ(error.source(), L"cResource.LibraryFilePath_Let (");
    }
    EXPECT_EQ(given.resource.stringOr(515, L"Veltro"), L"Veltro");
}

/// Each loader, the id of its picture, and of one of another kind.
const struct {
    LoadPicture load;
    std::uint32_t id;
    std::uint32_t other;
} pictures[] = {
    {&clsResource::DLL_LoadBitmap, 1, 2},
    {[](clsResource& resource, std::uint32_t id) { return resource.DLL_LoadIcon(id); }, 2, 3},
    {&clsResource::DLL_LoadCursor, 3, 1},
    {&clsResource::RES_LoadBitmap, 11, 12},
    {&clsResource::RES_LoadIcon, 12, 13},
    {&clsResource::RES_LoadCursor, 13, 11},
};

TEST(Resource, GivesPicturesThatOwnTheirHandles) {
    Resources given;
    given.resource.setLibraryFilePath(given.library);
    for (const auto& [load, id, other] : pictures) {
        EXPECT_FALSE(load(given.resource, other));
        EXPECT_EQ(given.resource.pictureFailure(), L"Invalid bitmap handle");
        {
            const Picture picture = load(given.resource, id);
            EXPECT_TRUE(picture) << id;
            EXPECT_EQ(given.module.livePictures(), 1U);
        }
        EXPECT_EQ(given.resource.pictureFailure(), L"");
        EXPECT_EQ(given.module.livePictures(), 0U);
    }
}

TEST(Resource, SaysWhyAPictureCannotBeMadeAndReleasesItsHandle) {
    const struct {
        std::uint32_t result;
        const wchar_t* words;
    } cases[] = {
        {0x80004002, L"The object does not support the interface specified in riid."},
        {0x80004003, L"The address in pPictDesc or ppvObj is not valid. For example, it may be NULL."},
        {0x80070057, L"One or more arguments are invalid."},
        {0x8007000E, L"Ran out of memory."},
        {0x8000FFFF, L"Catastrophic Failure."},
        {0x80004005, L"Unknown Error."},
    };
    Resources given;
    for (const auto& [result, words] : cases) {
        given.module.failWrapWith(static_cast<std::int32_t>(result));
        EXPECT_FALSE(given.resource.RES_LoadIcon(12));
        EXPECT_EQ(given.resource.pictureFailure(), words);
        EXPECT_EQ(given.module.livePictures(), 0U);
    }
}

TEST(Resource, SavesDataInPlaceOfWhatAFileHeld) {
    const TemporaryFolder folder;
    const auto file = folder.write("picture", "something longer");
    const std::wstring path = text::fromUtf8(file.string());
    const auto saved = [&] {
        std::ifstream stream(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    EXPECT_TRUE(clsResource::SaveData_Array({'a', 0, 'b'}, path));
    EXPECT_EQ(saved(), std::string("a\0b", 3));
    EXPECT_TRUE(clsResource::SaveData_Pointer("abcd", 2, path));
    EXPECT_EQ(saved(), "ab");
    EXPECT_FALSE(clsResource::SaveData_Array({'a'}, path + L"/below"));
}

}  // namespace
