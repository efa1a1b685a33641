#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

/// A folder that is removed with what is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "veltro-test-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    std::filesystem::path file(const std::string& name) const { return path_ / name; }
    std::filesystem::path write(const std::string& name, const std::string& contents) const {
        std::ofstream(file(name), std::ios::binary) << contents;
        return file(name);
    }

  private:
    std::filesystem::path path_;
};
