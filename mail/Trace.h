#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <source_location>
#include <string>
#include <vector>

#include "platform/SystemInfo.h"

namespace mail {

/// Why something was left undone without a word to the user.
enum class Skipped { Failure, ItemUnreadable, LibraryMissing, OwnAnswer, OtherWindowActs, CancelledBefore };

/// What was left undone, and where. There is no room for a text: it might be one of a mail.
struct TraceEntry {
    Skipped why = Skipped::Failure;
    /// Of a failure: its number.
    std::int32_t number = 0;
    std::source_location where;

    /// "<procedure> (<file>:<line>): error <number>", or the reason in words. Without folders.
    std::string text() const;
};

/// Remembers the last failures and early ends that nobody was told of, so that "the check never ran" can be
/// explained; each also goes to a debugger.
///
/// The trace made last on a thread is that thread's until it is destroyed. It is the one thing that is not
/// passed by reference: what skips an error is often a destructor, or so small that nothing else is passed.
class Trace {
  public:
    static constexpr std::size_t capacity = 256;

    explicit Trace(platform::SystemInfo& system);
    ~Trace();
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    void add(const TraceEntry& entry) noexcept;
    /// The last ones, oldest first; no more than the capacity.
    std::vector<TraceEntry> entries() const;

  private:
    platform::SystemInfo& system_;
    Trace* before_;
    std::array<TraceEntry, capacity> entries_;
    std::size_t added_ = 0;
};

/// Tells the thread's trace, if there is one, why the caller leaves something undone.
void note(Skipped why, std::source_location where = std::source_location::current()) noexcept;
/// Tells it of the exception that is being handled.
void noteError(std::source_location where) noexcept;

}  // namespace mail
