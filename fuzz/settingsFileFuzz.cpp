#include <filesystem>
#include <sstream>

#include "fuzz/fuzzInput.h"
#include "platform/MemorySettingsStore.h"
#include "settings/modLoadSettings.h"
#include "settings/settingsFile.h"

namespace {

/// A folder of this run's own.
class Folder {
  public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "veltro-fuzz-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace

/// Any bytes are read, and read the same a second time; what is exported of them reads as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    platform::MemorySettingsStore stored;
    for (const bool again : {false, true}) {
        platform::MemorySettingsStore read;
        std::istringstream file(bytes);
        fuzz::require(settings::SettingsFileReader().read(file, read));
        fuzz::require(!again || read.settings() == stored.settings());
        stored = read;
    }
    if (!modLoadSettings::exportSettingsFile(stored, folder.path().wstring())) {
        return 0;
    }
    platform::MemorySettingsStore imported;
    fuzz::require(
        settings::SettingsFileReader().read(folder.path() / settings::settingsFile::name, imported));
    for (const auto& [upperKey, setting] : imported.settings()) {
        const std::wstring before = stored.read(setting.key).value_or(L"");
        const bool firstId = setting.key == L"SettingsID" && before.empty() && setting.value == L"100";
        fuzz::require(setting.value == before || firstId);
    }
    return 0;
}
