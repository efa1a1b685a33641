#pragma once

#include <memory>
#include <string>

#include "host/Automated.h"
#include "host/ItemContent.h"

namespace host {

class Folder;
struct MsgFile;

/// RDOMail of a message that no folder has yet: that of a file, or a new one before its first save. What is
/// changed after that is refused.
class RdoMessage : public Automated<RdoMessage> {
  public:
    static constexpr std::wstring_view defaultName = L"Subject";
    static const Members<RdoMessage> members;

    /// A new draft, which nobody has to read.
    RdoMessage(Core& core, const std::wstring& messageClass, std::shared_ptr<Folder> folder);
    RdoMessage(Core& core, const MsgFile& file);

    std::wstring className() const override { return L"RDOMail"; }
    /// The content, to be changed. Throws once the message is saved.
    ItemContent& changeable();

  private:
    void copyTo(Arguments arguments);
    void save();

    ItemContent content_;
    /// None has a file's.
    std::shared_ptr<Folder> folder_;
    bool saved_ = false;
};

}  // namespace host
