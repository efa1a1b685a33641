#include <gtest/gtest.h>

#include "accounts/basSendAcct.h"
#include "addin/Connect.h"
#include "addin/composeGroup.h"
#include "mail/Provider.h"
#include "platform/FunctionTarget.h"
#include "platform/text.h"
#include "tests/TemporaryFolder.h"
#include "tests/TestWorld.h"
#include "tests/accounts/listTexts.h"
#include "tests/scenarios/AddInWorld.h"

namespace {

using automation::Object;
using automation::Value;
using Sizes = std::set<std::uint32_t>;

/// A control as Office hands it to a callback, with nothing but an id.
Object control(const wchar_t* id) {
    return Object(
        std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
            {L"Id", 0, [id](std::span<const Value>) { return Value(id); }}}));
}

/// An object with these properties; Item takes an index.
using Property = std::pair<std::wstring_view, Value>;
Object objectWith(const std::vector<Property>& properties) {
    std::vector<automation::FunctionTarget::Member> members;
    for (const auto& [name, value] : properties) {
        const std::size_t arguments = name == L"Item" ? 1 : 0;
        members.push_back({name, arguments, [value = value](std::span<const Value>) { return value; }});
    }
    return Object(std::make_shared<automation::FunctionTarget>(std::move(members)));
}

/// An item window with a mail to one Exchange user, whose SMTP address stands in this property.
Object windowToExchangeUser(const std::wstring& property) {
    const Object properties(
        std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
            {L"GetProperty", 1, [property](std::span<const Value> given) {
                 if (given[0].toText() != property) {
                     throw automation::Error(static_cast<std::int32_t>(0x8004010F), L"no such property");
                 }
                 return Value(L"ann@example.org");
             }}}));
    const Object entry =
        objectWith({{L"Type", L"EX"}, {L"DisplayType", 0}, {L"Address", L"/o=Firm/cn=Recipients/cn=ann"}});
    const Object recipient = objectWith({{L"AddressEntry", entry}, {L"PropertyAccessor", properties}});
    const Object recipients = objectWith({{L"Count", 1}, {L"Item", recipient}});
    return objectWith({{L"Class", 35}, {L"CurrentItem", objectWith({{L"Recipients", recipients}})}});
}

/// A look into the address book may wait for the server while Outlook is drawing.
TEST(RibbonAccount, OfAnExchangeUserIsToldByTheRecipientAlone) {
    TestWorld world({}, profileWith(listText(Entries{{L"ann@example.org", L"Home"}}), corvaneFolder));
    accounts::basSendAcct::OpenList(world.globals)->LoadList();
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"http://schemas.microsoft.com/mapi/proptag/0x39FE001F", L"Preferred account: Home"},
        {L"none", L"Preferred account: unknown"}};
    for (const auto& [property, said] : cases) {
        EXPECT_EQ(addin::composeGroup::accountText(world.globals, windowToExchangeUser(property)), said);
    }
    world.globals.provider = &mail::untrustedProvider();
    EXPECT_EQ(addin::composeGroup::accountText(world.globals, windowToExchangeUser(cases[0].first)),
              L"Preferred account: unknown")
        << "Outlook would ask the user";
}

TEST(Ribbon, PicturesFitTheScreen) {
    const struct {
        std::uint32_t percent;
        Sizes sizes;
    } cases[] = {{100, {16, 32}}, {125, {20, 40}}, {150, {24, 48}}, {175, {32, 64}},
                 {200, {32, 64}}, {225, {40, 64}}, {300, {48, 64}}};
    for (const auto& [percent, sizes] : cases) {
        platform::MemorySettingsStore store;
        TestWorld world(store, addInFolder().wstring());
        world.ports.system.dpi = 96 * percent / 100;
        addin::Connect connection(world.platform);
        connection.GetCustomUI(L"Microsoft.Outlook.Explorer");
        for (const wchar_t* id : {L"VeltroSettings", L"VeltroHelp"}) {
            EXPECT_TRUE(connection.ribbonCallbacks().call(L"RibbonPicture", control(id)).toObject())
                << percent;
        }
        EXPECT_EQ(world.ports.resources.askedSizes(), sizes) << percent;
        EXPECT_TRUE(connection.ribbonCallbacks().call(L"RibbonPicture", control(L"Other")).isEmpty());
    }
}

/// Outlook's main windows are asked about before its version can be read from its objects; only the file of
/// the program tells.
TEST(Ribbon, HasNoTabThatTheVersionDoesNotKnow) {
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"", false}, {L"14.0.7268.5000", false}, {L"15.0.5589.1000", true}, {L"16.0.17328.20000", true}};
    for (const auto& [version, inlineResponses] : cases) {
        TestWorld world;
        world.ports.system.program = version;
        addin::Connect connection(world.platform);
        const std::wstring ribbon = connection.GetCustomUI(L"Microsoft.Outlook.Explorer");
        EXPECT_EQ(ribbon.find(L"TabComposeTools") != std::wstring::npos, inlineResponses);
        EXPECT_NE(ribbon.find(L"TabMail"), std::wstring::npos);
        EXPECT_EQ(connection.GetCustomUI(L"Microsoft.Outlook.Contact"), L"");
    }
}

TEST(Ribbon, TakesItsTextsFromTheLibraryAsTheyStand) {
    TemporaryFolder folder;
    folder.write("Resource.dll", "515=A & <B>\n541=Say \"%\"\x01!\n543=" + std::string(1100, 'x') + "\n");
    platform::MemorySettingsStore store;
    TestWorld world(store, text::fromUtf8(folder.file(".").string()));
    addin::Connect connection(world.platform);
    world.outlook.addRibbon(
        {[&](const std::wstring& id) { return connection.GetCustomUI(id); }, connection.ribbonCallbacks()});
    EXPECT_TRUE(world.outlook.errors().empty());
    const auto commands = world.outlook.ribbon(world.outlook.explorers().front());
    ASSERT_EQ(commands.size(), 6U);
    EXPECT_EQ(commands[0].group, L"A & <B>");
    EXPECT_EQ(commands[0].label, L"Say \"A & <B>\"!");
    EXPECT_EQ(commands[0].supertip, std::wstring(1024, L'x'));
    EXPECT_EQ(commands[1].label, L"Settings");
    EXPECT_EQ(commands[3].label, L"A & <B> Help");
    world.outlook.dropRibbons();
}

}  // namespace
