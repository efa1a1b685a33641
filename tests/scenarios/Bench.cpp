#include "tests/scenarios/Bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/text.h"
#include "program/Answers.h"

namespace {

platform::AnswerList parsed(const std::vector<std::wstring>& answers) {
    std::vector<platform::PromptAnswer> list;
    for (const std::wstring& answer : answers) {
        list.push_back(program::parseAnswer(answer));
    }
    return platform::AnswerList(std::move(list));
}

bool needsRedemption(const host::Profile& profile) {
    return std::stoi(profile.version) < 12;
}

void chooseProvider(Given& setup) {
    host::Profile& profile = setup.profile;
    const Provider usual = needsRedemption(profile) ? Provider::Redemption : usualProvider;
    if (setup.provider.value_or(usual) == Provider::Redemption) {
        return;
    }
    profile.redemptionRegistered = false;
    if (profile.version == host::Profile().version) {
        profile.version = newestOutlook;
    }
}

Given withUsualSettings(Given setup) {
    chooseProvider(setup);
    setup.settings.emplace(L"ShowStartupWizard", L"False");
    setup.settings.emplace(L"MsgAddAddress", L"1");
    setup.settings.emplace(L"LastCheckUpdateDate", L"DoNotCheck");
    return setup;
}

}  // namespace

const platform::ControlState& PromptLog::Prompt::control(std::wstring_view name) const {
    const auto found = std::ranges::find(controls, name, &platform::ControlState::name);
    if (found == controls.end()) {
        throw std::out_of_range("no control " + text::toUtf8(name) + " in " + text::toUtf8(where));
    }
    return *found;
}

void PromptLog::message(const platform::MessagePrompt& prompt, std::optional<platform::Answer>) {
    keep({prompt.title, prompt.text, prompt.style, {}, std::exchange(beeped_, false)});
}

void PromptLog::form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>&) {
    keep({prompt.form, prompt.caption, {}, prompt.controls, std::exchange(beeped_, false)});
}

void PromptLog::folder(const platform::FolderPrompt& prompt, const std::optional<platform::FolderAnswer>&) {
    keep({L"folder", prompt.title, {}, {}, std::exchange(beeped_, false)});
}

void PromptLog::keep(Prompt prompt) {
    prompts_.push_back(std::move(prompt));
    if (const auto happens = meanwhile) {  // It may take itself away.
        happens();
    }
}

Bench::Bench(Given setup)
    : setup_(withUsualSettings(std::move(setup))),
      outlook_(setup_.profile, [this] { return setup_.now; }),
      world_(makeAddInWorld(outlook_, setup_, parsed(setup_.answers), log_)) {
    if (setup_.connected) {
        connect();
    }
}

Bench::~Bench() {
    disconnect();
    if (const auto prompt = world_->unanswered()) {
        ADD_FAILURE() << "a prompt without an answer: " << text::toUtf8(*prompt);
    }
    EXPECT_EQ(world_->heldObjects(), 0U) << "the add-in still holds objects of the host";
}

bool Bench::connect() {
    connected_ = true;
    return world_->connect();
}

void Bench::disconnect(int removeMode) {
    if (std::exchange(connected_, false)) {
        world_->disconnect(removeMode);
    }
}

host::SendOutcome Bench::send(const host::Message& message) {
    return outlook_.send(outlook_.openNewMail(message));
}

std::vector<std::wstring> Bench::promptNames() const {
    std::vector<std::wstring> names;
    for (const PromptLog::Prompt& prompt : log_.prompts()) {
        names.push_back(prompt.where);
    }
    return names;
}

host::Message plainMail(std::wstring subject, std::wstring body) {
    host::Message message;
    message.to = {{.name = L"Bob", .address = L"bob@example.org"}};
    message.subject = std::move(subject);
    message.body = std::move(body);
    return message;
}
