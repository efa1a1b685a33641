#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// The files that a command line names.
namespace program {

/// A file name as a command line gives it natively, which may hold any bytes: a byte that is no UTF-8 becomes
/// a lone surrogate, from which pathOf() makes it again.
std::wstring fileNameFromBytes(std::string_view bytes);

std::filesystem::path pathOf(const std::wstring& fileName);

/// All bytes of a file, a pipe or a device. Throws std::runtime_error with the reason.
std::string readFile(const std::filesystem::path& file);
/// The same from a stream that is open.
std::string readAll(std::istream& stream);

/// The contents of a file that keeps something between runs; empty when there is none yet. Throws
/// std::runtime_error with the reason.
std::string readKeptFile(const std::filesystem::path& file);

/// Holds off every other FileLock on the same file, in this process and others, as long as it lives. It
/// stands beside the file under the name FILE.lock, and what a run that was killed has left of it holds
/// nobody off.
class FileLock {
  public:
    /// Waits for its turn. Throws std::runtime_error when the file's folder cannot be written or the file is
    /// none that could be replaced: read-only, a folder, a pipe.
    explicit FileLock(const std::filesystem::path& file);
    /// Nothing when another one holds the file.
    static std::optional<FileLock> tryLock(const std::filesystem::path& file);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&&) = delete;
    ~FileLock();

  private:
    FileLock() = default;
    /// False when another one holds the file and it is not to be waited for.
    bool take(const std::filesystem::path& file, bool wait);
    /// Each world implements it.
    bool takeLockFile(const std::filesystem::path& lockFile, bool wait);

    std::filesystem::path file_;
    /// A descriptor or a handle; -1 is none of either.
    std::intptr_t handle_ = -1;
};

}  // namespace program
