#pragma once

#include <cstdint>
#include <span>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// What happens when an item is answered, the same in main windows and in item windows. No error gets out.
namespace replyEvents {

void reply(basGlobals::Globals& globals, const outlook::Item& answered, const outlook::Item& response,
           bool& cancel);
void replyAll(basGlobals::Globals& globals, const outlook::Item& answered, const outlook::Item& response,
              bool& cancel);
void forward(basGlobals::Globals& globals, const outlook::Item& forwarded, const outlook::Item& response,
             bool& cancel);

/// True for Reply, Reply to All and Forward.
bool isAnswer(std::int32_t event);

/// Runs the event's handler; events of other kinds are left alone.
void handle(basGlobals::Globals& globals, const outlook::Item& item, std::int32_t event,
            std::span<automation::Value> arguments);

}  // namespace replyEvents
