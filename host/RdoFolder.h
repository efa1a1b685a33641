#pragma once

#include <memory>
#include <string>
#include <utility>

#include "host/Automated.h"

namespace host {

class Folder;

/// RDOFolder: Redemption's view of a folder.
class RdoFolder : public Automated<RdoFolder> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<RdoFolder> members;

    RdoFolder(Core& core, std::shared_ptr<Folder> folder) : Automated(core), folder_(std::move(folder)) {}

    std::wstring className() const override { return L"RDOFolder"; }
    void checkUsable() const override;

  private:
    std::shared_ptr<Folder> folder_;
};

/// RDOFolder.Items.
class RdoItems : public Automated<RdoItems> {
  public:
    static constexpr std::wstring_view defaultName = L"Count";
    static const Members<RdoItems> members;

    RdoItems(Core& core, std::shared_ptr<Folder> folder) : Automated(core), folder_(std::move(folder)) {}

    std::wstring className() const override { return L"RDOItems"; }
    void checkUsable() const override;

  private:
    std::shared_ptr<Folder> folder_;
};

}  // namespace host
