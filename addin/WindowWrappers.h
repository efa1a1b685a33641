#pragma once

#include <memory>
#include <string>

#include "addin/WrapperCollection.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

class ExplorerWrap;
class clsInspWrap;

/// One wrapper for each open main window (explorer) and item window (inspector). A wrapper lives until its
/// window closes; the collection holds the last reference.
class WindowWrappers {
  public:
    explicit WindowWrappers(basGlobals::Globals& globals) : globals_(globals) {}

    void AddExpl(const outlook::Explorer& explorer);
    void KillExpl(std::int32_t key, std::shared_ptr<ExplorerWrap>& wrapper);
    /// Takes the product's menu from every main window.
    void RemoveExplMenu() const;
    /// `itemClass` is the class of the inspector's current item. Returns the wrapper's key as text.
    std::wstring AddInsp(const outlook::Inspector& inspector, const outlook::Item& item,
                         std::int32_t itemClass);
    void KillInsp(std::int32_t key, std::shared_ptr<clsInspWrap>& wrapper);

    const WrapperCollection<ExplorerWrap>& explorers() const { return explorers_; }
    const WrapperCollection<clsInspWrap>& inspectors() const { return inspectors_; }

    void release();

  private:
    basGlobals::Globals& globals_;
    WrapperCollection<ExplorerWrap> explorers_;
    WrapperCollection<clsInspWrap> inspectors_;
};
