#include "mail/OutlookSession.h"
#include "mail/OutlookVersion.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "mail/propertyAccessor.h"

namespace mail {

namespace {

using automation::Object;
namespace tag = propertyAccessor::tag;

[[noreturn]] void cannot() {
    throw automation::Error(automation::errors::memberNotFound,
                            L"Object doesn't support this property or method");
}

/// What no version asks the user about: subjects, attachments and, before it trusted any add-in, bodies.
class Untrusted : public Provider {
  public:
    bool readsPeople() const noexcept override { return false; }
    bool hasAccounts() const noexcept override { return false; }
    /// What was typed in Word is not in Outlook's item before a save.
    bool readsUnsaved() const noexcept override { return false; }
    bool reachesWord() const noexcept override { return false; }

    Object open(const Globals&, const outlook::Item& item, std::int32_t) const override {
        return item.object();
    }
    Object openWindow(const Globals&, const outlook::Inspector&) const override { cannot(); }
    void commit(const Object& item) const override { item.call(L"Save"); }
    std::wstring senderType(const Object&) const override { cannot(); }
    std::wstring senderAddress(const Object&) const override { cannot(); }
    outlook::AddressEntry sender(const Object&) const override { return {}; }
    std::wstring onBehalfType(const Object&) const override { return {}; }
    std::wstring onBehalfAddress(const Object&) const override { return {}; }
    automation::Value deliveryTime(const Object& item) const override {
        // What Outlook says for "none".
        constexpr automation::Date none{949998};
        const automation::Date received = item.get(L"ReceivedTime").toDate();
        return received == none ? automation::Value() : automation::Value(received);
    }
    /// The id of a picture cannot be read; Outlook has made it of the name of its file.
    std::wstring pictureMark(const outlook::Attachment& attachment) const override {
        const std::wstring name = attachment.fileName();
        return name.empty() ? name : L"cid:" + name + L"@";
    }
    std::wstring smtpAddress(const outlook::AddressEntry&) const override { cannot(); }
    std::wstring exchangeAddress(const outlook::AddressEntry&) const override { cannot(); }
    std::unique_ptr<Session> session(const Globals&) const override { cannot(); }
    Object mapiUtils(const Globals&) const override { return {}; }

  protected:
    ~Untrusted() = default;
};

/// Outlook 2003, which trusts add-ins and has no accounts to offer.
class Trusted : public Untrusted {
  public:
    bool readsPeople() const noexcept override { return true; }
    std::wstring senderType(const Object& item) const override {
        return item.get(L"SenderEmailType").toText();
    }
    std::wstring senderAddress(const Object& item) const override {
        return item.get(L"SenderEmailAddress").toText();
    }

  protected:
    ~Trusted() = default;
};

/// Outlook 2007 and later.
class Complete : public Trusted {
  public:
    bool hasAccounts() const noexcept override { return true; }
    bool readsUnsaved() const noexcept override { return true; }
    std::wstring senderType(const Object& item) const override {
        return propertyAccessor::read(item, tag::senderAddressType).toText();
    }
    std::wstring senderAddress(const Object& item) const override {
        return propertyAccessor::read(item, tag::senderAddress).toText();
    }
    /// Mails have a Sender from Outlook 2010 on, posts and reports never.
    outlook::AddressEntry sender(const Object& item) const override {
        if (const auto known = attempt([&] { return item.get(L"Sender").toObject(); }); known && *known) {
            return outlook::AddressEntry(*known);
        }
        const std::wstring id = propertyAccessor::readId(item, tag::senderEntryId);
        if (id.empty()) {
            return {};
        }
        const Object session = item.get(L"Session").toObject();
        return outlook::AddressEntry(session.call(L"GetAddressEntryFromID", id).toObject());
    }
    std::wstring onBehalfType(const Object& item) const override {
        return propertyAccessor::read(item, tag::onBehalfAddressType).toText();
    }
    std::wstring onBehalfAddress(const Object& item) const override {
        return propertyAccessor::read(item, tag::onBehalfAddress).toText();
    }
    std::wstring pictureMark(const outlook::Attachment& attachment) const override {
        return propertyAccessor::read(attachment.object(), tag::contentId).toText();
    }
    std::wstring smtpAddress(const outlook::AddressEntry& entry) const override {
        return propertyAccessor::read(entry.object(), tag::smtpAddress).toText();
    }
    std::wstring exchangeAddress(const outlook::AddressEntry& entry) const override {
        return exchangeAddressOf(entry);
    }
    std::unique_ptr<Session> session(const Globals& globals) const override {
        return outlookSession(globals);
    }

  protected:
    ~Complete() = default;
};

struct UntrustedProvider final : Untrusted {};
struct TrustedProvider final : Trusted {};
struct CompleteProvider final : Complete {};

constinit const UntrustedProvider untrusted;
constinit const TrustedProvider trusted;
constinit const CompleteProvider complete;

}  // namespace

const Provider& untrustedProvider() noexcept {
    return untrusted;
}

const Provider& outlookProvider(const Globals& globals) {
    const OutlookVersion version = outlookVersion(globals);
    if (version >= outlook2007) {
        return complete;
    }
    return version >= outlook2003 ? static_cast<const Provider&>(trusted) : untrusted;
}

}  // namespace mail
