#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/accounts/AccountsWorld.h"

/// The list is changed while Outlook goes on inside of each call: it delivers a send of another window, or
/// another writer stores the list.
namespace {

const std::pair<std::wstring, std::wstring> ann{L"ann@x.org", L"Work"};
const std::pair<std::wstring, std::wstring> bob{L"bob@x.org", L"Home"};
const std::pair<std::wstring, std::wstring> cy{L"cy@x.org", L"Work"};
const std::pair<std::wstring, std::wstring> dan{L"dan@x.org", L"Work"};
const std::pair<std::wstring, std::wstring> zoe{L"zoe@x.org", L"Home"};
const std::pair<std::wstring, std::wstring> bobAtWork{L"bob@x.org", L"Work"};
const Entries before{ann, bob, cy};
constexpr wchar_t notCertain[] =
    L"The list could not be saved, and it is not certain that the change has been taken back altogether. "
    L"Please look at the list once Outlook can reach it again.";

struct Change {
    const char* name;
    /// The current values are those of the entry afterwards, too.
    std::function<bool(AccountsWorld&)> make;
    Entries after;
};

bool isCurrent(const AccountsWorld& world, const std::pair<std::wstring, std::wstring>& entry) {
    return world.list.strEmailAddress == entry.first && world.list.strAccount == entry.second;
}

const Change changes[] = {
    {"Add",
     [](AccountsWorld& world) { return world.add(dan.first, dan.second) && isCurrent(world, dan); },
     {ann, bob, cy, dan}},
    {"Edit",
     [](AccountsWorld& world) {
         return world.change(2, bobAtWork.first, bobAtWork.second) && isCurrent(world, bobAtWork);
     },
     {ann, bobAtWork, cy}},
    {"Delete", [](AccountsWorld& world) { return world.remove(2); }, {ann, cy}}};

Entries with(Entries entries, const std::pair<std::wstring, std::wstring>& entry) {
    entries.push_back(entry);
    return entries;
}

using Meanwhile = std::function<void(AccountsWorld&)>;

/// A send in another window, up to the point where it finds the account of its recipient.
void sendMeanwhile(AccountsWorld& world) {
    world.list.CreatePostrouteFolder();
    world.list.LoadList();
    world.list.AbsolutePosition(1);
}

void failToLoadMeanwhile(AccountsWorld& world) {
    world.outlook.failCall(1);
    world.list.LoadList();
}

void neverOfferMeanwhile(AccountsWorld& world) {
    sendMeanwhile(world);
    EXPECT_TRUE(world.add(zoe.first, zoe.second));
}

automation::Object listItem(AccountsWorld& world) {
    return world.outlook.itemsIn(tarnwellFolder).at(0);
}

/// Another list object stands for a second add-in; what it writes is in the same item at once.
void otherWriterMeanwhile(AccountsWorld& world) {
    accounts::clsSendAcct other(world.globals);
    other.AddNew();
    other.strEmailAddress = zoe.first;
    other.strAccount = zoe.second;
    EXPECT_TRUE(other.Update());
}

/// It does not see what is not saved yet.
void otherOutlookMeanwhile(AccountsWorld& world) {
    const bool saved = listItem(world).get(L"Saved").toBool();
    world.outlook.writeBodyElsewhere(listItem(world), listText(with(saved ? world.stored() : before, zoe)));
}

void storeBody(AccountsWorld& world, const std::wstring& body) {
    world.outlook.typeBody(listItem(world), body);
    world.outlook.saveItem(listItem(world));
}

/// One that has read the list before, and knows nothing of the change.
void slowWriterMeanwhile(AccountsWorld& world) {
    storeBody(world, listText(with(before, zoe)));
}

/// The user refuses nothing, but what he entered cannot be stored.
void failToAddMeanwhile(AccountsWorld& world) {
    sendMeanwhile(world);
    EXPECT_FALSE(world.add(L" ", L"Home"));
}

/// Outlook gives back a body otherwise than it was written: what is read then is still the same list.
void laidOutOtherwiseMeanwhile(AccountsWorld& world) {
    storeBody(world, text::replaceAll(world.storedBody(), L"'/>", L"' />") + L"\r\n");
}

/// How often a change at whose n-th call something happens, for every n, does not end as it should; and of
/// how many.
struct Counted {
    std::size_t wrong = 0;
    std::size_t points = 0;
};

Counted atEveryCall(const Change& change, const Meanwhile& meanwhile, const Entries& expected) {
    Counted counted;
    for (bool happened = true; happened;) {
        AccountsWorld world(before);
        happened = false;
        world.outlook.duringCall(counted.points + 1, [&] {
            happened = true;
            meanwhile(world);
        });
        const bool changed = change.make(world);
        world.outlook.duringCall(0, nullptr);
        if (happened) {
            ++counted.points;
            Entries loaded = world.loaded();
            std::ranges::sort(loaded);
            const bool right =
                changed && world.list.ErrorReport.empty() && world.stored() == expected && loaded == expected;
            counted.wrong += right ? 0 : 1;
        }
    }
    EXPECT_GE(counted.points, 15U);
    return counted;
}

TEST(ListRaces, ASendInsideOfACallLeavesTheChosenEntryChosen) {
    for (const Change& change : changes) {
        for (const Meanwhile& meanwhile :
             {Meanwhile(sendMeanwhile), Meanwhile(failToLoadMeanwhile), Meanwhile(failToAddMeanwhile),
              Meanwhile(laidOutOtherwiseMeanwhile)}) {
            const Counted counted = atEveryCall(change, meanwhile, change.after);
            EXPECT_EQ(counted.wrong, 0U) << change.name << " of " << counted.points;
        }
    }
}

/// Between the last look at what is stored and the write there is one call that nothing can be done about.
TEST(ListRaces, WhatAnotherWriterStoresIsKept) {
    for (const Change& change : changes) {
        for (const Meanwhile& meanwhile :
             {Meanwhile(neverOfferMeanwhile), Meanwhile(otherWriterMeanwhile),
              Meanwhile(otherOutlookMeanwhile), Meanwhile(slowWriterMeanwhile)}) {
            const Counted counted = atEveryCall(change, meanwhile, with(change.after, zoe));
            EXPECT_EQ(counted.wrong, 1U) << change.name << " of " << counted.points;
        }
    }
}

TEST(ListRaces, AgainstAWriterThatNeverStopsTheChangeIsGivenUp) {
    for (const Change& change : changes) {
        AccountsWorld world(before);
        Entries others = before;
        std::function<void()> write = [&] {
            others.emplace_back(L"z" + std::to_wstring(1000 + others.size()) + L"@x.org", L"Home");
            world.outlook.writeBodyElsewhere(listItem(world), listText(others));
            world.outlook.duringCall(1, write);
        };
        world.outlook.duringCall(1, write);
        EXPECT_FALSE(change.make(world)) << change.name;
        EXPECT_EQ(world.list.ErrorReport,
                  L"The list could not be saved, because it is being changed elsewhere at the same time. "
                  L"Please try again.");
        EXPECT_EQ(world.stored(), others) << change.name;
    }
}

/// Somebody puts the list of before there each time that it has been changed.
TEST(ListRaces, AgainstAWriterThatSeesNothingTheChangeIsNotClaimed) {
    for (const Change& change : changes) {
        AccountsWorld world(before);
        std::function<void()> write = [&] {
            if (world.stored() != before) {
                storeBody(world, listText(before));
            }
            world.outlook.duringCall(1, write);
        };
        world.outlook.duringCall(1, write);
        EXPECT_FALSE(change.make(world)) << change.name;
        EXPECT_EQ(world.list.ErrorReport, notCertain) << change.name;
        EXPECT_EQ(world.stored(), before) << change.name;
    }
}

/// A writer comes during the very call that fails, or before all calls fail.
TEST(ListRaces, AFailureTakesBackNothingOfAnotherWriter) {
    std::size_t uncertain = 0;
    for (const Change& change : changes) {
        std::size_t unseen = 0;
        for (const bool forGood : {false, true}) {
            bool happened = true;
            for (std::size_t call = 1; happened; ++call) {
                AccountsWorld world(before);
                happened = false;
                bool stoodThere = false;
                world.outlook.failCall(forGood ? call + 1 : call, forGood ? 100 : 1);
                world.outlook.duringCall(call, [&] {
                    happened = true;
                    stoodThere = world.stored() == change.after;
                    slowWriterMeanwhile(world);
                });
                const bool changed = change.make(world);
                world.outlook.failCall(0);
                world.outlook.duringCall(0, nullptr);
                const Entries stored = world.stored();
                if (stoodThere && !changed) {
                    EXPECT_EQ(world.list.ErrorReport, notCertain) << change.name << call;
                    ++uncertain;
                }
                if (happened && !forGood) {
                    EXPECT_EQ(stored.back(), zoe) << change.name << call;
                    unseen += stored == with(changed ? change.after : before, zoe) ? 0 : 1;
                }
            }
        }
        EXPECT_EQ(unseen, 1U) << "where the look at what was saved fails";
    }
    EXPECT_EQ(uncertain, std::size(changes)) << "during the save itself";
}

/// A change that is still to be seen in the item after a failure need not have been saved. Outlook may lay it
/// out otherwise by then.
TEST(ListRaces, WhatCountsAsChangedIsSaved) {
    for (const Change& change : changes) {
        for (const bool laidOutOtherwise : {false, true}) {
            for (const std::size_t failing : {1U, 2U, 3U}) {
                for (std::size_t call = 1; call <= 25; ++call) {
                    AccountsWorld world(before);
                    world.outlook.meter()->record(true);
                    world.outlook.failCall(call, failing);
                    world.outlook.duringCall(call, [&] {
                        const bool saving = world.outlook.meter()->log().back().ends_with(L".Save");
                        if (saving && laidOutOtherwise) {
                            laidOutOtherwiseMeanwhile(world);
                        }
                    });
                    const bool changed = change.make(world);
                    world.outlook.failCall(0);
                    const bool saved = listItem(world).get(L"Saved").toBool();
                    EXPECT_TRUE(!changed || saved) << change.name << call << " " << failing;
                }
            }
        }
    }
}

/// Whatever is said of the stored list is true of it, however many calls fail in a row.
TEST(ListRaces, AFailureThatCannotBeTakenBackIsSaid) {
    std::size_t uncertain = 0;
    for (const Change& change : changes) {
        for (const std::size_t failing : {2U, 3U, 4U, 100U}) {
            bool failed = true;
            for (std::size_t call = 1; failed; ++call) {
                AccountsWorld world(before);
                const std::size_t first = world.outlook.calls();
                world.outlook.failCall(call, failing);
                const bool changed = change.make(world);
                failed = world.outlook.calls() - first >= call;
                world.outlook.failCall(0);
                const bool unknown = world.list.ErrorReport == notCertain;
                uncertain += unknown ? 1 : 0;
                EXPECT_EQ(world.list.ErrorReport.empty(), changed) << change.name << " " << call;
                if (!unknown) {
                    EXPECT_EQ(world.stored(), changed ? change.after : before) << change.name << " " << call;
                }
            }
        }
    }
    EXPECT_GT(uncertain, 2U);
}

TEST(ListRaces, AFolderThatIsMadeMeanwhileIsTheFolder) {
    bool happened = true;
    for (std::size_t call = 1; happened; ++call) {
        host::Profile profile = profileWith({});
        profile.messages.clear();
        AccountsWorld world(profile, std::vector<std::wstring>(2, L"Veltro=OK"));
        happened = false;
        world.outlook.duringCall(call, [&] {
            happened = true;
            accounts::clsSendAcct other(world.globals);
            EXPECT_TRUE(other.CreatePostrouteFolder());
        });
        EXPECT_TRUE(world.list.CreatePostrouteFolder()) << "call " << call;
        EXPECT_TRUE(world.add(dan.first, dan.second)) << "call " << call;
        EXPECT_EQ(world.stored(), Entries{dan}) << "call " << call;
        for (const auto& message : world.log.messages) {
            EXPECT_TRUE(message.text.starts_with(L"Veltro has created the following folder")) << call;
        }
        world.outlook.duringCall(0, nullptr);
    }
}

}  // namespace
