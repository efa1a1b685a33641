#include <gtest/gtest.h>

#include "host/ribbonXml.h"
#include "platform/FunctionTarget.h"
#include "platform/text.h"
#include "tests/host/EventLog.h"

namespace {

using automation::Object;
using automation::Value;
using Arguments = std::span<const Value>;
using Names = std::vector<std::wstring>;

const std::wstring since2007 = L"http://schemas.microsoft.com/office/2006/01/customui";
const std::wstring since2010 = L"http://schemas.microsoft.com/office/2009/07/customui";

std::wstring ribbon(const std::wstring& inside, const std::wstring& attributes = {},
                    const std::wstring& nameSpace = since2010) {
    return L"<customUI xmlns='" + nameSpace + L"'" + attributes + L"><ribbon>" + inside +
           L"</ribbon></customUI>";
}

std::wstring tab(const std::wstring& inside, const std::wstring& id = L"idMso='TabMail'") {
    return L"<tabs><tab " + id + L">" + inside + L"</tab></tabs>";
}

std::wstring group(const std::wstring& inside) {
    return tab(L"<group id='G' label='G'>" + inside + L"</group>");
}

std::wstring contextual(const std::wstring& set, const std::wstring& inside) {
    return L"<contextualTabs><tabSet idMso='" + set + L"'><tab idMso='TabMessage'>" + inside +
           L"</tab></tabSet></contextualTabs>";
}

bool isTaken(const std::wstring& text, int version, const wchar_t* ribbonId = L"Microsoft.Outlook.Explorer") {
    return errorOf([&] { host::ribbonXml::read(text, {ribbonId, version}); }) == 0;
}

TEST(HostRibbonXml, IsTakenByTheRules) {
    const std::wstring long1024(1024, L'x');
    const std::wstring good[] = {
        ribbon(L""),
        ribbon(tab(L"")),
        ribbon(tab(L"", L"id='Mine' label='Mine' insertAfterMso='TabMail'")),
        ribbon(group(L"<button id='B' label='" + long1024 + L"' onAction='A' getImage='I' size='large'/>")),
        ribbon(group(L"<box id='X' boxStyle='vertical'><labelControl id='L' getLabel='T'/></box>")),
        ribbon(group(L"<toggleButton id='B' getPressed='P' keytip='ABC'/><separator id='S'/>"),
               L" onLoad='O'"),
        L"<?xml version='1.0'?><!-- - -->" + ribbon(tab(L"")),
    };
    for (const std::wstring& text : good) {
        EXPECT_TRUE(isTaken(text, 14)) << text::toUtf8(text);
    }
    const std::wstring bad[] = {
        L"",
        L"ribbon",
        L"<customUI><ribbon/></customUI>",
        L"<ribbon xmlns='" + since2010 + L"'/>",
        ribbon(L"<tabs>"),
        ribbon(L"", {}, L"http://schemas.microsoft.com/office/2012/01/customui"),
        ribbon(L"<tab idMso='TabMail'/>"),
        ribbon(tab(L"") + tab(L"")),
        ribbon(contextual(L"TabComposeTools", L"") + tab(L"")),
        ribbon(tab(L"<button id='B'/>")),
        ribbon(group(L"<buttons id='B'/>")),
        ribbon(group(L"<button/>")),
        ribbon(group(L"<button id=''/>")),
        ribbon(group(L"<button id='1B'/>")),
        ribbon(group(L"<button id='B C'/>")),
        ribbon(group(L"<button id='B' idQ='x:B'/>")),
        ribbon(group(L"<button id='G'/>")),
        ribbon(group(L"<button id='B'/><button id='B'/>")),
        ribbon(group(L"<button id='B' label='x' getLabel='T'/>")),
        ribbon(group(L"<button id='B' imageMso='Help' getImage='I'/>")),
        ribbon(group(L"<button id='B' caption='x'/>")),
        ribbon(group(L"<button id='B' label=''/>")),
        ribbon(group(L"<button id='B' label='" + long1024 + L"x'/>")),
        ribbon(group(L"<button id='B' size='huge'/>")),
        ribbon(group(L"<button id='B' enabled='True'/>")),
        ribbon(group(L"<button id='B' keytip='ABCD'/>")),
        ribbon(group(L"<labelControl id='L' onAction='A'/>")),
        ribbon(group(L"<labelControl id='L' getImage='I'/>")),
        ribbon(group(L"<button id='B'><button id='C'/></button>")),
        ribbon(group(L""), L" id='C'"),
        ribbon(tab(L"", L"idMso='TabNoSuch'")),
        ribbon(contextual(L"TabComposeTools", L"")),
    };
    for (const std::wstring& text : bad) {
        EXPECT_FALSE(isTaken(text, 14)) << text::toUtf8(text);
    }
}

TEST(HostRibbonXml, DependsOnTheVersionAndTheWindow) {
    constexpr wchar_t compose[] = L"Microsoft.Outlook.Mail.Compose";
    const std::wstring written = tab(L"", L"idMso='TabNewMailMessage'");
    EXPECT_TRUE(isTaken(ribbon(written, {}, since2007), 12, compose));
    EXPECT_FALSE(isTaken(ribbon(written, {}, since2010), 12, compose));
    EXPECT_TRUE(isTaken(ribbon(written, {}, since2007), 16, compose));
    EXPECT_FALSE(isTaken(ribbon(written), 14));
    EXPECT_FALSE(isTaken(ribbon(tab(L"")), 14, compose));
    EXPECT_TRUE(isTaken(ribbon(contextual(L"TabComposeTools", L"")), 15));
    EXPECT_FALSE(isTaken(ribbon(contextual(L"TabOther", L"")), 15));
}

/// An add-in with a ribbon, and what it was asked.
class HostRibbonTest : public testing::Test {
  protected:
    void load(const wchar_t* version, std::wstring text = {}) {
        host::Profile profile;
        profile.version = version;
        outlook_ = std::make_unique<host::Outlook>(profile);
        const std::wstring button =
            L"<button id='B' getLabel='Label' getEnabled='Enabled' onAction='Press' tag='T'/>";
        outlook_->addRibbon(
            {[this, text, button](const std::wstring& ribbonId) {
                 log_.push_back(ribbonId);
                 const bool compose = ribbonId == L"Microsoft.Outlook.Mail.Compose";
                 if (!compose && ribbonId != L"Microsoft.Outlook.Explorer") {
                     return std::wstring();
                 }
                 const std::wstring found = L"<group id='G' getLabel='Label'>" + button + L"</group>";
                 return !text.empty()
                            ? text
                            : ribbon(tab(found, compose ? L"idMso='TabNewMailMessage'" : L"idMso='TabMail'"),
                                     L" onLoad='Load'", compose ? since2007 : since2010);
             },
             Object(
                 std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
                     {L"Load", 1,
                      [this](Arguments given) {
                          ui_.push_back(given[0].toObject());
                          log_.emplace_back(L"load");
                          return Value();
                      }},
                     {L"Label", 1, [this](Arguments given) { return told(L"label", given, label_); }},
                     {L"Enabled", 1, [this](Arguments given) { return told(L"enabled", given, enabled_); }},
                     {L"Press", 1,
                      [this](Arguments given) {
                          context_ = given[0].toObject().get(L"Context").toObject();
                          EXPECT_EQ(given[0].toObject().get(L"Tag").toText(), L"T");
                          return told(L"press", given, Value());
                      }},
                 }))});
    }

    Value told(const wchar_t* what, Arguments given, const Value& answer) {
        log_.push_back(std::wstring(what) + L' ' + given[0].toObject().get(L"Id").toText());
        return answer;
    }

    Names taken() { return std::exchange(log_, {}); }
    Object explorer() { return outlook_->explorers().front(); }

    std::unique_ptr<host::Outlook> outlook_;
    Value label_{L"Go"};
    Value enabled_{true};
    Names log_;
    std::vector<Object> ui_;
    Object context_;
};

