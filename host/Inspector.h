#pragma once

#include <memory>
#include <string>

#include "host/Automated.h"

namespace host {

class CommandBars;
class Item;
class WordApplication;
class WordDocument;

/// The window of one item.
class Inspector : public Automated<Inspector> {
  public:
    static constexpr std::wstring_view defaultName = L"Caption";
    static std::span<const Member<Inspector>> members();

    Inspector(World& world, std::shared_ptr<Item> item);

    std::wstring className() const override { return L"Inspector"; }
    void checkUsable() const override;
    EventSource* eventSource() override { return &events_; }

    const std::shared_ptr<Item>& item() const noexcept { return item_; }
    void setItem(std::shared_ptr<Item> item) { item_ = std::move(item); }
    int editorType() const;
    void closed();

  private:
    static const Member<Inspector> table_[];
    automation::Value wordEditor();

    std::shared_ptr<Item> item_;
    std::shared_ptr<CommandBars> bars_;
    std::shared_ptr<WordApplication> word_;
    std::shared_ptr<WordDocument> document_;
    bool closed_ = false;
    EventSource events_{0x0006307D, 0x0006302A};
};

/// Application.Inspectors.
class Inspectors : public Automated<Inspectors> {
  public:
    static std::span<const Member<Inspectors>> members();

    explicit Inspectors(World& world) : Automated(world) {}

    std::wstring className() const override { return L"Inspectors"; }
    EventSource* eventSource() override { return &events_; }

  private:
    static const Member<Inspectors> table_[];
    EventSource events_{0x00063079};
};

}  // namespace host
