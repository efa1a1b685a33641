#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/text.h"

/// Helpers of the fuzzers. A property that does not hold ends the run, with the input kept by libFuzzer.
namespace fuzz {

inline std::wstring textOf(const std::uint8_t* data, std::size_t size) {
    return text::fromUtf8({reinterpret_cast<const char*>(data), size});
}

inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace fuzz
