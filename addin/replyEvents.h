#pragma once

#include <cstdint>
#include <span>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// What happens when an item is answered, the same in main windows and in item windows.
namespace addin::replyEvents {

/// True for Reply, Reply to All and Forward.
bool isAnswer(std::int32_t event);

/// Runs the checks of the event, unless another add-in has cancelled it already; events of other kinds are
/// left alone. No error gets out.
void handle(mail::Globals& globals, const outlook::Item& item, std::int32_t event,
            std::span<automation::Value> arguments);

}  // namespace addin::replyEvents
