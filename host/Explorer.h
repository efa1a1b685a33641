#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/CommandBars.h"

namespace host {

class Folder;
class Item;

/// A main window: a folder, and items selected in it.
class Explorer : public Automated<Explorer> {
  public:
    static constexpr std::wstring_view defaultName = L"Caption";
    static const Members<Explorer> members;

    Explorer(Core& core, std::shared_ptr<Folder> folder, const Explorer* model);

    std::wstring className() const override { return L"Explorer"; }
    void checkUsable() const override;
    EventSource* eventSource() override { return &events_; }

    std::shared_ptr<Folder> folder() const { return folder_; }
    CommandBars& commandBars() const { return *bars_; }
    /// The selected items that still are where they were selected.
    std::vector<std::shared_ptr<Item>> selection() const;
    /// Raises BeforeFolderSwitch, FolderSwitch and SelectionChange; false when a handler cancels.
    bool showFolder(const std::shared_ptr<Folder>& folder);
    /// Raises SelectionChange twice: for what was left and for what is selected.
    void select(const std::vector<std::shared_ptr<Item>>& items);
    /// The response that is written in the reading pane; nothing when there is none.
    const std::shared_ptr<Item>& inlineResponse() const noexcept { return inline_; }
    /// Raises InlineResponse.
    void showInline(std::shared_ptr<Item> response);
    /// The response is written there no longer, whatever becomes of it. Raises InlineResponseClose.
    void closeInline();
    void closed() { closed_ = true; }
    /// The window comes to the screen.
    void shown() { shown_ = true; }

  private:
    /// What the user has written so far goes to the Drafts.
    void leaveInline();

    std::shared_ptr<Folder> folder_;
    std::vector<std::weak_ptr<Item>> selection_;
    std::shared_ptr<Item> inline_;
    std::shared_ptr<CommandBars> bars_;
    bool closed_ = false;
    /// Until it was on the screen an explorer has no command bars that a caller could get.
    bool shown_ = false;
    EventSource events_{0x0006304F, 0x0006300F};
};

/// Application.Explorers.
class Explorers : public Collection<Explorers> {
  public:
    static const Members<Explorers> members;

    explicit Explorers(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"Explorers"; }
    const std::vector<std::shared_ptr<Explorer>>& list() const;
    EventSource* eventSource() override { return &events_; }

  private:
    EventSource events_{0x00063078};
};

/// The items that were selected in an explorer when it was asked.
class Selection : public Collection<Selection> {
  public:
    static const Members<Selection> members;

    Selection(Core& core, std::vector<std::shared_ptr<Item>> items);

    std::wstring className() const override { return L"Selection"; }
    const std::vector<std::shared_ptr<Item>>& list() const noexcept { return items_; }
    automation::Object at(std::size_t index) const;

  private:
    std::vector<std::shared_ptr<Item>> items_;
};

}  // namespace host
