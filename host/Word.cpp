#include "host/Word.h"

#include <algorithm>

#include "host/Core.h"
#include "host/VbaProject.h"

namespace host {

using automation::Value;

namespace {

[[noreturn]] void objectDeleted() {
    throw automation::Error(5825, L"Object has been deleted.", L"Microsoft Word");
}

/// What a call to a process that has ended fails with.
[[noreturn]] void processGone() {
    constexpr auto serverUnavailable = static_cast<std::int32_t>(0x800706BA);
    throw automation::Error(serverUnavailable, L"The RPC server is unavailable.");
}

std::wstring_view fileNameOf(std::wstring_view path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

}  // namespace

WordDocument::WordDocument(Core& core, std::wstring name, std::weak_ptr<WordApplication> application)
    : Automated(core), name_(std::move(name)), application_(std::move(application)) {}

void WordDocument::checkUsable() const {
    if (closed_) {
        objectDeleted();
    }
}

constinit const Members<WordDocument> WordDocument::members = {
    {.name = L"Name", .get = use<&WordDocument::name_>},
    {.name = L"Application",
     .get =
         [](WordDocument& document, Arguments) {
             const auto application = document.application_.lock();
             return Value(application ? application->object() : automation::Object());
         }},
    {.name = L"Saved", .get = use<&WordDocument::saved_>, .put = set<&WordDocument::saved_>},
    {.name = L"Close",
     .call =
         [](WordDocument& document, Arguments) {
             if (const auto application = document.application_.lock()) {
                 application->closed(document);
             }
             document.closed();
             return Value();
         },
     .most = 3},
};

WordFile::WordFile(Core& core, std::wstring path, bool installed)
    : Automated(core),
      path_(std::move(path)),
      installed_(installed),
      macros_(macroModulesOf(path_),
              [&core](const std::wstring& progId) { return core.createForMacros(progId); }) {}

std::wstring WordFile::name() const {
    return std::wstring(fileNameOf(path_));
}

constinit const Members<WordFile> WordFile::members = {
    {.name = L"Name", .id = 0, .get = use<&WordFile::name>},
    {.name = L"FullName", .get = use<&WordFile::path_>},
    {.name = L"Installed", .id = 4, .get = use<&WordFile::installed_>, .put = set<&WordFile::installed_>},
    {.name = L"Saved", .get = use<&WordFile::saved_>, .put = set<&WordFile::saved_>},
};

bool WordFiles::isNamed(const std::shared_ptr<WordFile>& file, std::wstring_view name) {
    return text::equalsIgnoringCase(file->path(), name) || text::equalsIgnoringCase(file->name(), name);
}

void WordFiles::noSuchName() {
    throw automation::Error(5941, L"The requested member of the collection does not exist.",
                            L"Microsoft Word");
}

Value WordFiles::add(Arguments arguments) {
    const std::wstring path = arguments.text(0);
    const auto known = std::ranges::find_if(list_, [&](const auto& file) { return isNamed(file, path); });
    if (known != list_.end()) {
        return (*known)->object();
    }
    const bool install = !arguments.has(1) || arguments[1].toBool();
    list_.push_back(core().make<WordFile>(path, install));
    return list_.back()->object();
}

constinit const Members<WordFiles> WordFiles::members = {
    countRow<WordFiles, 1>,
    itemRow<WordFiles, 0>,
    {.name = L"Add", .id = 2, .call = use<&WordFiles::add>, .least = 1, .most = 2},
};

bool WordTemplates::isNamed(const std::shared_ptr<WordFile>& file, std::wstring_view name) {
    return text::equalsIgnoringCase(file->name(), name);
}

constinit const Members<WordTemplates> WordTemplates::members = {
    countRow<WordTemplates, 1>,
    itemRow<WordTemplates, 0>,
};

constinit const Members<WordWindow> WordWindow::members = {
    {.name = L"Caption",
     .get = [](WordWindow& window, Arguments) { return window.document_->object().get(L"Name"); }},
    {.name = L"Document", .get = use<&WordWindow::document_>},
};

constinit const Members<WordWindows> WordWindows::members = {
    countRow<WordWindows, 2>,
    itemRow<WordWindows, 0>,
};

WordApplication::WordApplication(Core& core)
    : Automated(core), files_(core.make<WordFiles>()), templates_(core.make<WordTemplates>(files_)) {}

void WordApplication::checkUsable() const {
    if (quit_) {
        processGone();
    }
}

automation::Object WordApplication::windows() const {
    std::vector<std::shared_ptr<WordWindow>> windows;
    for (const auto& document : documents_) {
        windows.push_back(core().make<WordWindow>(document));
    }
    return core().makeObject<WordWindows>(std::move(windows));
}

std::shared_ptr<WordDocument> WordApplication::open(std::wstring name) {
    documents_.push_back(core().make<WordDocument>(std::move(name), self<WordApplication>()));
    return documents_.back();
}

void WordApplication::closed(const WordDocument& document) {
    const auto found =
        std::ranges::find_if(documents_, [&](const auto& mine) { return mine.get() == &document; });
    if (found != documents_.end()) {
        (*found)->closed();
        documents_.erase(found);
    }
}

bool WordApplication::asksToSaveTemplates() const {
    return std::ranges::any_of(files_->list(), [](const auto& file) { return !file->saved(); });
}

bool WordApplication::userControl() const {
    return startedByUser_ || !documents_.empty();
}

void WordApplication::quit() {
    while (!documents_.empty()) {
        closed(*documents_.back());
    }
    quit_ = true;
    core().wordEnds();
}

/// A macro gets copies: what it writes to its arguments comes back to nobody.
Value WordApplication::run(Arguments arguments) {
    const std::wstring macro = arguments.text(0);
    if (core().wordMacro) {
        return core().wordMacro(macro, arguments.from(1));
    }
    if (!core().profile().macrosAllowed) {
        throw automation::Error(6294, L"The macros in this project are disabled.", L"Microsoft Word");
    }
    for (const auto& file : files_->list()) {
        if (file->installed() && file->macros().has(macro)) {
            const ArgumentCopies copies(arguments.from(1));
            const Value result = core().runMacro ? core().runMacro(file->path(), macro, copies.references())
                                                 : file->macros().run(macro, copies.references());
            checkUsable();  // Word may be gone by now.
            return result;
        }
    }
    BasicInterpreter::noSuchMacro();
}

constinit const Members<WordApplication> WordApplication::members = {
    {.name = L"Name", .get = [](WordApplication&, Arguments) { return Value(L"Microsoft Word"); }},
    {.name = L"Run", .id = 445, .call = use<&WordApplication::run>, .least = 1, .most = 31},
    {.name = L"AddIns", .id = 22, .get = use<&WordApplication::files_>},
    {.name = L"Templates", .id = 67, .get = use<&WordApplication::templates_>},
    {.name = L"Windows", .get = use<&WordApplication::windows>},
    {.name = L"Documents", .get = use<&WordApplication::windows>},
    {.name = L"UserControl", .get = use<&WordApplication::userControl>},
    {.name = L"Quit", .call = use<&WordApplication::quit>, .most = 3},
};

}  // namespace host
