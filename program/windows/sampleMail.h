#pragma once

#include <string>
#include <vector>

#include "host/Message.h"

namespace program::windows {

/// Mail to try the answering of mail on, as the Inbox of a person who has just started; the first is the
/// oldest.
std::vector<host::Message> sampleMail(const std::wstring& ownAddress, automation::Date now);

}  // namespace program::windows
