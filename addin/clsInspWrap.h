#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "mail/Globals.h"
#include "platform/outlook.h"

namespace mail {
class OutgoingMail;
}

namespace addin {

/// Watches one item window and its item; of the item's properties the one of its class is set.
///
/// Outlook tells of the closing of an item before it asks whether to save the changes, and other add-ins may
/// refuse the closing, too. So the wrapper goes on listening after its item's Close until its window's.
class clsInspWrap : public std::enable_shared_from_this<clsInspWrap> {
  public:
    /// What the keeper of the wrappers does when it is told what became of the window.
    struct Keeper {
        using Told = std::function<void(const std::shared_ptr<clsInspWrap>&)>;
        Told activated;
        /// The window is about to close, too, but may stay open all the same.
        Told itemCloses;
        Told closed;
    };

    clsInspWrap(mail::Globals& globals, Keeper keeper) : globals_(globals), keeper_(std::move(keeper)) {}

    std::int32_t Key() const { return key_; }
    void setKey(std::int32_t key) { key_ = key; }
    const outlook::Inspector& Inspector() const { return inspector_; }
    const outlook::Item& item() const { return item_; }
    /// True once the window was one of Word's, as far as anybody has looked.
    bool editedInWord() const { return inWord_; }

    void setInspector(const outlook::Inspector& inspector);
    void setMailItem(const outlook::Item& item);
    void setContactItem(const outlook::Item& item) { item_ = item; }
    void setPostItem(const outlook::Item& item) { item_ = item; }
    void setTaskItem(const outlook::Item& item) { item_ = item; }
    /// An item of a class that has no property of its own.
    void setOtherItem(const outlook::Item& item) { item_ = item; }

    /// True once the window was on the screen: such a window tells when it closes.
    bool wasShown() const { return shown_; }
    /// True when nothing can come of the window any more: it cannot be reached, or its item was moved,
    /// deleted or sent.
    bool isAbandoned() const;
    /// No event reaches the wrapper any more, even while something holds it.
    void release();

  private:
    automation::EventSink sink(void (clsInspWrap::*handler)(std::int32_t, std::span<automation::Value>));
    void onInspectorEvent(std::int32_t event, std::span<automation::Value> arguments);
    void onMailEvent(std::int32_t event, std::span<automation::Value> arguments);
    void m_ObjMail_Send(bool& cancel);
    void onAnswered(std::int32_t event, std::span<automation::Value> arguments);
    bool isActiveInspector() const;
    void activated();
    void prepareWord();
    void itemCloses();
    void close();

    mail::Globals& globals_;
    Keeper keeper_;
    std::int32_t key_ = 0;
    outlook::Inspector inspector_;
    outlook::Item item_;
    bool shown_ = false;
    bool inWord_ = false;
    bool sending_ = false;
    /// The item on its way out, from its Send on.
    std::shared_ptr<mail::OutgoingMail> outgoing_;
    automation::Subscription inspectorEvents_;
    automation::Subscription mailEvents_;
};

}  // namespace addin
