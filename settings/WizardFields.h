#pragma once

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

#include "mail/Globals.h"
#include "settings/encodings.h"
#include "settings/wizardSteps.h"

namespace settings {

/// The pages after the first.
struct WizardSteps {
    WizardSteps(forms::Container& form, mail::Globals& globals)
        : reply(form),
          subject(form, globals),
          attachment(form, globals),
          account(form),
          sendConfirm(form, globals),
          delay(form, globals),
          ownAddresses(form, globals) {}

    ReplyStep reply;
    SubjectStep subject;
    AttachmentStep attachment;
    AccountStep account;
    SendConfirmStep sendConfirm;
    DelayStep delay;
    OwnAddressesStep ownAddresses;
};

/// Which controls edit which setting, once: loading, saving and locking all go over this table.
class WizardFields {
  public:
    WizardFields(mail::Globals& globals, WizardSteps& steps);

    void load() const;
    /// In the order of the table. A setting that cannot be written does not keep the others from it.
    void save() const;
    /// Enables or disables what the locked field governs; a name that is none changes nothing.
    void EnableControl(std::wstring_view lockedField, bool enabled) const;

  private:
    struct Row {
        /// By its name in the lock.
        const wchar_t* lockedField;
        std::vector<forms::Control*> controls;
        std::function<void()> load;
        std::function<void()> save;
    };
    using Options = std::initializer_list<std::pair<forms::OptionButton*, std::int16_t>>;

    void add(const wchar_t* lockedField, const modRegKeys::TextFlag& setting, forms::CheckBox& box);
    void add(const wchar_t* lockedField, const modRegKeys::WholeNumber& setting, forms::TextBox& box);
    void add(const wchar_t* lockedField, const modRegKeys::Text& setting, forms::TextBox& box);
    /// With none selected nothing is written.
    template <class Setting>
    void add(const wchar_t* lockedField, const Setting& setting, Options options);
    void add(const wchar_t* lockedField, const modRegKeys::Text& setting, EditedList& list);
    /// While none were ever stored, and none could be found either, there is nothing to write.
    void add(const wchar_t* lockedField, const modRegKeys::OwnAddresses& setting, EditedList& list);

    void addReplies(ReplyStep& step);
    void addSubjects(SubjectStep& step);
    void addSending(WizardSteps& steps);

    mail::Globals& globals_;
    std::vector<Row> rows_;
};

}  // namespace settings
