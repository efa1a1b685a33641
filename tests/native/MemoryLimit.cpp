#include "tests/native/MemoryLimit.h"

#include <dlfcn.h>

#include <limits>
#include <new>

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
std::size_t limit = unlimited;

}  // namespace

MemoryLimit::MemoryLimit(std::size_t bytes) {
    limit = bytes;
}

MemoryLimit::~MemoryLimit() {
    limit = unlimited;
}

/// Stands in front of the one that the program would have without it, a sanitizer's say.
void* operator new(std::size_t size) {
    if (size >= limit) {
        throw std::bad_alloc();
    }
    using New = void* (*)(std::size_t);
    static const auto behind = reinterpret_cast<New>(dlsym(RTLD_NEXT, "_Znwm"));
    return behind(size);
}
