#include "program/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace program {

namespace {

[[noreturn]] void fail() {
    throw std::runtime_error(reasonOf(std::error_code(errno, std::generic_category())));
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }

  private:
    int number_;
};

/// False when the lock's last owner has removed the file since it was opened: the next one is another file.
bool isStillThere(int descriptor, const std::filesystem::path& file) {
    struct stat opened {};
    struct stat named {};
    return fstat(descriptor, &opened) == 0 && stat(file.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool writeAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        contents.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

}  // namespace

bool FileLock::takeLockFile(const std::filesystem::path& lockFile, bool wait) {
    for (;;) {
        Descriptor lock(open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
        if (lock.get() < 0) {
            fail();
        }
        if (flock(lock.get(), LOCK_EX | (wait ? 0 : LOCK_NB)) != 0) {
            if (errno == EINTR) {
                continue;
            }
            if (!wait && errno == EWOULDBLOCK) {
                return false;
            }
            fail();
        }
        if (isStillThere(lock.get(), lockFile)) {
            file_ = lockFile;
            handle_ = lock.release();
            return true;
        }
    }
}

FileLock::~FileLock() {
    if (handle_ >= 0) {
        unlink(file_.c_str());  // While it is held, so that nobody else's is removed.
        close(static_cast<int>(handle_));
    }
}

std::filesystem::path writeTemporary(const std::filesystem::path& file, std::string_view contents) {
    std::string name = file.string() + ".XXXXXX";
    const Descriptor temporary(mkostemp(name.data(), O_CLOEXEC));  // For the user alone.
    if (temporary.get() < 0) {
        fail();
    }
    if (!writeAll(temporary.get(), contents)) {
        const int reason = errno;
        unlink(name.c_str());
        errno = reason;
        fail();
    }
    return name;
}

std::error_code moveOver(const std::filesystem::path& file, const std::filesystem::path& other) {
    std::error_code error;
    std::filesystem::rename(file, other, error);
    return error;
}

}  // namespace program
