#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

/// A folder that is removed with what is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("veltro-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
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
