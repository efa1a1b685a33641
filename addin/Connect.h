#pragma once

#include <memory>

#include "addin/OutAddIn.h"
#include "addin/Ribbon.h"
#include "addin/Surroundings.h"
#include "addin/WindowWrappers.h"
#include "platform/FunctionTarget.h"
#include "platform/outlook.h"
#include "settings/SettingsFileReader.h"
#include "update/frmCheckingUpdatesTimer.h"

namespace addin {

/// The add-in as Outlook connects it: the single start-up and shut-down path of the system. Lives on
/// Outlook's user-interface thread from OnConnection to OnDisconnection; Outlook 2010 and later may skip the
/// latter when they shut down fast, so nothing depends on it.
class Connect {
  public:
    explicit Connect(const platform::Platform& ports) : around_(ports), wrappers_(globals_) {}
    Connect(const Connect&) = delete;
    Connect& operator=(const Connect&) = delete;
    ~Connect();

    /// Starts the add-in up. Throws automation::Error when a step fails that is not to be skipped; what was
    /// started by then goes on working.
    void OnConnection(const automation::Object& application, int connectMode,
                      const automation::Object& addInInst);
    void OnDisconnection(int removeMode);

    /// The product's part of the ribbon in windows of a kind; empty when there is none. Outlook asks for it
    /// before the connection, too; after the disconnection there is none.
    std::wstring GetCustomUI(const std::wstring& ribbonId);
    automation::Object ribbonCallbacks() const { return ribbon_.callbacks(); }

    /// Whether the setting wants the tutorial; it has no further effect, the menu's commands open it.
    bool TutorialScreen() const;

    // For the add-in's part in Word's process, which reaches this one by Outlook's list of add-ins.

    /// The shared list of preferred accounts.
    automation::Object WordEditorVariablesGet();
    /// What was answered there. Throws automation::Error when the list's answers cannot be read.
    void WordEditorVariablesSet(bool cancel, const automation::Object& list);

    const WindowWrappers& wrappers() const { return wrappers_; }
    const mail::Trace& trace() const { return around_.trace; }

  private:
    /// The add-in as Outlook's list of add-ins gives it to other programs.
    automation::Object exposed();
    void unexpose();
    bool takeHoldOfOutlook();
    bool hasNoWindow() const;
    void initialiseOutAddIn();
    /// False when none is open.
    bool wrapOpenExplorers();
    void wrapOpenInspectors();
    /// Where its item is of a class that is watched.
    void wrapInspector(const outlook::Inspector& inspector);
    void openAccountList();
    void refreshEmailList();

    void setExplorer(const outlook::Explorer& explorer);
    void setInspector(const outlook::Inspector& inspector);
    void objExpl_Close();
    void objInsp_Close();
    void colExpl_NewExplorer(const outlook::Explorer& explorer);
    void colInsp_NewInspector(const outlook::Inspector& inspector);
    void ensureOutAddIn();
    void tellOfMissingLibrary();

    Surroundings around_;
    mail::Globals& globals_ = around_.globals;
    WindowWrappers wrappers_;
    Ribbon ribbon_{globals_};
    settings::SettingsFileReader settingsFile_;
    /// Kept beside the global one, which goes with the last window and must come back with the next.
    outlook::Application application_;
    automation::Object addInInst_;
    std::shared_ptr<automation::FunctionTarget> exposed_;
    std::shared_ptr<OutAddIn> outAddIn_;
    std::shared_ptr<update::frmCheckingUpdatesTimer> updateCheck_;
    bool toldOfLibrary_ = false;

    outlook::Explorer objExpl_;
    automation::Subscription objExplEvents_;
    outlook::Collection<outlook::Explorer> colExpl_;
    automation::Subscription colExplEvents_;
    outlook::Inspector objInsp_;
    automation::Subscription objInspEvents_;
    outlook::Collection<outlook::Inspector> colInsp_;
    automation::Subscription colInspEvents_;
};

}  // namespace addin
