#pragma once

#include <string_view>

#include "settings/Sha256.h"

namespace settings {

/// HMAC-SHA-256 (RFC 2104).
Sha256::Digest hmacSha256(std::string_view key, std::string_view message);

/// The first 32 bytes of PBKDF2 (RFC 8018) with HMAC-SHA-256; `rounds` is at least 1.
Sha256::Digest pbkdf2Sha256(std::string_view password, std::string_view salt, int rounds);

}  // namespace settings
