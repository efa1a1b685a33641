#include "platform/native/FileResources.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>

#include "platform/files.h"
#include "platform/text.h"

namespace platform::native {

namespace {

struct Contents {
    std::map<std::uint32_t, std::wstring> strings;
    std::set<std::pair<PictureKind, std::uint32_t>> pictures;
    std::map<std::pair<std::wstring, std::uint32_t>, std::vector<std::uint8_t>> data;
};

std::optional<std::uint32_t> parseId(std::string_view text) {
    std::uint32_t id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(id) : std::nullopt;
}

std::optional<PictureKind> pictureKind(std::string_view word) {
    if (word == "bitmap") {
        return PictureKind::Bitmap;
    }
    if (word == "icon") {
        return PictureKind::Icon;
    }
    return word == "cursor" ? std::optional(PictureKind::Cursor) : std::nullopt;
}

/// False when the line is no resource.
bool parseLine(const std::string& line, Contents& contents) {
    const auto cut = line.find('=');
    const std::string value = cut == std::string::npos ? "" : line.substr(cut + 1);
    std::istringstream words(line.substr(0, cut));
    std::string first, second, third, excess;
    words >> first >> second >> third >> excess;
    const bool hasValue = cut != std::string::npos;
    if (const auto id = parseId(first); id && second.empty() && hasValue) {
        contents.strings[*id] = text::fromUtf8(value);
        return true;
    }
    if (const auto kind = pictureKind(first); kind && third.empty() && !hasValue) {
        const auto id = parseId(second);
        return id && contents.pictures.emplace(*kind, *id).second;
    }
    const auto id = parseId(third);
    if (first != "data" || !id || !excess.empty() || !hasValue) {
        return false;
    }
    contents.data[{text::upper(text::fromUtf8(second)), *id}].assign(value.begin(), value.end());
    return true;
}

std::uint32_t parse(std::istream& stream, Contents& contents) {
    bool any = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        if (!parseLine(line, contents)) {
            return FileResources::badFormat;
        }
        any = true;
    }
    return any ? 0 : FileResources::badFormat;
}

class FileLibrary : public ResourceLibrary {
  public:
    FileLibrary(Contents contents, std::shared_ptr<FileResources::Handles> handles,
                std::shared_ptr<std::set<std::uint32_t>> sizes)
        : contents_(std::move(contents)), handles_(std::move(handles)), sizes_(std::move(sizes)) {}

    Handle handle() const override { return reinterpret_cast<Handle>(this); }

    std::wstring string(std::uint32_t id, std::size_t maximumLength) override {
        const auto found = contents_.strings.find(id);
        return found == contents_.strings.end() ? std::wstring() : found->second.substr(0, maximumLength);
    }

    Handle pictureHandle(PictureKind kind, std::uint32_t id, std::uint32_t size) override {
        if (!contents_.pictures.contains({kind, id})) {
            return 0;
        }
        if (kind == PictureKind::Icon) {
            sizes_->insert(size);
        }
        const Handle next = handles_->empty() ? 1 : handles_->rbegin()->first + 1;
        handles_->emplace(next, kind);
        return next;
    }

    std::vector<std::uint8_t> data(std::uint32_t id, const std::wstring& type) override {
        const auto found = contents_.data.find({text::upper(type), id});
        return found == contents_.data.end() ? std::vector<std::uint8_t>() : found->second;
    }

  private:
    Contents contents_;
    std::shared_ptr<FileResources::Handles> handles_;
    std::shared_ptr<std::set<std::uint32_t>> sizes_;
};

/// Can be passed on and told from others, no more.
class OpaqueTarget : public automation::Target {
  public:
    std::int32_t memberId(std::wstring_view) override { throw noMember(); }
    automation::Value invoke(std::int32_t, automation::Access, std::span<const automation::Value>) override {
        throw noMember();
    }
    automation::Subscription subscribe(automation::EventInterface, automation::EventSink) override {
        throw noMember();
    }

  private:
    static automation::Error noMember() {
        return {automation::errors::memberNotFound, L"A picture has no members"};
    }
};

class OpaquePicture : public Picture {
  public:
    OpaquePicture(std::pair<ResourceLibrary::Handle, PictureKind> owned,
                  std::shared_ptr<FileResources::Handles> handles)
        : owned_(std::move(owned)), handles_(std::move(handles)) {}
    OpaquePicture(const OpaquePicture&) = delete;
    OpaquePicture& operator=(const OpaquePicture&) = delete;
    ~OpaquePicture() override { handles_->erase(owned_); }

    automation::Object object() const override {
        return automation::Object(std::make_shared<OpaqueTarget>());
    }

  private:
    std::pair<ResourceLibrary::Handle, PictureKind> owned_;
    std::shared_ptr<FileResources::Handles> handles_;
};

}  // namespace

FileResources::FileResources(const std::wstring& own) {
    std::uint32_t ignored = 0;
    own_ = own.empty() ? nullptr : FileResources::load(own, ignored);
    if (!own_) {
        own_ = std::make_unique<FileLibrary>(Contents{}, handles_, sizes_);
    }
}

std::unique_ptr<ResourceLibrary> FileResources::load(const std::wstring& path, std::uint32_t& systemError) {
    std::error_code error;
    const std::filesystem::path file = filePath(path);
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !std::filesystem::is_regular_file(file, error)) {
        systemError = moduleNotFound;
        return nullptr;
    }
    Contents contents;
    systemError = parse(stream, contents);
    return systemError == 0 ? std::make_unique<FileLibrary>(std::move(contents), handles_, sizes_) : nullptr;
}

std::int32_t FileResources::wrap(PictureKind kind, ResourceLibrary::Handle handle,
                                 std::shared_ptr<Picture>& picture) {
    if (wrapResult_ != 0) {
        return wrapResult_;
    }
    if (!handles_->contains({handle, kind})) {
        return invalidArgument;
    }
    picture = std::make_shared<OpaquePicture>(std::pair(handle, kind), handles_);
    return 0;
}

void FileResources::release(ResourceLibrary::Handle handle) {
    std::erase_if(*handles_, [handle](const auto& owned) { return owned.first == handle; });
}

}  // namespace platform::native
