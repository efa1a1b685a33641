#pragma once

#include "addin/Connect.h"
#include "host/Outlook.h"
#include "platform/native/MemoryPorts.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"

/// A native world whose user is asked nothing but what a benchmark has an answer for.
class BenchWorld {
  public:
    explicit BenchWorld(host::Profile profile = {}, platform::AnswerList answers = {})
        : outlook(std::move(profile)), desktop(std::move(answers), observer) {
        globals.outlook = outlook::Application(outlook.application());
        settings.write(L"ShowStartupWizard", L"False");
        settings.write(L"LastCheckUpdateDate", L"DoNotCheck");
    }

    void connect() {
        connection.OnConnection(outlook.application(), 1, outlook.makeAddIn(L"Veltro.Connect"));
    }
    bool wasPrompted() const { return desktop.unanswered().has_value(); }

    struct NoObserver : platform::PromptObserver {
        void message(const platform::MessagePrompt&, std::optional<platform::Answer>) override {}
        void form(const platform::FormPrompt&, const std::optional<platform::FormAnswer>&) override {}
        void folder(const platform::FolderPrompt&, const std::optional<platform::FolderAnswer>&) override {}
        void beep() override {}
    };

    host::Outlook outlook;
    NoObserver observer;
    platform::native::ScriptedDesktop desktop;
    platform::native::SystemClock clock;
    platform::native::MemoryPorts ports{outlook.automation(), desktop, clock};
    platform::MemorySettingsStore& settings = ports.settings;
    mail::Globals globals{ports.platform};
    addin::Connect connection{ports.platform};
};
