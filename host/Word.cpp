#include "host/Word.h"

#include <algorithm>

#include "host/Core.h"

namespace host {

using automation::Value;

namespace {

[[noreturn]] void objectDeleted() {
    throw automation::Error(5825, L"Object has been deleted.", L"Microsoft Word");
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
    : Automated(core), path_(std::move(path)), installed_(installed) {}

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
    return text::equalsIgnoringCase(file->name(), fileNameOf(name));
}

void WordFiles::noSuchName() {
    throw automation::Error(5941, L"The requested member of the collection does not exist.",
                            L"Microsoft Word");
}

Value WordFiles::add(Arguments arguments) {
    const std::wstring path = arguments.text(0);
    if (const auto known = find(path)) {
        return known->object();
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

WordApplication::WordApplication(Core& core) : Automated(core), files_(core.make<WordFiles>()) {}

void WordApplication::checkUsable() const {
    if (quit_) {
        raise::outlookGone();
    }
}

automation::Object WordApplication::windows() const {
    return core().makeObject<WordWindows>(documents_.size());
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

void WordApplication::quit() {
    while (!documents_.empty()) {
        closed(*documents_.back());
    }
    quit_ = true;
}

constinit const Members<WordApplication> WordApplication::members = {
    {.name = L"Name", .get = [](WordApplication&, Arguments) { return Value(L"Microsoft Word"); }},
    {.name = L"Run",
     .id = 445,
     .call =
         [](WordApplication& word, Arguments arguments) {
             const auto& macro = word.core().wordMacro;
             if (!macro) {
                 throw automation::Error(1004, L"Unable to run the specified macro", L"Microsoft Word");
             }
             return macro(arguments.text(0), arguments.from(1));
         },
     .least = 1,
     .most = 31},
    {.name = L"AddIns", .id = 22, .get = use<&WordApplication::files_>},
    {.name = L"Templates", .id = 67, .get = use<&WordApplication::files_>},
    {.name = L"Windows", .get = use<&WordApplication::windows>},
    {.name = L"Documents", .get = use<&WordApplication::windows>},
    {.name = L"ActiveDocument",
     .get =
         [](WordApplication& word, Arguments) {
             if (word.documents_.empty()) {
                 throw automation::Error(4248, L"This command is not available because no document is open.",
                                         L"Microsoft Word");
             }
             return Value(word.documents_.back()->object());
         }},
    {.name = L"Quit", .call = use<&WordApplication::quit>, .most = 3},
};

constinit const Members<WordWindows> WordWindows::members = {
    {.name = L"Count", .get = use<&WordWindows::count_>},
};

}  // namespace host
