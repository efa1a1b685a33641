#include "host/Explorer.h"

#include "host/Folder.h"
#include "host/Item.h"
#include "host/ItemAlias.h"
#include "host/NameSpace.h"
#include "host/Ribbons.h"
#include "host/outlookRows.h"

namespace host {

using automation::Value;

Explorer::Explorer(Core& core, std::shared_ptr<Folder> folder, const Explorer* model)
    : Automated(core),
      folder_(std::move(folder)),
      bars_(core.make<CommandBars>(model ? model->bars_.get() : nullptr)) {}

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
    if (core().raiseCancellable(events_, L"BeforeFolderSwitch", 0xF003, {folder->object()})) {
        return false;
    }
    leaveInline();
    folder_ = folder;
    selection_.clear();
    core().raise(events_, L"FolderSwitch", 0xF002);
    core().raise(events_, L"SelectionChange", 0xF007);
    return true;
}

void Explorer::showInline(std::shared_ptr<Item> response) {
    inline_ = std::move(response);
    inline_->writtenInline(true);
    core().ribbons().show(shared_from_this());
    core().raiseNewer(events_, L"InlineResponse", 0xFC92, {core().makeObject<ItemAlias>(inline_)});
}

void Explorer::closeInline() {
    if (const auto response = std::exchange(inline_, nullptr)) {
        response->writtenInline(false);
        core().raiseNewer(events_, L"InlineResponseClose", 0xFC96);
    }
}

void Explorer::leaveInline() {
    if (inline_) {
        inline_->save();
        closeInline();
    }
}

void Explorer::select(const std::vector<std::shared_ptr<Item>>& items) {
    leaveInline();
    selection_.clear();
    core().raise(events_, L"SelectionChange", 0xF007);
    selection_.assign(items.begin(), items.end());
    core().raise(events_, L"SelectionChange", 0xF007);
}

namespace {

void activate(Explorer& explorer) {
    windowsOf(explorer).activate(explorer.shared_from_this());
}

void close(Explorer& explorer) {
    windowsOf(explorer).close(explorer.shared_from_this());
}

std::shared_ptr<Explorer> addExplorer(Explorers& explorers, Arguments arguments) {
    const auto folder = required<Folder>(arguments[0]);
    folder->checkUsable();
    return windowsOf(explorers).openExplorer(folder);
}

}  // namespace

constinit const Members<Explorer> Explorer::members = {
    applicationRow<Explorer>,
    parentRow<Explorer>,
    classRow<Explorer, 34>,
    sessionRow<Explorer>,
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
     .get = use<&Explorer::folder_>,
     .put =
         [](Explorer& explorer, Arguments, const Value& value) {
             const auto folder = required<Folder>(value);
             folder->checkUsable();
             explorer.showFolder(folder);
         }},
    {.name = L"Close", .id = 8451, .call = use<close>},
    {.name = L"Display", .id = 8452, .call = use<activate>},
    {.name = L"Caption",
     .id = 8465,
     .get = [](Explorer& explorer,
               Arguments) { return Value(explorer.folder_->name() + L" - Microsoft Outlook"); }},
    {.name = L"Activate", .id = 8467, .call = use<activate>},
    {.name = L"ActiveInlineResponse",
     .id = 64659,
     .get =
         [](Explorer& explorer, Arguments) {
             return explorer.inline_ ? Value(explorer.core().makeObject<ItemAlias>(explorer.inline_))
                                     : Value(automation::Object());
         },
     .has = [](const Explorer& explorer) { return explorer.core().majorVersion() >= 15; }},
    {.name = L"Selection",
     .id = 8706,
     .get = [](Explorer& explorer,
               Arguments) { return Value(explorer.core().makeObject<Selection>(explorer.selection())); }},
};

const std::vector<std::shared_ptr<Explorer>>& Explorers::list() const {
    return windowsOf(*this).explorers();
}

constinit const Members<Explorers> Explorers::members = {
    countRow<Explorers>,
    itemRow<Explorers>,
    {.name = L"Add", .id = 95, .call = use<addExplorer>, .least = 1, .most = 2},
};

Selection::Selection(Core& core, std::vector<std::shared_ptr<Item>> items)
    : Collection(core), items_(std::move(items)) {}

automation::Object Selection::at(std::size_t index) const {
    return core().makeObject<ItemAlias>(items_[index]);
}

constinit const Members<Selection> Selection::members = {
    countRow<Selection>,
    itemRow<Selection>,
};

}  // namespace host
