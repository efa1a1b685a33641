#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Outlook.h"
#include "mail/Globals.h"
#include "platform/native/MemoryPorts.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"
#include "program/Answers.h"

/// A native world around a simulated Outlook, for rules that are tested without a whole send.
class TestWorld {
  public:
    struct Log : platform::PromptObserver {
        std::vector<platform::MessagePrompt> messages;
        std::vector<platform::FormPrompt> forms;
        std::vector<std::wstring> folders;
        /// Each as "file|topic|view".
        std::vector<std::wstring> helps;
        std::vector<std::wstring> openedAddresses;
        std::vector<std::wstring> programs;
        int beeps = 0;
        /// What happens while a message box is open.
        std::function<void()> meanwhile;
        /// What happens while a form is open, before its answer.
        std::function<void(const platform::FormPrompt&)> shown;
        /// A form, a help topic, or the message box or folder browser whose text starts so: the
        /// desktop fails to show it once.
        std::wstring failing;
        void message(const platform::MessagePrompt& prompt, std::optional<platform::Answer>) override {
            messages.push_back(prompt);
            show(prompt.text);
            if (meanwhile) {
                meanwhile();
            }
        }
        void form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>&) override {
            forms.push_back(prompt);
            if (shown) {
                shown(prompt);
            }
            show(prompt.form);
        }
        void opened(const platform::WebAddress& address) override {
            openedAddresses.push_back(address.text());
        }
        void started(const std::wstring& program) override { programs.push_back(program); }
        void folder(const platform::FolderPrompt& prompt,
                    const std::optional<platform::FolderAnswer>&) override {
            folders.push_back(prompt.title);
            show(prompt.title);
        }
        void beep() override { ++beeps; }
        void help(const std::wstring& file, const std::wstring& topic, platform::HelpView view) override {
            helps.push_back(file.substr(file.find_last_of(L'\\') + 1) + L'|' + topic + L'|' +
                            (view == platform::HelpView::Contents ? L"with contents" : L""));
            show(topic);
        }

      private:
        void show(const std::wstring& what) {
            if (!failing.empty() && what.starts_with(failing)) {
                failing.clear();
                throw automation::Error(76, L"Path not found");
            }
        }
    };

    explicit TestWorld(std::vector<std::wstring> answers = {}, host::Profile profile = {})
        : TestWorld(nullptr, std::move(answers), std::move(profile)) {}
    explicit TestWorld(platform::SettingsStore& store, std::wstring addInFolder = L".")
        : TestWorld(&store, {}, {}, std::move(addInFolder)) {}

    Log log;
    host::Outlook outlook;
    platform::native::ScriptedDesktop desktop;
    platform::native::SetClock clock;
    platform::native::MemoryPorts ports;
    platform::MemorySettingsStore& settings = ports.settings;
    platform::native::FakeRegistry& registry = ports.registry;
    platform::Platform& platform = ports.platform;
    mail::Globals globals{platform};

  private:
    TestWorld(platform::SettingsStore* store, std::vector<std::wstring> answers, host::Profile profile,
              std::wstring addInFolder = L".")
        : outlook(std::move(profile)),
          desktop(parsed(answers), log),
          ports(outlook.automation(), desktop, clock, store, std::move(addInFolder)) {
        globals.outlook = outlook::Application(outlook.application());
    }

    static platform::AnswerList parsed(const std::vector<std::wstring>& answers) {
        std::vector<platform::PromptAnswer> list;
        for (const std::wstring& answer : answers) {
            list.push_back(program::parseAnswer(answer));
        }
        return platform::AnswerList(std::move(list));
    }
};
