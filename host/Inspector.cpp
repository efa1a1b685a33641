#include "host/Inspector.h"

#include "host/CommandBars.h"
#include "host/Item.h"
#include "host/NameSpace.h"
#include "host/Word.h"
#include "host/outlookRows.h"

namespace host {

using automation::Value;

namespace {

void activate(Inspector& inspector) {
    // Bringing up the hidden window of GetInspector shows it.
    const auto shown = inspector.core().windows().inspectorOf(*inspector.item());
    if (shown.get() == &inspector) {
        inspector.core().windows().activate(inspector.shared_from_this());
    } else {
        inspector.core().windows().show(inspector.item());
    }
}

void close(Inspector& inspector, Arguments arguments) {
    constexpr int saveChanges = 0;
    const int mode = arguments[0].toInteger();
    if (mode < 0 || mode > 2) {
        raise::operationFailed();
    }
    inspector.core().windows().closeInspector(inspector.self<Inspector>(),
                                              mode == saveChanges ? SaveAnswer::Yes : SaveAnswer::No);
}

std::wstring captionOf(const Inspector& inspector) {
    const std::wstring& subject = inspector.item()->content().subject;
    return (subject.empty() ? L"Untitled" : subject) + L" - Message";
}

std::shared_ptr<Inspector> addInspector(Inspectors& inspectors, Arguments arguments) {
    const auto item = required<Item>(arguments[0]);
    item->checkUsable();
    return windowsOf(inspectors).makeInspector(item);
}

}  // namespace

Inspector::Inspector(Core& core, std::shared_ptr<Item> item)
    : Automated(core), item_(std::move(item)), bars_(core.make<CommandBars>(nullptr)) {}

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

Editor Inspector::editorType() const {
    const Editor below12 = item_->isMail() ? core().profile().editor : Editor::RichText;
    return core().majorVersion() >= 12 ? Editor::Word : below12;
}

Value Inspector::wordEditor() {
    if (!editedInWord() || !core().profile().wordRegistered) {
        return automation::Object();
    }
    if (!document_) {
        word_ = core().startWord();
        document_ = word_->open(item_->content().subject);
    }
    return document_->object();
}

constinit const Members<Inspector> Inspector::members = {
    applicationRow<Inspector>,
    parentRow<Inspector>,
    classRow<Inspector, 35>,
    sessionRow<Inspector>,
    {.name = L"CommandBars", .id = 8448, .get = use<&Inspector::bars_>},
    {.name = L"CurrentItem", .id = 8450, .get = use<&Inspector::item_>},
    {.name = L"Close", .id = 8451, .call = use<close>, .least = 1, .most = 1},
    {.name = L"Display", .id = 8452, .call = use<activate>, .most = 1},
    {.name = L"IsWordMail", .id = 8453, .call = use<&Inspector::editedInWord>},
    {.name = L"WordEditor", .id = 8463, .get = use<&Inspector::wordEditor>, .guarded = Guarded::Yes},
    {.name = L"EditorType", .id = 8464, .get = use<&Inspector::editorType>},
    {.name = L"Caption", .id = 8465, .get = use<captionOf>},
    {.name = L"Activate", .id = 8467, .call = use<activate>},
};

const std::vector<std::shared_ptr<Inspector>>& Inspectors::list() const {
    return core().windows().inspectors();
}

constinit const Members<Inspectors> Inspectors::members = {
    countRow<Inspectors>,
    itemRow<Inspectors>,
    {.name = L"Add", .id = 95, .call = use<addInspector>, .least = 1, .most = 1},
};

}  // namespace host