const Names drawing{L"label G", L"label B", L"enabled B"};

Names after(Names first, const Names& rest) {
    first.insert(first.end(), rest.begin(), rest.end());
    return first;
}

TEST_F(HostRibbonTest, IsAskedForAsOutlookAsks) {
    load(L"11.0.0.5510");
    outlook_->openNewMail({});
    EXPECT_TRUE(taken().empty());
    load(L"12.0.0.4518");
    EXPECT_TRUE(taken().empty()) << "main windows have menus";
    outlook_->openNewMail({});
    EXPECT_EQ(taken(), after({L"Microsoft.Outlook.Mail.Compose", L"load"}, drawing));
    outlook_->openNewMail({});
    EXPECT_EQ(taken(), drawing) << "once a run";
    outlook_->openItem(outlook_->receive({}));
    EXPECT_EQ(taken(), Names{L"Microsoft.Outlook.Mail.Read"});
    load(L"14.0.0.4760");
    EXPECT_EQ(taken(), after({L"Microsoft.Outlook.Explorer", L"load"}, drawing));
    outlook_->openExplorer();
    EXPECT_EQ(taken(), drawing);
    EXPECT_TRUE(outlook_->errors().empty());
}

TEST_F(HostRibbonTest, KeepsAnswersUntilToldThatTheyNoLongerHold) {
    load(L"14.0.0.4760");
    const Object written = outlook_->openNewMail({});
    taken();
    label_ = L"Stop";
    EXPECT_EQ(outlook_->ribbon(explorer()).front().label, L"Go");
    EXPECT_TRUE(taken().empty());
    ASSERT_EQ(ui_.size(), 2U);
    ui_[0].call(L"InvalidateControl", L"B");
    EXPECT_EQ(outlook_->ribbon(explorer()).front().label, L"Stop");
    EXPECT_EQ(outlook_->ribbon(explorer()).front().group, L"Go");
    EXPECT_EQ(outlook_->ribbon(written).front().label, L"Go") << "another ribbon";
    EXPECT_EQ(taken(), (Names{L"label B", L"enabled B"}));
    ui_[1].call(L"Invalidate");
    EXPECT_EQ(outlook_->ribbon(written).front().group, L"Stop");
    EXPECT_EQ(taken(), drawing);
}

