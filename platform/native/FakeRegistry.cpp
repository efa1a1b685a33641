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
    explicit FakeKey(std::shared_ptr<FakeRegistry::Values> values) : values_(std::move(values)) {}

    std::int32_t query(const std::wstring& name, RegistryData& data) override {
        if (!values_) {
            return FakeRegistry::invalidHandle;
        }
        const auto found = findValue(*values_, name);
        if (found == values_->end()) {
            return registry::fileNotFound;
        }
        data = found->data;
        return registry::success;
    }

    std::int32_t enumerate(std::uint32_t index, std::wstring& name, RegistryData& data) override {
        if (!values_) {
            return FakeRegistry::invalidHandle;
        }
        if (index >= values_->size()) {
            return registry::noMoreItems;
        }
        name = (*values_)[index].name;
        data = (*values_)[index].data;
        return (*values_)[index].status;
    }

    std::int32_t close() override {
        return std::exchange(values_, nullptr) ? registry::success : FakeRegistry::invalidHandle;
    }

  private:
    /// Null once closed.
    std::shared_ptr<FakeRegistry::Values> values_;
};

void appendUnit(std::vector<std::uint8_t>& bytes, std::uint32_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
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
    Name name = nameOf(root, path);
    for (;;) {
        keys_.try_emplace(name, std::make_shared<Values>());
        if (name.second.empty()) {
            return;
        }
        const auto separator = name.second.rfind(L'\\');
        name.second.resize(separator == std::wstring::npos ? 0 : separator);
    }
}

void FakeRegistry::setValue(RootKey root, const std::wstring& path, const std::wstring& name,
                            RegistryData data) {
    addKey(root, path);
    Values& values = *keys_.at(nameOf(root, path));
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
    findValue(*keys_.at(nameOf(root, path)), name)->status = status;
}

std::int32_t FakeRegistry::open(RootKey root, const std::wstring& path, std::uint32_t access,
                                std::unique_ptr<RegistryKey>& key) {
    const Name name = nameOf(root, path);
    if (const auto failure = failures_.find(name); failure != failures_.end()) {
        return failure->second;
    }
    if (access == registry::readAccess && unlisted_.contains(name)) {
        return accessDenied;
    }
    const auto found = keys_.find(name);
    if (found == keys_.end() && !name.second.empty()) {
        return registry::fileNotFound;
    }
    key = std::make_unique<FakeKey>(found == keys_.end() ? std::make_shared<Values>() : found->second);
    return registry::success;
}

}  // namespace platform::native
