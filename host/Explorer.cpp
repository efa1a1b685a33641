#include "host/Explorer.h"

#include "host/Application.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "host/ItemAlias.h"
#include "host/NameSpace.h"
#include "host/World.h"

namespace host {

using automation::Value;

Explorer::Explorer(World& world, std::shared_ptr<Folder> folder, const Explorer* model)
    : Automated(world),
      folder_(std::move(folder)),
      bars_(world.make<CommandBars>(model ? model->bars_.get() : nullptr)) {}

void Explorer::checkUsable() const {
    if (closed_) {
        raise::explorerClosed();
    }
}

std::vector<std::shared_ptr<Item>> Explorer::selection() const {
    std::vector<std::shared_ptr<Item>> items;
    for (const auto& weak : selection_) {
        if (auto item = weak.lock(); item && !item->gone()) {
            items.push_back(std::move(item));
        }
    }
    return items;
}

bool Explorer::showFolder(const std::shared_ptr<Folder>& folder) {
    if (folder == folder_) {
        return true;
    }
    if (world().raiseCancellable(events_, L"BeforeFolderSwitch", 0xF003, {folder->object()})) {
        return false;
    }
    folder_ = folder;
    selection_.clear();
    world().raise(events_, L"FolderSwitch", 0xF002);
    world().raise(events_, L"SelectionChange", 0xF007);
    return true;
}

void Explorer::select(const std::vector<std::shared_ptr<Item>>& items) {
    selection_.clear();
    world().raise(events_, L"SelectionChange", 0xF007);
    selection_.assign(items.begin(), items.end());
    world().raise(events_, L"SelectionChange", 0xF007);
}

constinit const Member<Explorer> Explorer::table_[] = {
    {.name = L"Application",
     .id = 61440,
     .get = [](Explorer& explorer, Arguments) { return Value(explorer.world().application().object()); }},
    {.name = L"Parent",
     .id = 61441,
     .get = [](Explorer& explorer, Arguments) { return Value(explorer.world().application().object()); }},
    {.name = L"Class", .id = 61450, .get = [](Explorer&, Arguments) { return Value(34); }},
    {.name = L"Session",
     .id = 61451,
     .get = [](Explorer& explorer, Arguments) { return Value(explorer.world().nameSpace().object()); }},
    {.name = L"CommandBars",
     .id = 8448,
     .get =
         [](Explorer& explorer, Arguments) {
             if (!explorer.shown_) {
                 raise::operationFailed();
             }
             return Value(explorer.bars_->object());
         }},
    {.name = L"CurrentFolder",
     .id = 8449,
     .get = [](Explorer& explorer, Arguments) { return Value(explorer.folder_->object()); },
     .put =
         [](Explorer& explorer, Arguments, const Value& value) {
             const auto folder = required<Folder>(value);
             folder->checkUsable();
             explorer.showFolder(folder);
         }},
    {.name = L"Close",
     .id = 8451,
     .call =
         [](Explorer& explorer, Arguments) {
             explorer.world().windows().close(explorer.shared_from_this());
             return Value();
         }},
    {.name = L"Display",
     .id = 8452,
     .call =
         [](Explorer& explorer, Arguments) {
             explorer.world().windows().activate(explorer.shared_from_this());
             return Value();
         }},
    {.name = L"Caption",
     .id = 8465,
     .get = [](Explorer& explorer,
               Arguments) { return Value(explorer.folder_->name() + L" - Microsoft Outlook"); }},
    {.name = L"Activate",
     .id = 8467,
     .call =
         [](Explorer& explorer, Arguments) {
             explorer.world().windows().activate(explorer.shared_from_this());
             return Value();
         }},
    {.name = L"Selection",
     .id = 8706,
     .get = [](Explorer& explorer,
               Arguments) { return Value(explorer.world().makeObject<Selection>(explorer.selection())); }},
};

std::span<const Member<Explorer>> Explorer::members() {
    return table_;
}

constinit const Member<Explorers> Explorers::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get =
         [](Explorers& explorers, Arguments) {
             return Value(static_cast<std::int32_t>(explorers.world().windows().explorers().size()));
         }},
    {.name = L"Item",
     .id = 81,
     .get =
         [](Explorers& explorers, Arguments arguments) {
             const auto& list = explorers.world().windows().explorers();
             return Value(list[position(arguments[0], list.size())]->object());
         },
     .least = 1,
     .most = 1},
    {.name = L"Add",
     .id = 95,
     .call =
         [](Explorers& explorers, Arguments arguments) {
             const auto folder = required<Folder>(arguments[0]);
             folder->checkUsable();
             return Value(explorers.world().windows().openExplorer(folder)->object());
         },
     .least = 1,
     .most = 2},
};

std::span<const Member<Explorers>> Explorers::members() {
    return table_;
}

Selection::Selection(World& world, std::vector<std::shared_ptr<Item>> items)
    : Automated(world), items_(std::move(items)) {}

constinit const Member<Selection> Selection::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](Selection& selection,
               Arguments) { return Value(static_cast<std::int32_t>(selection.items_.size())); }},
    {.name = L"Item",
     .id = 81,
     .get =
         [](Selection& selection, Arguments arguments) {
             const auto& item = selection.items_[position(arguments[0], selection.items_.size())];
             return Value(selection.world().makeObject<ItemAlias>(item));
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<Selection>> Selection::members() {
    return table_;
}

}  // namespace host
