#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/Profile.h"

namespace host {

/// Which members Outlook guards from programs that it does not trust.
enum class Guarded { No, Yes, Since2003 };

/// Outlook's guard of what a virus would want: the addresses and texts of mails, and sending. Up to 2002 it
/// asks the user at every such call of any program; from 2003 on the add-ins are trusted, but only with what
/// they reach from the application that was handed to them. The user answers No.
class Guard {
  public:
    Guard(const Profile& profile, int majorVersion)
        : mode_(profile.guard), refusal_(profile.guardRefusal), majorVersion_(majorVersion) {}

    /// Throws when the call is refused, and notes it.
    void check(std::wstring_view className, std::wstring_view member, Guarded guarded);
    /// The calls that were refused, as "Class.Member", oldest first.
    const std::vector<std::wstring>& prompts() const noexcept { return prompts_; }

    /// For as long as it lives the calls come from a program that is not trusted.
    class Stranger {
      public:
        explicit Stranger(Guard& guard) : guard_(guard) { ++guard_.strangers_; }
        ~Stranger() { --guard_.strangers_; }
        Stranger(const Stranger&) = delete;
        Stranger& operator=(const Stranger&) = delete;

      private:
        Guard& guard_;
    };

  private:
    bool trusted() const;

    GuardMode mode_;
    std::int32_t refusal_;
    int majorVersion_;
    int strangers_ = 0;
    std::vector<std::wstring> prompts_;
};

}  // namespace host
