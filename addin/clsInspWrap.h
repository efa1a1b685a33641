#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "mail/Globals.h"
#include "platform/outlook.h"

class WindowWrappers;

/// Watches one item window and its item. At most one of the items is set, by the item's class.
class clsInspWrap : public std::enable_shared_from_this<clsInspWrap> {
  public:
    clsInspWrap(basGlobals::Globals& globals, WindowWrappers& wrappers, std::int32_t key)
        : globals_(globals), wrappers_(wrappers), key_(key) {}

    std::int32_t Key() const { return key_; }
    const outlook::Inspector& Inspector() const { return inspector_; }
    const outlook::Item& MailItem() const { return mailItem_; }

    void setInspector(const outlook::Inspector& inspector);
    void setMailItem(const outlook::Item& item);
    void setContactItem(const outlook::Item& item) { contactItem_ = item; }
    void setPostItem(const outlook::Item& item) { postItem_ = item; }
    /// No event reaches the wrapper any more, even while something holds it.
    void release();

  private:
    automation::EventSink sink(void (clsInspWrap::*handler)(std::int32_t, std::span<automation::Value>));
    void onInspectorEvent(std::int32_t event, std::span<automation::Value> arguments);
    void onMailEvent(std::int32_t event, std::span<automation::Value> arguments);
    void m_ObjMail_Send(bool& cancel);
    void checkSubject(bool& cancel);
    void onAnswered(std::int32_t event, std::span<automation::Value> arguments);
    void close();

    basGlobals::Globals& globals_;
    WindowWrappers& wrappers_;
    std::int32_t key_;
    outlook::Inspector inspector_;
    outlook::Item mailItem_;
    outlook::Item contactItem_;
    outlook::Item postItem_;
    automation::Subscription inspectorEvents_;
    automation::Subscription mailEvents_;
};
