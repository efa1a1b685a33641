#pragma once

#include <cstddef>

/// While it lives, memory in pieces of this size or larger cannot be had: their allocation throws.
class MemoryLimit {
  public:
    explicit MemoryLimit(std::size_t bytes);
    ~MemoryLimit();
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
};
