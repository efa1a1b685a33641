#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "addin/menu.h"
#include "mail/Globals.h"
#include "platform/outlook.h"

namespace addin {

/// Watches one main window and the mail selected in it.
class ExplorerWrap : public std::enable_shared_from_this<ExplorerWrap> {
  public:
    /// What the keeper of the wrappers does for each.
    struct Keeper {
        /// The window has closed: lets the wrapper go.
        std::function<void(const std::shared_ptr<ExplorerWrap>&)> closed;
        /// True when another window's wrapper handles that the watched mail is answered.
        std::function<bool(const ExplorerWrap&)> othersAct;
    };

    ExplorerWrap(mail::Globals& globals, Keeper keeper) : globals_(globals), keeper_(std::move(keeper)) {}

    std::int32_t Key() const { return key_; }
    void setKey(std::int32_t key) { key_ = key; }
    const outlook::Explorer& Explorer() const { return explorer_; }
    void setExplorer(const outlook::Explorer& explorer);
    /// Lets the window go: no event reaches the wrapper any more, even while something holds it.
    void release();

    /// Builds the product's menu in the window, unless it is there already. A window whose menu cannot be
    /// built is guarded all the same; that of a new window can be built from its first Activate on.
    void InitButton();
    /// False from Outlook 2010 on, whose main windows have a ribbon: the menu would not be drawn there.
    bool hasMenu() const { return hasMenu_; }
    /// A command of the menu or the ribbon was chosen; errors are reported.
    static void run(mail::Globals& globals, menu::Command command);

    /// Watches the mail that is selected now, as after a change of the selection. Where that cannot be read,
    /// none.
    void watchSelection();
    /// The mail whose events are watched, or nothing.
    const outlook::Item& watchedItem() const { return mailItem_; }
    /// Compared by id, as one item comes in different objects and many share a subject. Throws
    /// automation::Error.
    bool watches(const outlook::Item& item) const;

    /// True while the user writes this response in the window's reading pane.
    bool writesInline(const outlook::Item& item) const;
    /// The send of which the response's own event was the begin is over.
    void inlineSendEnds() { inlineMail_.reset(); }

    // The commands of the tutorial and the manual, each under its two names.
    void gcmdTWL_Veltro_Tutorial_Click() { gmnuTutorial_Click(); }
    void gmnuTutorial_Click();
    void gmnuHelp_Click();

    /// Reads the subject of the first item selected in the active explorer, which makes Outlook settle the
    /// selection.
    void SetCorrectItemSelection() const;

  private:
    void onExplorerEvent(std::int32_t event, std::span<automation::Value> arguments);
    void watchInline(const outlook::Item& response);
    void onInlineEvent(std::int32_t event, std::span<automation::Value> arguments);
    void m_objExpl_SelectionChange();
    void watch(const outlook::Item& item, std::size_t change);
    void onItemEvent(std::int32_t event, std::span<automation::Value> arguments);
    bool isHarmless(const automation::Error& error) const;
    void m_objExpl_Close();
    static void gcmdTWl_Veltro_List_Click(mail::Globals& globals);
    static void gcmdTWL_Veltro_Settings_Click(mail::Globals& globals);
    static void gcmdTWL_Veltro_CheckUpdate_Click(mail::Globals& globals);
    static void gcmdTWL_Veltro_ContactSupport_Click(mail::Globals& globals);
    static void gcmdTWl_Veltro_About_Click(mail::Globals& globals);
    static void gcmdTWL_Veltro_Help_Click(mail::Globals& globals);
    void openHelpFile(const wchar_t* procedure, const std::wstring& name);
    bool showsOutbox() const;
    outlook::Item selectedMail() const;

    mail::Globals& globals_;
    Keeper keeper_;
    std::int32_t key_ = 0;
    outlook::Explorer explorer_;
    outlook::Item mailItem_;
    /// Counts the changes of the selection.
    std::size_t changes_ = 0;
    bool hasInlineResponses_ = false;
    automation::Subscription explorerEvents_;
    automation::Subscription itemEvents_;
    /// The response in the reading pane, and its send from its Send event on.
    outlook::Item inlineItem_;
    std::shared_ptr<mail::OutgoingMail> inlineMail_;
    automation::Subscription inlineEvents_;
    bool hasMenu_ = true;
    bool buildingMenu_ = false;
    menu::Buttons buttons_;
    std::vector<automation::Subscription> buttonEvents_;
};

}  // namespace addin
