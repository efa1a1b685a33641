#include "host/Outlook.h"

#include <algorithm>

#include "host/AddIns.h"
#include "host/Application.h"
#include "host/CommandBars.h"
#include "host/Core.h"
#include "host/Explorer.h"
#include "host/Folder.h"
#include "host/HostAutomation.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/Ribbons.h"
#include "host/Word.h"
#include "host/sending.h"

namespace host {

using automation::Object;

namespace {

/// The host object behind a handle: of this Outlook, and still usable.
template <class T>
std::shared_ptr<T> handle(const Core& core, const Object& object) {
    auto found = as<T>(object);
    if (!found || &found->core() != &core) {
        raise::typeMismatch();
    }
    found->checkUsable();
    return found;
}

template <class T>
std::vector<Object> objects(const std::vector<std::shared_ptr<T>>& list) {
    std::vector<Object> result;
    result.reserve(list.size());
    for (const auto& element : list) {
        result.push_back(element->object());
    }
    return result;
}

/// A button of the window answers the first item selected.
bool showsFirst(const Explorer& explorer, const std::shared_ptr<Item>& item) {
    const auto selection = explorer.selection();
    return !selection.empty() && selection.front() == item;
}

}  // namespace

Outlook::Outlook(Profile profile, std::function<automation::Date()> now)
    : core_(Core::make(std::move(profile), std::move(now))),
      automation_(std::make_unique<HostAutomation>(*core_)) {}

Outlook::~Outlook() = default;

automation::Automation& Outlook::automation() {
    return *automation_;
}

Object Outlook::application() {
    return core_->application().object();
}

const std::wstring& Outlook::version() const {
    return core_->profile().version;
}

Object Outlook::makeAddIn(const std::wstring& progId, const std::wstring& description) {
    return core_->addIns().add(progId, description).object();
}

// Windows

Object Outlook::openExplorer() {
    return core_->windows().openExplorer(core_->mailbox().defaultFolder(defaultFolder::inbox))->object();
}

void Outlook::closeExplorer(const Object& explorer) {
    core_->windows().close(handle<Explorer>(*core_, explorer));
}

void Outlook::closeInspector(const Object& inspector, bool save) {
    core_->windows().closeInspector(handle<Inspector>(*core_, inspector),
                                    save ? SaveAnswer::Yes : SaveAnswer::No);
}

void Outlook::cancelClosing(const Object& inspector) {
    const auto window = handle<Inspector>(*core_, inspector);
    if (window->item()->content().saved) {
        raise::operationFailed();  // Nobody asks.
    }
    core_->windows().closeInspector(window, SaveAnswer::Cancel);
}

void Outlook::activate(const Object& window) {
    const auto found = handle<HostObject>(*core_, window);
    if (!as<Explorer>(window) && !as<Inspector>(window)) {
        raise::typeMismatch();
    }
    core_->windows().activate(found);
}

void Outlook::select(const Object& explorer, const std::vector<Object>& items) {
    const auto window = handle<Explorer>(*core_, explorer);
    std::vector<std::shared_ptr<Item>> selected;
    selected.reserve(items.size());
    for (const Object& item : items) {
        selected.push_back(handle<Item>(*core_, item));
    }
    if (!selected.empty()) {
        const auto folder = selected.front()->folder();
        if (!folder) {
            raise::objectNotFound();
        }
        if (!window->showFolder(folder)) {
            return;
        }
    }
    window->select(selected);
}

void Outlook::switchFolder(const Object& explorer, const std::wstring& path) {
    const auto window = handle<Explorer>(*core_, explorer);
    const auto folder = core_->mailbox().find(path);
    if (!folder) {
        raise::objectNotFound();
    }
    window->showFolder(folder);
}

std::vector<Object> Outlook::explorers() const {
    return objects(core_->windows().explorers());
}

std::vector<Object> Outlook::inspectors() const {
    return objects(core_->windows().inspectors());
}

Object Outlook::itemOf(const Object& inspector) const {
    return handle<Inspector>(*core_, inspector)->item()->object();
}

void Outlook::pressControl(const Object& explorer, const std::vector<std::wstring>& captions) {
    constexpr int withoutMenus = 15;
    if (core_->majorVersion() >= withoutMenus) {
        raise::operationFailed();
    }
    auto controls = handle<Explorer>(*core_, explorer)->commandBars().menuBar().controls();
    std::shared_ptr<CommandBarControl> control;
    for (const std::wstring& caption : captions) {
        control = controls ? controls->find(caption) : nullptr;
        if (!control) {
            raise::objectNotFound();
        }
        controls = control->controls();
    }
    if (!control || !control->pressable()) {
        raise::objectNotFound();
    }
    control->press();
}

// The ribbon

void Outlook::addRibbon(RibbonAddIn addIn) {
    core_->ribbons().add(std::move(addIn));
}

void Outlook::dropRibbons() {
    core_->ribbons().dropAddIns();
}

std::vector<RibbonCommand> Outlook::ribbon(const Object& window) {
    return core_->ribbons().commands(handle<HostObject>(*core_, window));
}

void Outlook::pressRibbon(const Object& window, const std::wstring& label) {
    core_->ribbons().press(handle<HostObject>(*core_, window), label);
}

void Outlook::choose(const Object& explorer, const std::vector<std::wstring>& captions) {
    constexpr int withRibbon = 14;
    if (core_->majorVersion() >= withRibbon) {
        pressRibbon(explorer, captions.back());
    } else {
        pressControl(explorer, captions);
    }
}

// Items

Object Outlook::openNewMail(const Message& message) {
    const auto item = core_->make<Item>(ItemContent::of(message));
    const auto inspector = core_->windows().show(item);
    return inspector ? inspector->object() : Object();
}

Object Outlook::openItem(const Object& item) {
    const auto inspector = core_->windows().show(handle<Item>(*core_, item));
    return inspector ? inspector->object() : Object();
}

Object Outlook::receive(const Message& message) {
    auto content = ItemContent::of(message);
    content.sent = true;
    content.saved = true;
    content.unread = true;
    if (!content.deliveryTime) {
        content.deliveryTime = core_->now();
    }
    const auto item = core_->make<Item>(std::move(content));
    core_->mailbox().defaultFolder(defaultFolder::inbox)->take(item);
    return item->object();
}

Object Outlook::store(const std::wstring& folder, const Message& message) {
    return core_->mailbox().store({folder, message})->object();
}

std::vector<Object> Outlook::itemsIn(const std::wstring& folder) const {
    const auto found = core_->mailbox().find(folder);
    return found ? objects(found->items()) : std::vector<Object>();
}

std::set<std::wstring> Outlook::fieldsOf(const std::wstring& folder) const {
    const auto found = core_->mailbox().find(folder);
    return found ? found->fields() : std::set<std::wstring>();
}

bool Outlook::folderExists(const std::wstring& folder) const {
    return core_->mailbox().find(folder) != nullptr;
}

void Outlook::deleteItem(const Object& item) {
    handle<Item>(*core_, item)->remove();
}

ItemView Outlook::view(const Object& item) const {
    return handle<Item>(*core_, item)->view();
}

void Outlook::typeSubject(const Object& item, const std::wstring& subject) {
    const auto typed = handle<Item>(*core_, item);
    typed->content().subject = subject;
    typed->changed(Part::Subject, L"Subject");
}

void Outlook::typeBody(const Object& item, const std::wstring& body) {
    const auto typed = handle<Item>(*core_, item);
    typed->content().body = body;
    typed->content().html.clear();
    typed->changed(Part::Body, L"Body");
}

void Outlook::saveItem(const Object& item) {
    handle<Item>(*core_, item)->save();
}

void Outlook::writeBodyElsewhere(const Object& item, const std::wstring& body) {
    handle<Item>(*core_, item)->writtenElsewhere(body);
}

// Sending and answering

SendOutcome Outlook::send(const Object& inspector) {
    const auto window = handle<Inspector>(*core_, inspector);
    core_->windows().activate(window);
    return host::send(*core_, window->item());
}

SendOutcome Outlook::sendByProgram(const Object& item) {
    return host::send(*core_, handle<Item>(*core_, item));
}

ReplyOutcome Outlook::reply(const Object& item) {
    return answer(ReplyKind::Reply, item);
}

ReplyOutcome Outlook::replyAll(const Object& item) {
    return answer(ReplyKind::ReplyAll, item);
}

ReplyOutcome Outlook::forward(const Object& item) {
    return answer(ReplyKind::Forward, item);
}

ReplyOutcome Outlook::answer(ReplyKind kind, const Object& item) {
    const auto answered = handle<Item>(*core_, item);
    std::shared_ptr<HostObject> window = core_->windows().inspectorOf(*answered);
    if (!window) {
        window = core_->windows().topExplorer(
            [&](const Explorer& explorer) { return showsFirst(explorer, answered); });
    }
    if (!window) {
        raise::operationFailed();  // No window has a button for it.
    }
    return answerIn(window->object(), kind, item);
}

ReplyOutcome Outlook::answerIn(const Object& window, ReplyKind kind, const Object& item) {
    const auto answered = handle<Item>(*core_, item);
    const auto pressed = handle<HostObject>(*core_, window);
    const auto explorer = as<Explorer>(window);
    const bool shows =
        explorer ? showsFirst(*explorer, answered) : pressed == core_->windows().inspectorOf(*answered);
    if (!shows) {
        raise::operationFailed();
    }
    return respond(*pressed, kind, *answered,
                   [this](const std::shared_ptr<Item>& response) { return core_->windows().show(response); });
}

ReplyOutcome Outlook::answerInline(const Object& explorer, ReplyKind kind, const Object& item) {
    constexpr int outlook2013 = 15;
    const auto answered = handle<Item>(*core_, item);
    const auto pane = handle<Explorer>(*core_, explorer);
    if (core_->majorVersion() < outlook2013 || !showsFirst(*pane, answered)) {
        raise::operationFailed();
    }
    return respond(*pane, kind, *answered, [&](const std::shared_ptr<Item>& response) {
        pane->showInline(response);
        return nullptr;
    });
}

/// The user presses the button in the window; `open` shows the response and gives its inspector, if it has
/// one.
template <class Open>
ReplyOutcome Outlook::respond(HostObject& window, ReplyKind kind, Item& answered, const Open& open) {
    WindowList& windows = core_->windows();
    windows.activate(window.shared_from_this());
    const auto before = windows.inspectors();
    ReplyOutcome outcome;
    if (const auto response = raiseAnswer(answered, kind)) {
        const std::shared_ptr<Inspector> inspector = open(response);
        outcome.opened = inspector != nullptr || response->isInline();
        outcome.item = response->object();
        outcome.inspector = inspector ? inspector->object() : Object();
    }
    for (const auto& inspector : windows.inspectors()) {
        if (std::ranges::find(before, inspector) == before.end()) {
            outcome.newInspectors.push_back(inspector->object());
        }
    }
    return outcome;
}

namespace {

std::shared_ptr<Item> inlineOf(const Explorer& explorer) {
    if (!explorer.inlineResponse()) {
        raise::operationFailed();
    }
    return explorer.inlineResponse();
}

}  // namespace

SendOutcome Outlook::sendInline(const Object& explorer) {
    return host::send(*core_, inlineOf(*handle<Explorer>(*core_, explorer)));
}

Object Outlook::popOut(const Object& explorer) {
    const auto pane = handle<Explorer>(*core_, explorer);
    const auto response = inlineOf(*pane);
    pane->closeInline();
    const auto inspector = core_->windows().show(response);
    return inspector ? inspector->object() : Object();
}

void Outlook::discardInline(const Object& explorer) {
    const auto pane = handle<Explorer>(*core_, explorer);
    const auto response = inlineOf(*pane);
    pane->closeInline();
    response->remove();
}

void Outlook::announceQuit() {
    core_->application().announceQuit();
}

void Outlook::quit() {
    core_->application().quit();
}

automation::Object Outlook::openWordDocument(const std::wstring& name) {
    return core_->startWord()->open(name)->object();
}

void Outlook::startWord() {
    core_->startWord()->startedByUser();
}

bool Outlook::wordRuns() const {
    return core_->runningWord() != nullptr;
}

void Outlook::endWord() {
    if (const auto word = core_->runningWord()) {
        word->quit();
    }
}

bool Outlook::wordAsksToSaveTemplates() const {
    const auto word = core_->runningWord();
    return word && word->asksToSaveTemplates();
}

void Outlook::onWord(std::function<void(const Object&)> tell) {
    core_->tellOfWord = std::move(tell);
}

void Outlook::registerForMacros(const std::wstring& progId, std::function<automation::Object()> make) {
    core_->classesForMacros[text::upper(progId)] = std::move(make);
}

void Outlook::runMacrosBy(RunMacro run) {
    core_->runMacro = std::move(run);
}

void Outlook::onWordMacro(WordMacro macro) {
    core_->wordMacro = std::move(macro);
}

const std::vector<std::wstring>& Outlook::guardPrompts() const {
    return core_->guard().prompts();
}

// Measuring

std::shared_ptr<Meter> Outlook::meter() const {
    return core_->meter();
}

std::size_t Outlook::calls() const {
    return core_->meter()->calls();
}

std::size_t Outlook::liveObjects() const {
    return core_->meter()->liveObjects();
}

void Outlook::failCall(std::size_t n, std::size_t count) {
    core_->meter()->failCall(n, count);
}

void Outlook::duringCall(std::size_t n, std::function<void()> action) {
    core_->meter()->duringCall(n, std::move(action));
}

const std::vector<HandlerError>& Outlook::errors() const {
    return core_->errors();
}

}  // namespace host
