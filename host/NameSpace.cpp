#include "host/NameSpace.h"

#include "host/Folder.h"
#include "host/Item.h"
#include "host/ItemAlias.h"
#include "host/Recipients.h"
#include "host/outlookRows.h"

namespace host {

using automation::Value;

namespace {

bool hasAccounts(const NameSpace& session) {
    return session.core().majorVersion() >= 12;
}

Value currentUser(NameSpace& session, Arguments) {
    auto data = std::make_shared<RecipientData>(RecipientData{0, session.core().currentUser(), true});
    return session.core().makeObject<Recipient>(nullptr, &ItemContent::recipients, std::move(data), false);
}

Value defaultFolderOf(NameSpace& session, Arguments arguments) {
    const auto folder = session.core().mailbox().defaultFolder(arguments[0].toInteger());
    if (!folder) {
        raise::operationFailed();
    }
    return folder->object();
}

Value itemFromId(NameSpace& session, Arguments arguments) {
    const auto item = session.core().mailbox().itemById(arguments.text(0));
    if (!item) {
        raise::objectNotFound();
    }
    item->readAnew();
    return session.core().makeObject<ItemAlias>(item);
}

Value folderFromId(NameSpace& session, Arguments arguments) {
    const auto folder = session.core().mailbox().folderById(arguments.text(0));
    if (!folder) {
        raise::objectNotFound();
    }
    return folder->object();
}

Value addressOf(OutlookAccount& account, Arguments) {
    const Account* const found = account.core().account(account.name());
    return found ? Value(found->address) : Value(L"");
}

}  // namespace

NameSpace::NameSpace(Core& core) : Automated(core), mapiObject_(core.make<MapiSession>()) {}

constinit const Members<NameSpace> NameSpace::members = {
    applicationRow<NameSpace>,
    parentRow<NameSpace>,
    classRow<NameSpace, 1>,
    sessionRow<NameSpace>,
    {.name = L"CurrentUser", .id = 8449, .get = currentUser},
    {.name = L"Folders",
     .id = 8451,
     .get = [](NameSpace& session, Arguments) { return Value(session.core().makeObject<Folders>(nullptr)); }},
    {.name = L"Type", .id = 8452, .get = [](NameSpace&, Arguments) { return Value(L"MAPI"); }},
    {.name = L"Logon", .id = 8453, .call = [](NameSpace&, Arguments) { return Value(); }, .most = 4},
    {.name = L"GetFolderFromID", .id = 8456, .call = folderFromId, .least = 1, .most = 2},
    {.name = L"GetItemFromID", .id = 8457, .call = itemFromId, .least = 1, .most = 2},
    {.name = L"GetDefaultFolder", .id = 8459, .call = defaultFolderOf, .least = 1, .most = 1},
    {.name = L"MAPIOBJECT", .id = 61696, .get = use<&NameSpace::mapiObject_>},
    {.name = L"Accounts",
     .id = 64208,
     .get = [](NameSpace& session, Arguments) { return Value(session.core().makeObject<OutlookAccounts>()); },
     .has = hasAccounts},
};

OutlookAccount::OutlookAccount(Core& core, std::wstring name) : Automated(core), name_(std::move(name)) {}

bool OutlookAccount::sameAs(const Target& other) const {
    const auto* const account = dynamic_cast<const OutlookAccount*>(&other);
    return account && text::equalsIgnoringCase(account->name_, name_);
}

constinit const Members<OutlookAccount> OutlookAccount::members = {
    {.name = L"DisplayName", .id = 12289, .get = use<&OutlookAccount::name_>},
    {.name = L"UserName", .get = addressOf},
    {.name = L"SmtpAddress", .id = 64212, .get = addressOf},
};

const std::vector<Account>& OutlookAccounts::list() const {
    return core().profile().accounts;
}

automation::Object OutlookAccounts::at(std::size_t index) const {
    return core().makeObject<OutlookAccount>(list()[index].name);
}

constinit const Members<OutlookAccounts> OutlookAccounts::members = {
    countRow<OutlookAccounts>,
    itemRow<OutlookAccounts>,
};

}  // namespace host
