#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Automated.h"

namespace host {

/// One entry of Application.COMAddIns: what OnConnection gets as AddInInst.
class AddIn : public Automated<AddIn> {
  public:
    static constexpr std::wstring_view defaultName = L"Description";
    static std::span<const Member<AddIn>> members();

    AddIn(World& world, std::wstring progId, std::wstring description);

    std::wstring className() const override { return L"COMAddIn"; }
    const std::wstring& progId() const noexcept { return progId_; }
    void releaseObject() { object_ = {}; }

  private:
    static const Member<AddIn> table_[];
    std::wstring progId_;
    std::wstring description_;
    bool connected_ = true;
    automation::Object object_;
};

/// Application.COMAddIns.
class AddIns : public Automated<AddIns> {
  public:
    static std::span<const Member<AddIns>> members();

    explicit AddIns(World& world) : Automated(world) {}

    std::wstring className() const override { return L"COMAddIns"; }
    AddIn& add(const std::wstring& progId, const std::wstring& description);
    /// Drops what the add-ins put into Object.
    void releaseObjects();

  private:
    static const Member<AddIns> table_[];
    std::shared_ptr<AddIn> find(std::wstring_view progId) const;

    std::vector<std::shared_ptr<AddIn>> list_;
};

}  // namespace host
