#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/text.h"

/// An automation object whose members are written in the test, and that raises events of any real interface.
class TestTarget : public automation::Target {
  public:
    using Member = std::function<automation::Value(automation::Access, std::span<const automation::Value>)>;

    static constexpr automation::EventInterface events{0x0006304F};
    static constexpr automation::EventInterface noEvents{0x12345678};

    void add(const std::wstring& name, Member member) { members_.push_back({name, std::move(member)}); }
    std::size_t listeners() const { return sinks_->size(); }
    void raise(std::int32_t event, std::span<automation::Value> arguments) {
        const auto sinks = *sinks_;
        for (const auto& [cookie, sink] : sinks) {
            sink(event, arguments);
        }
    }

    std::int32_t memberId(std::wstring_view name) override {
        for (std::size_t index = 0; index < members_.size(); ++index) {
            if (text::equalsIgnoringCase(members_[index].first, name)) {
                return static_cast<std::int32_t>(index) + 100;
            }
        }
        throw automation::Error(automation::errors::memberNotFound, L"no such member");
    }
    automation::Value invoke(std::int32_t member, automation::Access access,
                             std::span<const automation::Value> arguments) override {
        return members_.at(static_cast<std::size_t>(member) - 100).second(access, arguments);
    }
    automation::Subscription subscribe(automation::EventInterface wanted,
                                       automation::EventSink sink) override {
        if (wanted == noEvents) {
            throw automation::Error(459, L"no such events");
        }
        const int cookie = ++lastCookie_;
        sinks_->emplace(cookie, std::move(sink));
        return automation::Subscription([sinks = sinks_, cookie] { sinks->erase(cookie); });
    }

  private:
    std::vector<std::pair<std::wstring, Member>> members_;
    std::shared_ptr<std::map<int, automation::EventSink>> sinks_ =
        std::make_shared<std::map<int, automation::EventSink>>();
    int lastCookie_ = 0;
};
