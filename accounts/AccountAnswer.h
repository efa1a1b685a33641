#pragma once

#include <string>

namespace accounts {

/// What the user has decided about the account of an outgoing mail.
struct AccountAnswer {
    enum class Decision {
        /// The mail leaves as it is.
        Keep,
        Change,
        /// The mail stays open.
        GoBack
    };

    Decision decision = Decision::Keep;
    /// The one to change to.
    std::wstring account{};
};

}  // namespace accounts
