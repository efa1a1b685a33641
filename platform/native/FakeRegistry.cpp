#include "platform/native/FakeRegistry.h"

#include <algorithm>

#include "platform/characters.h"
#include "platform/text.h"

namespace platform::native {

namespace {

FakeRegistry::Values::iterator findValue(FakeRegistry::Values& values, const std::wstring& name) {
    return std::ranges::find_if(values, [&name](const FakeRegistry::Value& value) {
        return text::equalsIgnoringCase(value.name, name);
    });
}

class FakeKey : public RegistryKey {
  public:
    explicit FakeKey(std::shared_ptr<FakeRegistry::Contents> contents) : contents_(std::move(contents)) {}

    std::int32_t query(const std::wstring& name, RegistryData& data) override {
        if (!contents_) {
            return FakeRegistry::invalidHandle;
        }
        const auto found = findValue(contents_->values, name);
        if (found == contents_->values.end()) {
            return registry::fileNotFound;
        }
        data = found->data;
        return registry::success;
    }

    std::int32_t enumerate(std::uint32_t index, std::wstring& name, RegistryData& data) override {
        if (!contents_) {
            return FakeRegistry::invalidHandle;
        }
        if (index >= contents_->values.size()) {
            return registry::noMoreItems;
        }
        const FakeRegistry::Value& value = contents_->values[index];
        name = value.name;
        data = value.data;
        return value.status;
    }

    std::int32_t enumerateKey(std::uint32_t index, std::wstring& name) override {
        if (!contents_) {
            return FakeRegistry::invalidHandle;
        }
        if (index >= contents_->keys.size()) {
            return registry::noMoreItems;
        }
        name = contents_->keys[index];
        return registry::success;
    }

    std::int32_t close() override {
        return std::exchange(contents_, nullptr) ? registry::success : FakeRegistry::invalidHandle;
    }

  private:
    /// Null once closed.
    std::shared_ptr<FakeRegistry::Contents> contents_;
};

void appendUnit(std::vector<std::uint8_t>& bytes, std::uint32_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
}

/// Where a program of 32 bits finds the key.
std::wstring narrow(RootKey root, const std::wstring& path) {
    constexpr std::wstring_view redirected = L"SOFTWARE\\";
    const bool moved = root == RootKey::LocalMachine &&
                       text::equalsIgnoringCase(path.substr(0, redirected.size()), redirected);
    return moved ? std::wstring(redirected) + L"WOW6432Node\\" + path.substr(redirected.size()) : path;
}

}  // namespace

FakeRegistry::Name FakeRegistry::nameOf(RootKey root, const std::wstring& path) {
    std::wstring name = text::upper(path);
    if (name.ends_with(L'\\')) {
        name.pop_back();
    }
    return {root, name};
}

void FakeRegistry::addKey(RootKey root, const std::wstring& path) {
    const Name name = nameOf(root, path);
    if (!keys_.try_emplace(name, std::make_shared<Contents>()).second || name.second.empty()) {
        return;
    }
    const std::wstring written = path.substr(0, name.second.size());
    const auto separator = written.rfind(L'\\');
    const std::wstring above = separator == std::wstring::npos ? L"" : written.substr(0, separator);
    addKey(root, above);
    keys_.at(nameOf(root, above))
        ->keys.push_back(separator == std::wstring::npos ? written : written.substr(separator + 1));
}

void FakeRegistry::setValue(RootKey root, const std::wstring& path, const std::wstring& name,
                            RegistryData data) {
    addKey(root, path);
    Values& values = keys_.at(nameOf(root, path))->values;
    const auto found = findValue(values, name);
    if (found == values.end()) {
        values.push_back({name, std::move(data), registry::success});
    } else {
        found->data = std::move(data);
    }
}

void FakeRegistry::setText(RootKey root, const std::wstring& path, const std::wstring& name,
                           const std::wstring& text) {
    RegistryData data{registry::typeString, {}};
    for (const char16_t unit : text::toUtf16(text)) {
        appendUnit(data.bytes, unit);
    }
    appendUnit(data.bytes, 0);
    setValue(root, path, name, std::move(data));
}

void FakeRegistry::setNumber(RootKey root, const std::wstring& path, const std::wstring& name,
                             std::uint32_t number) {
    RegistryData data{registry::typeNumber, {}};
    appendUnit(data.bytes, number & 0xFFFF);
    appendUnit(data.bytes, number >> 16);
    setValue(root, path, name, std::move(data));
}

void FakeRegistry::failOpen(RootKey root, const std::wstring& path, std::int32_t status) {
    failures_[nameOf(root, path)] = status;
}

void FakeRegistry::failValue(RootKey root, const std::wstring& path, const std::wstring& name,
                             std::int32_t status) {
    findValue(keys_.at(nameOf(root, path))->values, name)->status = status;
}

std::int32_t FakeRegistry::open(RootKey root, const std::wstring& path, std::uint32_t access,
                                std::unique_ptr<RegistryKey>& key) {
    constexpr std::uint32_t views = registry::view32 | registry::view64;
    const Name name = nameOf(root, (access & registry::view32) != 0 ? narrow(root, path) : path);
    if (const auto failure = failures_.find(name); failure != failures_.end()) {
        return failure->second;
    }
    if ((access & ~views) == registry::readAccess && unlisted_.contains(name)) {
        return accessDenied;
    }
    const auto found = keys_.find(name);
    if (found == keys_.end() && !name.second.empty()) {
        return registry::fileNotFound;
    }
    key = std::make_unique<FakeKey>(found == keys_.end() ? std::make_shared<Contents>() : found->second);
    return registry::success;
}

}  // namespace platform::native
