#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/Automated.h"
#include "host/RibbonCommand.h"
#include "host/ribbonXml.h"

namespace host {

/// Office's IRibbonControl: what a callback is told of the control that it is called for.
class RibbonControl : public Automated<RibbonControl> {
  public:
    static constexpr std::wstring_view defaultName = L"Id";
    static const Members<RibbonControl> members;

    RibbonControl(Core& core, std::wstring id, std::wstring tag, std::weak_ptr<HostObject> window)
        : Automated(core), id_(std::move(id)), tag_(std::move(tag)), window_(std::move(window)) {}

    std::wstring className() const override { return L"IRibbonControl"; }

  private:
    /// The window it stands in.
    std::shared_ptr<HostObject> context() const { return window_.lock(); }

    std::wstring id_;
    std::wstring tag_;
    std::weak_ptr<HostObject> window_;
};

/// Office's IRibbonUI, one for each ribbon that was loaded: how an add-in says that answers have changed.
class RibbonUi : public Automated<RibbonUi> {
  public:
    static constexpr std::wstring_view defaultName = L"Invalidate";
    static const Members<RibbonUi> members;

    explicit RibbonUi(Core& core) : Automated(core) {}

    std::wstring className() const override { return L"IRibbonUI"; }

    /// A control in a window, by its id.
    using Place = std::pair<const HostObject*, std::wstring>;
    /// What the callbacks have answered, by the attributes that name them. Kept until the add-in says that it
    /// holds no longer.
    std::map<Place, std::map<std::wstring, automation::Value>> answers;

  private:
    void invalidate() { answers.clear(); }
    void invalidateControl(Arguments arguments);
};

/// The ribbons of the add-ins: which windows have one, what stands in it, and what a press does.
class Ribbons {
  public:
    explicit Ribbons(Core& core) : core_(core) {}

    /// Asks for the ribbon of the main windows at once, before the add-in was connected.
    void add(RibbonAddIn addIn);
    void dropAddIns();
    /// The window is about to be shown: its ribbon is loaded where it is the first of its kind, and drawn.
    void show(const std::shared_ptr<HostObject>& window);
    void closed(const HostObject& window);

    std::vector<RibbonCommand> commands(const std::shared_ptr<HostObject>& window);
    void press(const std::shared_ptr<HostObject>& window, std::wstring_view label);

  private:
    struct AddIn {
        RibbonAddIn offered;
        /// The kinds of windows for which it was asked.
        std::set<std::wstring> asked;
    };
    /// What one add-in has for one kind of windows.
    struct Loaded {
        RibbonAddIn addIn;
        std::wstring ribbonId;
        ribbonXml::Element root;
        std::shared_ptr<RibbonUi> ui;
    };
    /// Where a control stands.
    struct Spot {
        std::shared_ptr<const Loaded> ribbon;
        std::shared_ptr<HostObject> window;
        std::wstring tab;
        std::wstring group;
    };
    struct Drawn {
        RibbonCommand command;
        std::shared_ptr<const Loaded> ribbon;
        const ribbonXml::Element& element;
    };

    void load(const std::wstring& ribbonId);
    void loadFrom(const RibbonAddIn& addIn, const std::wstring& ribbonId);
    std::vector<Drawn> draw(const std::shared_ptr<HostObject>& window);
    void drawTabs(Spot spot, const ribbonXml::Element& parent, std::vector<Drawn>& drawn);
    void drawControls(const Spot& spot, const ribbonXml::Element& parent, std::vector<Drawn>& drawn);
    RibbonCommand describe(const Spot& spot, const ribbonXml::Element& control);
    automation::Value answer(const Spot& spot, const ribbonXml::Element& element, const std::wstring& name);
    std::wstring textOf(const Spot& spot, const ribbonXml::Element& element, const std::wstring& name,
                        const std::wstring& callback);
    bool flagOf(const Spot& spot, const ribbonXml::Element& element, const std::wstring& name,
                const std::wstring& callback);
    automation::Value call(const Spot& spot, const ribbonXml::Element& element, const std::wstring& callback);
    void note(const std::wstring& event, const automation::Error& error);

    Core& core_;
    // Held while one is worked with: inside of a callback the add-in may go.
    std::vector<std::shared_ptr<AddIn>> addIns_;
    std::vector<std::shared_ptr<Loaded>> loaded_;
};

}  // namespace host
