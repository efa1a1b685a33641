#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Collection.h"

namespace host {

/// One entry of Application.COMAddIns: what OnConnection gets as AddInInst.
class AddIn : public Automated<AddIn> {
  public:
    static constexpr std::wstring_view defaultName = L"Description";
    static const Members<AddIn> members;

    AddIn(Core& core, std::wstring progId, std::wstring description);

    std::wstring className() const override { return L"COMAddIn"; }
    const std::wstring& progId() const noexcept { return progId_; }
    void releaseObject() { object_ = {}; }

  private:
    std::wstring progId_;
    std::wstring description_;
    bool connected_ = true;
    automation::Object object_;
};

/// Application.COMAddIns.
class AddIns : public Collection<AddIns> {
  public:
    static constexpr auto noSuchName = raise::outOfBounds;
    static const Members<AddIns> members;

    explicit AddIns(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"COMAddIns"; }
    const std::vector<std::shared_ptr<AddIn>>& list() const noexcept { return list_; }
    static bool isNamed(const std::shared_ptr<AddIn>& addIn, std::wstring_view progId) {
        return text::equalsIgnoringCase(addIn->progId(), progId);
    }
    AddIn& add(const std::wstring& progId, const std::wstring& description);
    /// Drops what the add-ins put into Object.
    void releaseObjects();

  private:
    std::vector<std::shared_ptr<AddIn>> list_;
};

}  // namespace host
