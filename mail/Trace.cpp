#include "mail/Trace.h"

#include <algorithm>
#include <string_view>

#include "platform/automation.h"

namespace mail {

namespace {

/// The add-in runs on one thread of a process, Outlook's or Word's; tests may have more.
thread_local Trace* current = nullptr;

void tell(const TraceEntry& entry) noexcept {
    if (current) {
        current->add(entry);
    }
}

const char* wordsFor(Skipped why) {
    switch (why) {
        case Skipped::Failure:
            break;
        case Skipped::ItemUnreadable:
            return "the item cannot be read";
        case Skipped::LibraryMissing:
            return "not to be read without the Redemption library";
        case Skipped::OwnAnswer:
            return "the add-in's own answer";
        case Skipped::OtherWindowActs:
            return "left to another window";
        case Skipped::CancelledBefore:
            return "cancelled before";
    }
    return "error";
}

/// The qualified name in what the compiler tells of a function, which differs between compilers.
std::string procedureOf(std::string signature) {
    for (const std::string_view unnamed : {"{anonymous}::", "(anonymous namespace)::"}) {
        for (auto at = signature.find(unnamed); at != std::string::npos; at = signature.find(unnamed, at)) {
            signature.erase(at, unnamed.size());
        }
    }
    signature.erase(std::min(signature.find('('), signature.size()));
    return signature.substr(signature.rfind(' ') + 1);
}

std::string_view fileOf(std::string_view path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

std::string TraceEntry::text() const {
    std::string text = procedureOf(where.function_name());
    text.append(" (").append(fileOf(where.file_name())).append(":");
    text.append(std::to_string(where.line())).append("): ").append(wordsFor(why));
    if (why == Skipped::Failure) {
        text.append(" ").append(std::to_string(number));
    }
    return text;
}

Trace::Trace(platform::SystemInfo& system) : system_(system), before_(current) {
    current = this;
}

Trace::~Trace() {
    // Traces of one thread may end in any order.
    for (Trace** link = &current; *link; link = &(*link)->before_) {
        if (*link == this) {
            *link = before_;
            break;
        }
    }
}

void Trace::add(const TraceEntry& entry) noexcept {
    entries_[added_++ % capacity] = entry;
    try {
        system_.debug(entry.text());
    } catch (...) {  // No memory for the text: the entry stands all the same.
    }
}

std::vector<TraceEntry> Trace::entries() const {
    std::vector<TraceEntry> last;
    for (std::size_t index = added_ < capacity ? 0 : added_ - capacity; index < added_; ++index) {
        last.push_back(entries_[index % capacity]);
    }
    return last;
}

void note(Skipped why, std::source_location where) noexcept {
    tell({why, 0, where});
}

void noteError(std::source_location where) noexcept {
    std::int32_t number = automation::errors::outOfMemory;
    try {
        number = automation::currentError().number();
    } catch (...) {  // No memory to copy its text.
    }
    tell({Skipped::Failure, number, where});
}

}  // namespace mail