TEST_F(HostRibbonTest, IsPressedInItsWindow) {
    load(L"14.0.0.4760");
    const Object second = outlook_->openExplorer();
    outlook_->pressRibbon(second, L"Go");
    EXPECT_EQ(context_, second);
    EXPECT_EQ(taken().back(), L"press B");
    outlook_->choose(explorer(), {L"Menu", L"Go"});
    EXPECT_EQ(context_, explorer());
    EXPECT_NE(errorOf([&] { outlook_->pressRibbon(second, L"Stop"); }), 0);
    enabled_ = false;
    ui_[0].call(L"Invalidate");
    EXPECT_NE(errorOf([&] { outlook_->pressRibbon(second, L"Go"); }), 0);
    outlook_->dropRibbons();
    EXPECT_TRUE(outlook_->ribbon(second).empty());
}

TEST_F(HostRibbonTest, TellsWhatItCannotUse) {
    load(L"14.0.0.4760", L"<customUI/>");
    ASSERT_EQ(outlook_->errors().size(), 1U);
    EXPECT_EQ(outlook_->errors()[0].event, L"GetCustomUI");
    load(L"14.0.0.4760", ribbon(group(L"<button id='B' getLabel='NoSuchCallback'/>")));
    ASSERT_EQ(outlook_->errors().size(), 1U);
    EXPECT_EQ(outlook_->errors()[0].event, L"NoSuchCallback");
    label_ = 5;
    load(L"14.0.0.4760");
    EXPECT_EQ(outlook_->ribbon(explorer()).front().label, L"") << "no text";
}

TEST_F(HostRibbonTest, DrawsNoMenusFromOutlook2013On) {
    load(L"15.0.4420.1017");
    const Object controls =
        explorer().get(L"CommandBars", L"Menu Bar").toObject().get(L"Controls").toObject();
    controls.call(L"Add", 1).toObject().put(L"Caption", L"Mine");
    EXPECT_NE(errorOf([&] { outlook_->pressControl(explorer(), {L"Mine"}); }), 0);
}

}  // namespace
