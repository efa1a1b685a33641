#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

#include "mail/Globals.h"

namespace mail {

/// A major version of Outlook.
class OutlookVersion {
  public:
    explicit constexpr OutlookVersion(std::int32_t major) : major_(major) {}
    /// Of the text of Outlook's Version, e.g. "14.0.0.4760": what stands before the first ".". A text that is
    /// no number is older than every version.
    explicit OutlookVersion(std::wstring_view version);

    auto operator<=>(const OutlookVersion&) const = default;

  private:
    std::int32_t major_;
};

inline constexpr OutlookVersion outlook2000{9};
inline constexpr OutlookVersion outlook2002{10};
inline constexpr OutlookVersion outlook2003{11};
/// From here on Word, as the editor of mails, has no window of its own.
inline constexpr OutlookVersion outlook2007{12};
/// From here on a main window has a ribbon in place of its menus.
inline constexpr OutlookVersion outlook2010{14};

/// From here on responses are written in the reading pane of a main window.
inline constexpr OutlookVersion outlook2013{15};

/// The version of the Outlook that runs. Throws automation::Error.
OutlookVersion outlookVersion(const Globals& globals);

}  // namespace mail
