#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace host {

class Explorer;
class Explorers;
class Folder;
class HostObject;
class Inspector;
class Inspectors;
class Item;
class Core;

/// What the user answers when a closing window asks whether to save the changes.
enum class SaveAnswer { No, Yes, Cancel };

/// The open windows, in the order in which they were opened and in the order in which they lie on the screen.
class WindowList {
  public:
    explicit WindowList(Core& core) : core_(core) {}
    /// Opens the windows that Outlook starts with; no event tells of them.
    void open(int explorers, int inspectors);

    const std::vector<std::shared_ptr<Explorer>>& explorers() const noexcept { return explorers_; }
    const std::vector<std::shared_ptr<Inspector>>& inspectors() const noexcept { return inspectors_; }
    Explorers& explorerCollection() const { return *explorerCollection_; }
    Inspectors& inspectorCollection() const { return *inspectorCollection_; }
    /// The topmost window, or of its kind; nothing when there is none.
    std::shared_ptr<HostObject> top() const;
    std::shared_ptr<Explorer> topExplorer() const;
    /// The topmost explorer of those that `wanted` accepts.
    std::shared_ptr<Explorer> topExplorer(const std::function<bool(const Explorer&)>& wanted) const;
    std::shared_ptr<Inspector> topInspector() const;
    /// The inspector that shows the item, or nothing.
    std::shared_ptr<Inspector> inspectorOf(const Item& item) const;

    /// NewExplorer, then Activate.
    std::shared_ptr<Explorer> openExplorer(const std::shared_ptr<Folder>& folder);
    /// An inspector that is not shown yet. NewInspector is raised.
    std::shared_ptr<Inspector> makeInspector(const std::shared_ptr<Item>& item);
    /// Shows the item: brings its window to the top or opens one. Nothing when a handler of Open refuses.
    std::shared_ptr<Inspector> show(const std::shared_ptr<Item>& item);
    /// Deactivate of the window on top, Activate of this one; nothing when it is on top already.
    void activate(const std::shared_ptr<HostObject>& window);
    /// Deactivate and Close, then Activate of the window below. The inspector's item is not asked.
    void close(const std::shared_ptr<HostObject>& window);
    /// Item Close first, which can be cancelled; only then is the user asked. True when the window has
    /// closed.
    bool closeInspector(const std::shared_ptr<Inspector>& inspector, SaveAnswer answer);

  private:
    void deactivate(const HostObject& window);

    Core& core_;
    std::shared_ptr<Explorers> explorerCollection_;
    std::shared_ptr<Inspectors> inspectorCollection_;
    std::vector<std::shared_ptr<Explorer>> explorers_;
    std::vector<std::shared_ptr<Inspector>> inspectors_;
    /// The last one is on top.
    std::vector<std::shared_ptr<HostObject>> order_;
    /// Windows whose closing is on its way: a handler's second Close does nothing.
    std::vector<const HostObject*> asked_;
    std::vector<const HostObject*> closing_;
};

}  // namespace host
