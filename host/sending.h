#pragma once

#include <memory>

#include "host/Outlook.h"

namespace host {

class Item;

/// One send, from the window of the item or by a program, with its events in Outlook's order.
SendOutcome send(Core& core, const std::shared_ptr<Item>& item);

/// Makes the response to an item and raises the item's Reply, ReplyAll or Forward with it. The response is
/// not shown; nothing when a handler cancels.
std::shared_ptr<Item> raiseAnswer(Item& item, ReplyKind kind);

}  // namespace host
