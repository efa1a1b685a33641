#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/Outlook.h"
#include "platform/outlook.h"

/// Subscribes to objects of a simulated Outlook and writes down what they raise.
class EventLog {
  public:
    using Handler = std::function<void(std::span<automation::Value>)>;

    /// Names events as "source Event"; a dispatch id that is not listed is written as a number.
    void watch(const automation::Object& source, automation::EventInterface events, std::wstring name) {
        const auto kind = events;
        tokens_.push_back(automation::subscribe(
            source, events, [this, kind, name](std::int32_t event, std::span<automation::Value> arguments) {
                const std::wstring line = name + L" " + eventName(kind, event);
                lines_.push_back(line);
                if (const auto handler = handlers_.find(line); handler != handlers_.end()) {
                    handler->second(arguments);
                }
            }));
    }
    /// What happens when the event of this line arrives, after it was written down.
    void on(const std::wstring& line, Handler handler) { handlers_[line] = std::move(handler); }
    /// Sets the cancel flag, which is the last argument.
    void cancelOn(const std::wstring& line) {
        on(line, [](std::span<automation::Value> arguments) { arguments.back().variable() = true; });
    }

    const std::vector<std::wstring>& lines() const { return lines_; }
    void clear() { lines_.clear(); }
    void endAll() { tokens_.clear(); }

  private:
    static std::wstring eventName(automation::EventInterface events, std::int32_t event) {
        using Names = std::map<std::int32_t, std::wstring>;
        static const Names item = {{0xF001, L"Read"},          {0xF002, L"Write"},
                                   {0xF003, L"Open"},          {0xF004, L"Close"},
                                   {0xF005, L"Send"},          {0xF009, L"PropertyChange"},
                                   {0xF00B, L"AttachmentAdd"}, {0xF466, L"Reply"},
                                   {0xF467, L"ReplyAll"},      {0xF468, L"Forward"}};
        static const Names application = {{0xF002, L"ItemSend"}, {0xF007, L"Quit"}};
        static const Names window = {{0xF001, L"Activate"},           {0xF002, L"FolderSwitch"},
                                     {0xF003, L"BeforeFolderSwitch"}, {0xF006, L"Deactivate"},
                                     {0xF007, L"SelectionChange"},    {0xF008, L"Close"}};
        static const Names collection = {{0xF001, L"New"}};
        const bool isWindow = events == outlook::events::explorer || events == outlook::events::inspector;
        const Names& names = events == outlook::events::item          ? item
                             : events == outlook::events::application ? application
                             : isWindow                               ? window
                                                                      : collection;
        const auto found = names.find(event);
        return found == names.end() ? std::to_wstring(event) : found->second;
    }

    std::vector<std::wstring> lines_;
    std::map<std::wstring, Handler> handlers_;
    std::vector<automation::Subscription> tokens_;
};

inline host::Message mailTo(std::wstring address, std::wstring subject = L"Budget") {
    return {.to = {{.name = L"Bob", .address = std::move(address)}},
            .subject = std::move(subject),
            .body = L"Hello"};
}

/// The number of the error that `action` raises; 0 when it raises none.
template <class Action>
std::int32_t errorOf(Action action) {
    try {
        action();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}
