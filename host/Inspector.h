#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/Profile.h"

namespace host {

class CommandBars;
class Item;
class WordApplication;
class WordDocument;

/// The window of one item.
class Inspector : public Automated<Inspector> {
  public:
    static constexpr std::wstring_view defaultName = L"Caption";
    static const Members<Inspector> members;

    Inspector(Core& core, std::shared_ptr<Item> item);

    std::wstring className() const override { return L"Inspector"; }
    void checkUsable() const override;
    EventSource* eventSource() override { return &events_; }

    const std::shared_ptr<Item>& item() const noexcept { return item_; }
    void setItem(std::shared_ptr<Item> item) { item_ = std::move(item); }
    Editor editorType() const;
    bool editedInWord() const { return editorType() == Editor::Word; }
    void closed();

    automation::Value wordEditor();

  private:
    std::shared_ptr<Item> item_;
    std::shared_ptr<CommandBars> bars_;
    std::shared_ptr<WordApplication> word_;
    std::shared_ptr<WordDocument> document_;
    bool closed_ = false;
    EventSource events_{0x0006307D, 0x0006302A};
};

/// Application.Inspectors.
class Inspectors : public Collection<Inspectors> {
  public:
    static const Members<Inspectors> members;

    explicit Inspectors(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"Inspectors"; }
    const std::vector<std::shared_ptr<Inspector>>& list() const;
    EventSource* eventSource() override { return &events_; }

  private:
    EventSource events_{0x00063079};
};

}  // namespace host
