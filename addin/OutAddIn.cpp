#include "addin/OutAddIn.h"

#include "addin/eventArguments.h"
#include "mail/basWordMail.h"

namespace addin {

void OutAddIn::Initialise(const outlook::Application& application, const std::wstring& progId) {
    globals_.outlook = application;
    objOutlook_ = application;
    applicationEvents_ = automation::subscribe(
        application.object(), outlook::events::application,
        [self = weak_from_this()](std::int32_t event, std::span<automation::Value> arguments) {
            // Held: the user may take the add-in off while a question is open.
            const auto addIn = self.lock();
            if (addIn && event == outlook::events::applicationQuit) {
                addIn->objOutlook_Quit();
            } else if (addIn && event == outlook::events::applicationItemSend) {
                const outlook::Item item(eventArguments::at(arguments, 0).toObject());
                eventArguments::Cancel cancel(eventArguments::at(arguments, 1));
                addIn->objOutlook_ItemSend(item, cancel.flag());
            }
        });
    progId_ = progId;
    initialised_ = true;
}

void OutAddIn::UnInitialise() {
    applicationEvents_.end();
    globals_.outlook = {};
    objOutlook_ = {};
    wrappers_.release();
    globals_.sendAccounts.reset();
    initialised_ = false;
}

/// No document is closed: a window that is not counted may be the one that the user goes on writing in.
void OutAddIn::lastWindowCloses(const outlook::Inspector& closing) {
    if (wrappers_.editedInWord()) {
        basWordMail::QuitUnusedWord(globals_, closing);
    }
    UnInitialise();
}

/// A Word that no mail was edited in is none of the add-in's business.
void OutAddIn::objOutlook_Quit() {
    if (wrappers_.editedInWord()) {
        basWordMail::CloseWord(globals_);
    }
}

}  // namespace addin
