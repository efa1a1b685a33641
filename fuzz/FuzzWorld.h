#pragma once

#include "fuzz/fuzzInput.h"
#include "mail/Globals.h"
#include "platform/native/MemoryPorts.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"

/// The globals of procedures that report their errors. There is no Outlook, and any report ends the run.
class FuzzWorld {
  private:
    struct NoAutomation : automation::Automation {
        automation::Object createObject(std::wstring_view) override { return {}; }
        automation::Object activeObject(std::wstring_view) override { return {}; }
    };
    struct NoPrompts : platform::PromptObserver {
        void message(const platform::MessagePrompt&, std::optional<platform::Answer>) override {
            fuzz::require(false);
        }
        void form(const platform::FormPrompt&, const std::optional<platform::FormAnswer>&) override {
            fuzz::require(false);
        }
        void folder(const platform::FolderPrompt&, const std::optional<platform::FolderAnswer>&) override {
            fuzz::require(false);
        }
        void beep() override {}
    };

    NoAutomation automation_;
    NoPrompts observer_;
    platform::native::ScriptedDesktop desktop_{platform::AnswerList{}, observer_};
    platform::native::SystemClock clock_;
    platform::native::MemoryPorts ports_{automation_, desktop_, clock_};

  public:
    mail::Globals globals{ports_.platform};
};
