#include "program/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "platform/replaceFile.h"

namespace program {

namespace {

[[noreturn]] void fail() {
    throw std::runtime_error(platform::reasonOf(std::error_code(errno, std::generic_category())));
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

}  // namespace program
