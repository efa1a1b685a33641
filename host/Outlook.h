#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Message.h"
#include "host/Meter.h"
#include "host/Profile.h"
#include "host/RibbonCommand.h"
#include "platform/automation.h"

namespace host {

class Core;
class HostObject;
class Item;

enum class ReplyKind { Reply, ReplyAll, Forward };

/// A recipient as an item holds it.
struct RecipientView {
    /// 0 originator, 1 To, 2 CC, 3 BCC.
    int type = 1;
    Address address{};
    bool resolved = true;
};

/// An item as it stands now, read without automation calls.
struct ItemView {
    int itemClass = itemClass::mail;
    std::wstring subject{};
    std::wstring body{};
    std::wstring html{};
    std::vector<RecipientView> recipients{};
    std::vector<Attachment> attachments{};
    /// None when the item has no deferred time.
    std::optional<automation::Date> deferred{};
    /// The name of the account that the item leaves, or has left, with: the one stamped on it, else the
    /// chosen one, else the default account.
    std::wstring account{};
    std::map<std::wstring, std::wstring> userProperties{};
    /// Empty when the item was never saved.
    std::wstring entryId{};
    /// The folder's path ("\\Personal Folders\Drafts"); empty when the item was never saved or was deleted.
    std::wstring folderPath{};
    bool unread = false;
    /// What made the item, when it answers another one.
    std::optional<ReplyKind> answers{};
};

enum class SendState {
    /// Moved to Sent Items.
    Sent,
    /// In the Outbox until its deferred time.
    Deferred,
    /// A handler or Outlook itself said no; the window, if there is one, is still open.
    Cancelled
};

struct SendOutcome {
    SendState state = SendState::Cancelled;
    /// The item after the send. `state == Cancelled` leaves it a draft.
    automation::Object item{};
    ItemView mail;
    /// What Outlook told the user when it was Outlook that said no, e.g. of unresolved recipients.
    std::wstring failure{};
};

struct ReplyOutcome {
    /// False when a handler cancelled the reply.
    bool opened = false;
    /// The response that opened and its window; nothing when cancelled.
    automation::Object item;
    automation::Object inspector;
    /// Every window that opened meanwhile, the response's included: a handler may cancel a reply and show
    /// another item in its place.
    std::vector<automation::Object> newInspectors;
};

/// An error that an event handler let escape. Outlook goes on as if the handler had done nothing.
struct HandlerError {
    /// The event, e.g. "ItemSend".
    std::wstring event{};
    std::int32_t number = 0;
    std::wstring description{};
};

/// A running Outlook in memory: its objects as automation objects, and its user.
///
/// Members below `application()` act as the user does at the screen. They raise Outlook's events, count as no
/// automation call and are never failed by failCall. They throw automation::Error when a real user could not
/// do this either (a window that is closed, an item that is gone). Handles are plain automation objects, to
/// be compared with ==. One thread only.
class Outlook {
  public:
    /// `now` gives the local time; without it the time stands still at 1 January 2024, 12:00.
    explicit Outlook(Profile profile, std::function<automation::Date()> now = {});
    ~Outlook();
    Outlook(const Outlook&) = delete;
    Outlook& operator=(const Outlook&) = delete;

    /// Makes the Redemption objects, "Outlook.Application" and "Word.Application" by ProgID.
    automation::Automation& automation();
    automation::Object application();
    /// As the application tells it.
    const std::wstring& version() const;
    /// A loaded add-in in Application.COMAddIns, for OnConnection's AddInInst; made on the first call for
    /// this ProgID.
    automation::Object makeAddIn(const std::wstring& progId, const std::wstring& description = {});

    // Windows. The window on top is the active one.
    automation::Object openExplorer();
    void closeExplorer(const automation::Object& explorer);
    /// Raises the item's Close and the inspector's Deactivate and Close. `save` saves the item in between.
    void closeInspector(const automation::Object& inspector, bool save = false);
    /// Closes the window of a changed item and presses Cancel when asked whether to save: after the item's
    /// Close everything stays as it was, and no event tells so.
    void cancelClosing(const automation::Object& inspector);
    void activate(const automation::Object& window);
    /// Selects items in an explorer, after its folder where that changes. SelectionChange comes twice.
    void select(const automation::Object& explorer, const std::vector<automation::Object>& items);
    /// Shows another folder in an explorer; `path` as in Profile::folders.
    void switchFolder(const automation::Object& explorer, const std::wstring& path);
    std::vector<automation::Object> explorers() const;
    /// In the order in which they were opened.
    std::vector<automation::Object> inspectors() const;
    automation::Object itemOf(const automation::Object& inspector) const;
    /// Presses a command bar control of an explorer, found by its captions from the menu bar on ("&"
    /// ignored). From version 15 on Outlook draws none.
    void pressControl(const automation::Object& explorer, const std::vector<std::wstring>& captions);

    // The ribbon, of explorers from version 14 on and of item windows from version 12 on.
    /// An add-in was loaded, and is not connected yet. It is asked for the ribbon of explorers now, and for
    /// that of each kind of item windows when the first of them opens. What cannot be loaded goes to
    /// errors().
    void addRibbon(RibbonAddIn addIn);
    /// The add-ins' objects have been let go.
    void dropRibbons();
    /// What add-ins show in the window's ribbon. Their answers are kept until they say that one no longer
    /// holds.
    std::vector<RibbonCommand> ribbon(const automation::Object& window);
    void pressRibbon(const automation::Object& window, const std::wstring& label);
    /// Chooses a command of an explorer's menu, found as by pressControl, or from version 14 on the one of
    /// the same name in its ribbon.
    void choose(const automation::Object& explorer, const std::vector<std::wstring>& captions);

