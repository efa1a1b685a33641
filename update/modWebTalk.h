#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "mail/Globals.h"
#include "platform/Http.h"

namespace update::modWebTalk {

/// Stands for the text of a page that could not be had.
inline constexpr wchar_t noNetConnection[] = L"NoNetConnection";

/// Fetches a page. `done` gets its text, or noNetConnection: later, as Http::get gives its answers, or inside
/// of this call, which then gives no request, when the page cannot even be asked for. Throws only what `done`
/// does.
std::unique_ptr<platform::HttpRequest> GetPage(const mail::Globals& globals,
                                               const std::optional<platform::WebAddress>& address,
                                               std::function<void(const std::wstring&)> done);

}  // namespace update::modWebTalk
