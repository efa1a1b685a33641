#include "host/Inspector.h"

#include "host/Application.h"
#include "host/CommandBars.h"
#include "host/Item.h"
#include "host/NameSpace.h"
#include "host/Word.h"
#include "host/World.h"

namespace host {

using automation::Value;

namespace {

Value activate(Inspector& inspector, Arguments) {
    // Bringing up the hidden window of GetInspector shows it.
    const auto shown = inspector.world().windows().inspectorOf(*inspector.item());
    if (shown.get() == &inspector) {
        inspector.world().windows().activate(inspector.shared_from_this());
    } else {
        inspector.world().windows().show(inspector.item());
    }
    return {};
}

Value close(Inspector& inspector, Arguments arguments) {
    constexpr int saveChanges = 0;
    const int mode = arguments[0].toInteger();
    if (mode < 0 || mode > 2) {
        raise::operationFailed();
    }
    inspector.world().windows().closeInspector(inspector.self<Inspector>(),
                                               mode == saveChanges ? SaveAnswer::Yes : SaveAnswer::No);
    return {};
}

}  // namespace

Inspector::Inspector(World& world, std::shared_ptr<Item> item)
    : Automated(world), item_(std::move(item)), bars_(world.make<CommandBars>(nullptr)) {}

void Inspector::checkUsable() const {
    if (closed_) {
        raise::inspectorClosed();
    }
}

void Inspector::closed() {
    closed_ = true;
    if (document_) {
        word_->closed(*document_);
        document_.reset();
        word_.reset();
    }
}

int Inspector::editorType() const {
    const Editor below12 = item_->isMail() ? world().profile().editor : Editor::RichText;
    return static_cast<int>(world().majorVersion() >= 12 ? Editor::Word : below12);
}

Value Inspector::wordEditor() {
    if (editorType() != static_cast<int>(Editor::Word) || !world().profile().wordRegistered) {
        return automation::Object();
    }
    if (!document_) {
        word_ = world().startWord();
        document_ = word_->open(item_->content().subject);
    }
    return document_->object();
}

constinit const Member<Inspector> Inspector::table_[] = {
    {.name = L"Application",
     .id = 61440,
     .get = [](Inspector& inspector, Arguments) { return Value(inspector.world().application().object()); }},
    {.name = L"Parent",
     .id = 61441,
     .get = [](Inspector& inspector, Arguments) { return Value(inspector.world().application().object()); }},
    {.name = L"Class", .id = 61450, .get = [](Inspector&, Arguments) { return Value(35); }},
    {.name = L"Session",
     .id = 61451,
     .get = [](Inspector& inspector, Arguments) { return Value(inspector.world().nameSpace().object()); }},
    {.name = L"CommandBars",
     .id = 8448,
     .get = [](Inspector& inspector, Arguments) { return Value(inspector.bars_->object()); }},
    {.name = L"CurrentItem",
     .id = 8450,
     .get = [](Inspector& inspector, Arguments) { return Value(inspector.item_->object()); }},
    {.name = L"Close", .id = 8451, .call = close, .least = 1, .most = 1},
    {.name = L"Display", .id = 8452, .call = activate, .most = 1},
    {.name = L"IsWordMail",
     .id = 8453,
     .call = [](Inspector& inspector,
                Arguments) { return Value(inspector.editorType() == static_cast<int>(Editor::Word)); }},
    {.name = L"WordEditor",
     .id = 8463,
     .get = [](Inspector& inspector, Arguments) { return inspector.wordEditor(); }},
    {.name = L"EditorType",
     .id = 8464,
     .get = [](Inspector& inspector, Arguments) { return Value(inspector.editorType()); }},
    {.name = L"Caption",
     .id = 8465,
     .get =
         [](Inspector& inspector, Arguments) {
             const std::wstring& subject = inspector.item_->content().subject;
             return Value((subject.empty() ? L"Untitled" : subject) + L" - Message");
         }},
    {.name = L"Activate", .id = 8467, .call = activate},
};

std::span<const Member<Inspector>> Inspector::members() {
    return table_;
}

constinit const Member<Inspectors> Inspectors::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get =
         [](Inspectors& inspectors, Arguments) {
             return Value(static_cast<std::int32_t>(inspectors.world().windows().inspectors().size()));
         }},
    {.name = L"Item",
     .id = 81,
     .get =
         [](Inspectors& inspectors, Arguments arguments) {
             const auto& list = inspectors.world().windows().inspectors();
             return Value(list[position(arguments[0], list.size())]->object());
         },
     .least = 1,
     .most = 1},
    {.name = L"Add",
     .id = 95,
     .call =
         [](Inspectors& inspectors, Arguments arguments) {
             const auto item = required<Item>(arguments[0]);
             item->checkUsable();
             return Value(inspectors.world().windows().makeInspector(item)->object());
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<Inspectors>> Inspectors::members() {
    return table_;
}

}  // namespace host
