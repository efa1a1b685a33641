#include "host/Word.h"

#include <algorithm>

#include "host/World.h"

namespace host {

using automation::Value;

namespace {

[[noreturn]] void objectDeleted() {
    throw automation::Error(5825, L"Object has been deleted.", L"Microsoft Word");
}

}  // namespace

WordDocument::WordDocument(World& world, std::wstring name, std::weak_ptr<WordApplication> application)
    : Automated(world), name_(std::move(name)), application_(std::move(application)) {}

void WordDocument::checkUsable() const {
    if (closed_) {
        objectDeleted();
    }
}

constinit const Member<WordDocument> WordDocument::table_[] = {
    {.name = L"Name", .get = [](WordDocument& document, Arguments) { return Value(document.name_); }},
    {.name = L"Application",
     .get =
         [](WordDocument& document, Arguments) {
             const auto application = document.application_.lock();
             return Value(application ? application->object() : automation::Object());
         }},
    {.name = L"Saved",
     .get = [](WordDocument& document, Arguments) { return Value(document.saved_); },
     .put = [](WordDocument& document, Arguments, const Value& value) { document.saved_ = value.toBool(); }},
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

std::span<const Member<WordDocument>> WordDocument::members() {
    return table_;
}

WordFile::WordFile(World& world, std::wstring path, bool installed)
    : Automated(world), path_(std::move(path)), installed_(installed) {}

std::wstring WordFile::name() const {
    return path_.substr(path_.find_last_of(L"\\/") + 1);
}

constinit const Member<WordFile> WordFile::table_[] = {
    {.name = L"Name", .id = 0, .get = [](WordFile& file, Arguments) { return Value(file.name()); }},
    {.name = L"FullName", .get = [](WordFile& file, Arguments) { return Value(file.path_); }},
    {.name = L"Installed",
     .id = 4,
     .get = [](WordFile& file, Arguments) { return Value(file.installed_); },
     .put = [](WordFile& file, Arguments, const Value& value) { file.installed_ = value.toBool(); }},
    {.name = L"Saved",
     .get = [](WordFile& file, Arguments) { return Value(file.saved_); },
     .put = [](WordFile& file, Arguments, const Value& value) { file.saved_ = value.toBool(); }},
};

std::span<const Member<WordFile>> WordFile::members() {
    return table_;
}

std::shared_ptr<WordFile> WordFiles::find(std::wstring_view name) const {
    const std::wstring wanted(name.substr(name.find_last_of(L"\\/") + 1));
    const auto found = std::ranges::find_if(
        list_, [&](const auto& file) { return text::equalsIgnoringCase(file->name(), wanted); });
    return found == list_.end() ? nullptr : *found;
}

constinit const Member<WordFiles> WordFiles::table_[] = {
    {.name = L"Count",
     .id = 1,
     .get = [](WordFiles& files, Arguments) { return Value(static_cast<std::int32_t>(files.list_.size())); }},
    {.name = L"Item",
     .id = 0,
     .get =
         [](WordFiles& files, Arguments arguments) {
             if (!arguments[0].holds<std::wstring>()) {
                 return Value(files.list_[position(arguments[0], files.list_.size())]->object());
             }
             const auto found = files.find(arguments.text(0));
             if (!found) {
                 throw automation::Error(5941, L"The requested member of the collection does not exist.",
                                         L"Microsoft Word");
             }
             return Value(found->object());
         },
     .least = 1,
     .most = 1},
    {.name = L"Add",
     .id = 2,
     .call =
         [](WordFiles& files, Arguments arguments) {
             const std::wstring path = arguments.text(0);
             if (const auto known = files.find(path)) {
                 return Value(known->object());
             }
             const bool install = !arguments.has(1) || arguments[1].toBool();
             files.list_.push_back(files.world().make<WordFile>(path, install));
             return Value(files.list_.back()->object());
         },
     .least = 1,
     .most = 2},
};

std::span<const Member<WordFiles>> WordFiles::members() {
    return table_;
}

WordApplication::WordApplication(World& world) : Automated(world), files_(world.make<WordFiles>()) {}

void WordApplication::checkUsable() const {
    if (quit_) {
        raise::outlookGone();
    }
}

std::shared_ptr<WordDocument> WordApplication::open(std::wstring name) {
    documents_.push_back(world().make<WordDocument>(std::move(name), self<WordApplication>()));
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

constinit const Member<WordApplication> WordApplication::table_[] = {
    {.name = L"Name", .get = [](WordApplication&, Arguments) { return Value(L"Microsoft Word"); }},
    {.name = L"Run",
     .id = 445,
     .call =
         [](WordApplication& word, Arguments arguments) {
             const auto& macro = word.world().wordMacro;
             if (!macro) {
                 throw automation::Error(1004, L"Unable to run the specified macro", L"Microsoft Word");
             }
             return macro(arguments.text(0), arguments.from(1));
         },
     .least = 1,
     .most = 31},
    {.name = L"AddIns",
     .id = 22,
     .get = [](WordApplication& word, Arguments) { return Value(word.files_->object()); }},
    {.name = L"Templates",
     .id = 67,
     .get = [](WordApplication& word, Arguments) { return Value(word.files_->object()); }},
    {.name = L"Windows",
     .get = [](WordApplication& word,
               Arguments) { return Value(word.world().makeObject<WordWindows>(word.documents_.size())); }},
    {.name = L"Documents",
     .get = [](WordApplication& word,
               Arguments) { return Value(word.world().makeObject<WordWindows>(word.documents_.size())); }},
    {.name = L"ActiveDocument",
     .get =
         [](WordApplication& word, Arguments) {
             if (word.documents_.empty()) {
                 throw automation::Error(4248, L"This command is not available because no document is open.",
                                         L"Microsoft Word");
             }
             return Value(word.documents_.back()->object());
         }},
    {.name = L"Quit",
     .call =
         [](WordApplication& word, Arguments) {
             while (!word.documents_.empty()) {
                 word.closed(*word.documents_.back());
             }
             word.quit_ = true;
             return Value();
         },
     .most = 3},
};

std::span<const Member<WordApplication>> WordApplication::members() {
    return table_;
}

constinit const Member<WordWindows> WordWindows::table_[] = {
    {.name = L"Count",
     .get = [](WordWindows& windows, Arguments) { return Value(static_cast<std::int32_t>(windows.count_)); }},
};

std::span<const Member<WordWindows>> WordWindows::members() {
    return table_;
}

}  // namespace host
