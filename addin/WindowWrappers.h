#pragma once

#include <deque>
#include <memory>
#include <set>
#include <string>

#include "addin/WrapperCollection.h"
#include "checks/frmTimer.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

namespace addin {

class ExplorerWrap;
class clsInspWrap;

/// One wrapper for each open main window (explorer) and item window (inspector). A wrapper lives until its
/// window closes, or nothing can come of that window any more; the last reference to it is held here.
class WindowWrappers {
  public:
    explicit WindowWrappers(mail::Globals& globals) : globals_(globals) {}

    enum class Window {
        /// Not on the screen yet: Outlook will tell what is selected in it.
        New,
        Open
    };
    void AddExpl(const outlook::Explorer& explorer, Window window = Window::New);
    void KillExpl(std::int32_t key, std::shared_ptr<ExplorerWrap>& wrapper);
    /// Takes the product's menu from every main window.
    void RemoveExplMenu() const;
    /// `itemClass` is the class of the inspector's current item. Returns the wrapper's key as text.
    std::wstring AddInsp(const outlook::Inspector& inspector, const outlook::Item& item,
                         std::int32_t itemClass);
    void KillInsp(std::int32_t key, std::shared_ptr<clsInspWrap>& wrapper);

    /// True when a wrapper, be it one that is set aside, watches this item window.
    bool watches(const outlook::Inspector& inspector) const;
    bool watches(const outlook::Explorer& explorer) const;

    /// The window that shows this very item; nothing when no wrapper watches it.
    outlook::Inspector inspectorOf(const outlook::Item& item) const;
    /// True while the item is written in a main window's reading pane.
    bool writesInline(const outlook::Item& item) const;
    /// No mail is on its way out any more.
    void sendEnds();
    /// True once a mail was edited in a window of Word's.
    bool editedInWord() const;

    const WrapperCollection<ExplorerWrap>& explorers() const { return explorers_; }
    const WrapperCollection<clsInspWrap>& inspectors() const { return inspectors_; }

    void release();

  private:
    bool inspectorActs(const ExplorerWrap& asking) const;
    bool otherExplorerActs(const ExplorerWrap& asking) const;

    /// The wrapper's item closes, and its window is about to: takes the wrapper from the collection, but
    /// keeps it while the window may stay open all the same. Throws as KillInsp does.
    void setAside(const std::shared_ptr<clsInspWrap>& wrapper);
    /// The window stays open: puts a wrapper that was set aside into the collection, under a new key.
    void takeBack(const std::shared_ptr<clsInspWrap>& wrapper);
    /// The window has closed. Throws as KillInsp does.
    void letGo(const std::shared_ptr<clsInspWrap>& wrapper);
    void letGoOfAbandoned();

    mail::Globals& globals_;
    WrapperCollection<ExplorerWrap> explorers_;
    WrapperCollection<clsInspWrap> inspectors_;
    std::set<std::shared_ptr<clsInspWrap>> aside_;
    /// Wrappers of windows that may never tell of their closing: they were not shown yet, or are set aside.
    std::deque<std::weak_ptr<clsInspWrap>> uncertain_;
    /// By a window that is gone.
    bool editedInWord_ = false;
    std::shared_ptr<checks::frmTimer> timer_ = std::make_shared<checks::frmTimer>(globals_);
};

}  // namespace addin