    // Items.
    /// Opens a new item in a window, filled as the user types it; it is not saved. Gives the inspector, or
    /// nothing when a handler refused to open it.
    automation::Object openNewMail(const Message& message);
    automation::Object openItem(const automation::Object& item);
    /// Delivers a message to the Inbox.
    automation::Object receive(const Message& message);
    /// Puts an item into a folder, as it was when Outlook started; the folder is made when missing.
    automation::Object store(const std::wstring& folder, const Message& message);
    /// The items of a folder, oldest first; nothing for a folder that does not exist.
    std::vector<automation::Object> itemsIn(const std::wstring& folder) const;
    bool folderExists(const std::wstring& folder) const;
    /// The fields that user properties have added to the folder.
    std::set<std::wstring> fieldsOf(const std::wstring& folder) const;
    void deleteItem(const automation::Object& item);
    ItemView view(const automation::Object& item) const;
    /// The user types over the subject or the body in an open item.
    void typeSubject(const automation::Object& item, const std::wstring& subject);
    void typeBody(const automation::Object& item, const std::wstring& body);
    /// The user saves an item, of which Outlook stores what it has changed itself.
    void saveItem(const automation::Object& item);
    /// Another Outlook on the same mailbox writes a body. An item with changes of this Outlook's own that are
    /// not saved cannot be saved any more; it shows what is stored once the folder has given it out anew.
    void writeBodyElsewhere(const automation::Object& item, const std::wstring& body);

    // Sending and answering.
    /// Presses Send in the window: item Send, Application ItemSend, item Write, item Close, inspector
    /// Deactivate and Close, Activate of the window below.
    SendOutcome send(const automation::Object& inspector);
    /// A program's .Send: no window is closed that is not the item's.
    SendOutcome sendByProgram(const automation::Object& item);
    /// Presses the button in the item's window when it is open, else in the topmost explorer that shows it.
    ReplyOutcome reply(const automation::Object& item);
    ReplyOutcome replyAll(const automation::Object& item);
    ReplyOutcome forward(const automation::Object& item);
    ReplyOutcome answer(ReplyKind kind, const automation::Object& item);
    /// Presses the button in this window, an explorer in which the item is selected or its inspector,
    /// wherever else the item may be open.
    ReplyOutcome answerIn(const automation::Object& window, ReplyKind kind, const automation::Object& item);
    /// The same in the reading pane of an explorer, where the response is then written; from version 15 on.
    /// The explorer's InlineResponse tells of it.
    ReplyOutcome answerInline(const automation::Object& explorer, ReplyKind kind,
                              const automation::Object& item);
    /// Presses Send above the explorer's inline response.
    SendOutcome sendInline(const automation::Object& explorer);
    /// Pops it out into a window of its own: InlineResponseClose, then NewInspector. Gives the inspector.
    automation::Object popOut(const automation::Object& explorer);
    void discardInline(const automation::Object& explorer);
    /// Closes all windows and raises Application.Quit.
    void quit();
    /// Raises Application.Quit with the windows still open.
    void announceQuit();

    // Word, which edits the mails of a profile whose editor it is. Its Run runs the macros of the templates
    // that were loaded into it.
    /// The user opens a document of their own.
    automation::Object openWordDocument(const std::wstring& name);
    /// The user starts Word, or brings up the one that runs.
    void startWord();
    bool wordRuns() const;
    /// Word ends, without being asked to: in a crash, say.
    void endWord();
    /// True when Word would ask at its end whether to save a template.
    bool wordAsksToSaveTemplates() const;
    /// Calls `tell` with Word's application when it starts, and with nothing when it ends.
    void onWord(std::function<void(const automation::Object&)> tell);
    /// What macros get from CreateObject for a class that is not the simulated Outlook's.
    void registerForMacros(const std::wstring& progId, std::function<automation::Object()> make);
    /// Has macros run elsewhere: in a process of Word's own. Called with the template's path, the macro's
    /// name and references to copies of its arguments.
    using RunMacro = std::function<automation::Value(
        const std::wstring& templatePath, const std::wstring& name, std::span<const automation::Value>)>;
    void runMacrosBy(RunMacro run);
    /// Plays all macros: called with the macro's name and its very arguments, references included.
    using WordMacro =
        std::function<automation::Value(const std::wstring& name, std::span<const automation::Value>)>;
    void onWordMacro(WordMacro macro);

    /// The calls that Outlook's guard has refused, as "Class.Member", oldest first.
    const std::vector<std::wstring>& guardPrompts() const;

    // Measuring. See Meter; it may be kept beyond the Outlook's end.
    std::shared_ptr<Meter> meter() const;
    std::size_t calls() const;
    std::size_t liveObjects() const;
    void failCall(std::size_t n, std::size_t count = 1);
    void duringCall(std::size_t n, std::function<void()> action);
    const std::vector<HandlerError>& errors() const;

  private:
    template <class Open>
    ReplyOutcome respond(HostObject& window, ReplyKind kind, Item& answered, const Open& open);

    std::shared_ptr<Core> core_;
    std::unique_ptr<automation::Automation> automation_;
};

}  // namespace host
