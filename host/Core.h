#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/EventSource.h"
#include "host/Guard.h"
#include "host/Mailbox.h"
#include "host/Outlook.h"
#include "host/WindowList.h"

namespace host {

class AddIns;
class Application;
class NameSpace;
class Ribbons;
class WordApplication;

/// Everything that one running Outlook holds: the profile, the mailbox, the open windows and the few objects
/// that there is only one of. Owned by Outlook; its objects hold it weakly.
class Core : public std::enable_shared_from_this<Core> {
  public:
    static std::shared_ptr<Core> make(Profile profile, std::function<automation::Date()> now);
    ~Core();

    const Profile& profile() const noexcept { return profile_; }
    /// The number before the first "." of the version.
    int majorVersion() const noexcept { return majorVersion_; }
    Guard& guard() noexcept { return guard_; }
    automation::Date now() const { return now_(); }
    const std::shared_ptr<Meter>& meter() const noexcept { return meter_; }
    /// A new id of an entry, as long as those of Outlook.
    std::wstring nextEntryId();

    Mailbox& mailbox() noexcept { return mailbox_; }
    WindowList& windows() noexcept { return windows_; }
    Application& application() const { return *application_; }
    NameSpace& nameSpace() const { return *nameSpace_; }
    AddIns& addIns() const { return *addIns_; }
    Ribbons& ribbons() const { return *ribbons_; }
    /// Nothing while Word does not run.
    std::shared_ptr<WordApplication> runningWord() const;
    std::shared_ptr<WordApplication> startWord();
    void wordEnds();
    std::function<void(const automation::Object&)> tellOfWord;

    Outlook::WordMacro wordMacro;
    Outlook::RunMacro runMacro;
    /// Classes of others that macros make objects of, by their ProgIDs in upper case.
    std::map<std::wstring, std::function<automation::Object()>> classesForMacros;
    /// Throws automation::Error 429 for a class that is not registered.
    automation::Object createForMacros(const std::wstring& progId) const;

    /// The profile's account of this name, or nothing. Names are compared without regard to case.
    const Account* account(std::wstring_view name) const;
    /// What the account writes into the items it sends; made from its place when the profile gives none.
    std::wstring stampOf(const Account& account) const;
    std::wstring sendStampOf(const Account& account) const;
    Address currentUser() const;
    static Address addressOf(const Account& account);

    /// Raises an event that cannot be cancelled. Errors of handlers go to errors().
    void raise(const EventSource& source, std::wstring_view name, std::int32_t event,
               std::vector<automation::Value> arguments = {});
    /// The same of an event that only the newer event interfaces have.
    void raiseNewer(const EventSource& source, std::wstring_view name, std::int32_t event,
                    std::vector<automation::Value> arguments = {});
    /// Raises an event whose last argument is a cancel flag; true when a handler has set it.
    bool raiseCancellable(const EventSource& source, std::wstring_view name, std::int32_t event,
                          std::vector<automation::Value> arguments = {});
    const std::vector<HandlerError>& errors() const noexcept { return errors_; }
    void noteError(HandlerError error) { errors_.push_back(std::move(error)); }

    template <class T, class... A>
    std::shared_ptr<T> make(A&&... arguments) {
        return std::make_shared<T>(*this, std::forward<A>(arguments)...);
    }
    template <class T, class... A>
    automation::Object makeObject(A&&... arguments) {
        return automation::Object(make<T>(std::forward<A>(arguments)...));
    }

  private:
    Core(Profile profile, std::function<automation::Date()> now);
    void start();
    /// Puts what a handler lets escape into errors().
    EscapedError keepingErrors(std::wstring_view name);

    Profile profile_;
    int majorVersion_ = 0;
    Guard guard_{profile_, majorVersion_};
    std::function<automation::Date()> now_;
    std::shared_ptr<Meter> meter_ = std::make_shared<Meter>();
    std::uint32_t lastEntry_ = 0;
    std::vector<HandlerError> errors_;
    Mailbox mailbox_{*this};
    WindowList windows_{*this};
    std::shared_ptr<Application> application_;
    std::shared_ptr<NameSpace> nameSpace_;
    std::shared_ptr<AddIns> addIns_;
    std::unique_ptr<Ribbons> ribbons_;
    std::shared_ptr<WordApplication> word_;
};

}  // namespace host
