#include <gtest/gtest.h>
#include <windows.h>

#include <oleauto.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/ComAutomation.h"
#include "platform/windows/Variant.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/values.h"
#include "tests/windows/ComTest.h"
#include "tests/windows/TestTarget.h"

using automation::Access;
using automation::Array;
using automation::Binary;
using automation::Date;
using automation::Error;
using automation::Object;
using automation::Value;
using platform::windows::Variant;

namespace {

class AutomationTest : public ComTest {
  protected:
    AutomationTest() {
        target_->add(L"Echo", [](Access, std::span<const Value> arguments) {
            return arguments.empty() ? Value(L"left out") : arguments[0];
        });
        target_->add(L"Subject", [this](Access access, std::span<const Value> arguments) {
            if (access == Access::Put) {
                stored_ = arguments.back();
            }
            return stored_;
        });
    }

    std::shared_ptr<TestTarget> target_ = std::make_shared<TestTarget>();
    Value stored_;
};

/// What a VARIANT of each kind reads as, shown as its text; objects and arrays have tests of their own.
struct Kind {
    const char* name;
    VARTYPE type;
    std::function<void(VARIANT&)> fill;
    Value expected;
};

std::vector<Kind> kinds() {
    return {
        {"byte", VT_UI1, [](VARIANT& v) { v.bVal = 200; }, 200},
        {"signed byte", VT_I1, [](VARIANT& v) { v.cVal = -5; }, -5},
        {"short", VT_I2, [](VARIANT& v) { v.iVal = -300; }, -300},
        {"word", VT_UI2, [](VARIANT& v) { v.uiVal = 65000; }, 65000},
        {"long", VT_I4, [](VARIANT& v) { v.lVal = -70000; }, -70000},
        {"property tag", VT_UI4, [](VARIANT& v) { v.ulVal = 0x8000001E; }, double{0x8000001E}},
        {"small unsigned", VT_UINT, [](VARIANT& v) { v.uintVal = 7; }, 7},
        {"small 64 bits", VT_I8, [](VARIANT& v) { v.llVal = 42; }, 42},
        {"large 64 bits", VT_UI8, [](VARIANT& v) { v.ullVal = 1ULL << 40; }, 1099511627776.0},
        {"single", VT_R4, [](VARIANT& v) { v.fltVal = 0.5F; }, 0.5},
        {"double", VT_R8, [](VARIANT& v) { v.dblVal = 1e300; }, 1e300},
        {"currency", VT_CY, [](VARIANT& v) { v.cyVal.int64 = 12345; }, 1.2345},
        {"date", VT_DATE, [](VARIANT& v) { v.date = 949998.0; }, Date{949998.0}},
        {"true", VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; }, true},
        {"null text", VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; }, L""},
        {"null", VT_NULL, [](VARIANT&) {}, Value()},
        {"left out", VT_ERROR, [](VARIANT& v) { v.scode = DISP_E_PARAMNOTFOUND; }, Value()},
    };
}

TEST_F(AutomationTest, ReadsEveryKindOfVariant) {
    for (const Kind& kind : kinds()) {
        Variant variant;
        variant->vt = kind.type;
        kind.fill(variant.get());
        const Value value = toValue(variant.get(), *addIn);
        ASSERT_EQ(value.data().index(), kind.expected.data().index()) << kind.name;
        if (value.holds<std::wstring>() || value.isEmpty()) {
            EXPECT_EQ(value.toText(), kind.expected.toText()) << kind.name;
        } else {
            EXPECT_DOUBLE_EQ(value.toNumber(), kind.expected.toNumber()) << kind.name;
        }
    }
}

TEST_F(AutomationTest, TextsCrossUnharmed) {
    const Object object = toAddIn(Object(target_));
    const std::wstring texts[] = {L"",
                                  L"Grüße",
                                  std::wstring(L"a\0b", 3),
                                  std::wstring(1, wchar_t{0xD800}),
                                  std::wstring(1, wchar_t{0xDC00}) + L"x",
                                  std::wstring(100000, L'm')};
    for (const std::wstring& sent : texts) {
        EXPECT_EQ(object.call(L"Echo", sent).toText(), sent);
        object.put(L"Subject", sent);
        EXPECT_EQ(object.get(L"sUBJECT").toText(), sent);
    }
}

TEST_F(AutomationTest, ArraysCross) {
    const Object object = toAddIn(Object(target_));
    const Value echoed =
        object.call(L"Echo", Array{Value(L"a"), Value(2), Value(Array{Value(true)}), Value()});
    const Array& array = echoed.toArray();
    ASSERT_EQ(array.size(), 4U);
    EXPECT_EQ(array[0].toText(), L"a");
    EXPECT_EQ(array[1].toInteger(), 2);
    EXPECT_TRUE(array[2].toArray().at(0).toBool());
    EXPECT_TRUE(array[3].isEmpty());
    for (const Binary& bytes : {Binary{}, Binary{0, 127, 255}}) {
        EXPECT_EQ(object.call(L"Echo", bytes).toBinary(), bytes);
    }
}

/// Outlook has properties that take an object only by reference, and ignore one that comes otherwise.
TEST_F(AutomationTest, PutsByReferenceAreToldFromOthers) {
    Access used = Access::Get;
    target_->add(L"Account", [&used](Access access, std::span<const Value>) {
        used = access;
        return Value();
    });
    const Object object = toAddIn(Object(target_));
    object.put(L"Account", object);
    EXPECT_EQ(used, Access::Put);
    object.putReference(L"Account", object);
    EXPECT_EQ(used, Access::PutReference);
}

/// An object that takes it only by reference and says so is given it that way.
TEST_F(AutomationTest, AnObjectIsPutByReferenceWhereOnlyThatIsTaken) {
    bool taken = false;
    target_->add(L"Account", [&taken](Access access, std::span<const Value>) -> Value {
        if (access == Access::Put) {
            throw Error(automation::errors::memberNotFound, L"");
        }
        taken = true;
        return {};
    });
    const Object object = toAddIn(Object(target_));
    object.put(L"Account", object);
    EXPECT_TRUE(taken);
}

TEST_F(AutomationTest, ReadsTypedArraysFromTheirOwnLowerBound) {
    SAFEARRAYBOUND bound{2, 1};
    Variant bytes;
    bytes->parray = SafeArrayCreate(VT_UI1, 1, &bound);
    bytes->vt = VT_ARRAY | VT_UI1;
    Variant texts;
    texts->parray = SafeArrayCreate(VT_BSTR, 1, &bound);
    texts->vt = VT_ARRAY | VT_BSTR;
    for (LONG index = 1; index <= 2; ++index) {
        auto byte = static_cast<BYTE>(index * 100);
        SafeArrayPutElement(bytes->parray, &index, &byte);
        const platform::windows::Bstr text(std::to_wstring(index));
        SafeArrayPutElement(texts->parray, &index, text.get());
    }
    EXPECT_EQ(toValue(bytes.get(), *addIn).toBinary(), (Binary{100, 200}));
    EXPECT_EQ(toValue(texts.get(), *addIn).toArray().at(0).toText(), L"1");
}

/// The upper bound of an empty array is the index before its lower one, for which a LONG may have no room.
TEST_F(AutomationTest, ReadsAnEmptyArrayWhateverItsBounds) {
    for (const LONG first : {0L, 1L, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()}) {
        SAFEARRAYBOUND bound{0, first};
        Variant bytes;
        bytes->vt = VT_ARRAY | VT_UI1;
        bytes->parray = SafeArrayCreate(VT_UI1, 1, &bound);
        EXPECT_TRUE(toValue(bytes.get(), *addIn).toBinary().empty()) << first;
    }
}

TEST_F(AutomationTest, AnArrayOfAnotherTypeThanItIsPassedAsIsNotRead) {
    for (const VARTYPE passedAs : {VT_UI1, VT_R8, VT_DECIMAL}) {
        Variant array;
        array->vt = static_cast<VARTYPE>(VT_ARRAY | passedAs);
        array->parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
        EXPECT_THROW(toValue(array.get(), *addIn), Error) << passedAs;
        array->vt = VT_ARRAY | VT_VARIANT;
    }
}

TEST_F(AutomationTest, AnArgumentLeftOutInTheMiddleArrivesEmpty) {
    std::vector<bool> empty;
    target_->add(L"Add", [&empty](Access, std::span<const Value> arguments) {
        for (const Value& argument : arguments) {
            empty.push_back(argument.isEmpty());
        }
        return Value();
    });
    toAddIn(Object(target_)).call(L"Add", 10, Value(), true);
    EXPECT_EQ(empty, (std::vector<bool>{false, true, false}));
}

TEST_F(AutomationTest, ObjectsKeepTheirIdentity) {
    const auto other = std::make_shared<TestTarget>();
    Value received;
    target_->add(L"Take", [&received](Access, std::span<const Value> arguments) {
        received = arguments[0];
        return Value();
    });
    target_->add(L"Other", [&other](Access, std::span<const Value>) { return Value(Object(other)); });
    const Object object = toAddIn(Object(target_));

    const Object first = object.get(L"Other").toObject();
    EXPECT_TRUE(first == object.get(L"Other").toObject());
    EXPECT_FALSE(first == object);
    object.call(L"Take", first);
    EXPECT_EQ(received.toObject().target(), other) << "the host must get its own object back";
    object.put(L"Subject", object);
    EXPECT_EQ(stored_.toObject().target(), target_);
    object.put(L"Subject", Object());
    EXPECT_FALSE(stored_.toObject());
    stored_ = Value();
}

TEST_F(AutomationTest, AnAddInsObjectCanBeCalledByTheHost) {
    const auto buttons = std::make_shared<TestTarget>();
    std::wstring pressed;
    buttons->add(L"Press", [&pressed](Access, std::span<const Value> arguments) {
        pressed = arguments[0].toText();
        return Value(true);
    });
    toAddIn(Object(target_)).put(L"Subject", Object(buttons));
    EXPECT_TRUE(stored_.toObject().call(L"Press", L"About").toBool());
    EXPECT_EQ(pressed, L"About");
    EXPECT_EQ(addInObjects.count(), 1) << "the host still holds it";
    stored_ = Value();
}

TEST_F(AutomationTest, ReferencesComeBack) {
    target_->add(L"Fill", [](Access, std::span<const Value> arguments) {
        arguments[0].variable() = Value(true);
        arguments[1].variable() = Value(L"filled");
        arguments[2].variable() = Value(7);
        arguments[3].variable() = Value(L"was empty");
        return Value();
    });
    Value flag(false);
    Value text(L"before");
    Value number(1);
    Value empty;
    toAddIn(Object(target_))
        .call(L"Fill", Value::reference(flag), Value::reference(text), Value::reference(number),
              Value::reference(empty));
    EXPECT_TRUE(flag.toBool());
    EXPECT_EQ(text.toText(), L"filled");
    EXPECT_EQ(number.toInteger(), 7);
    EXPECT_EQ(empty.toText(), L"was empty");
}

TEST_F(AutomationTest, ErrorsCrossWithNumberTextAndSource) {
    const std::int32_t numbers[] = {automation::errors::typeMismatch, 32767, automation::errors::failed,
                                    static_cast<std::int32_t>(0x8004010F)};
    for (const std::int32_t number : numbers) {
        target_->add(std::to_wstring(number), [number](Access, std::span<const Value>) -> Value {
            throw Error(number, L"it went wrong", L"Outlook");
        });
        try {
            toAddIn(Object(target_)).call(std::to_wstring(number));
            ADD_FAILURE() << number << " was lost";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), number);
            EXPECT_EQ(error.description(), L"it went wrong");
            EXPECT_EQ(error.source(), L"Outlook");
        }
    }
}

/// Outlook's code is 4096 with every failure.
TEST_F(AutomationTest, TheNumberOfAFailureIsItsResultBeforeItsCode) {
    const struct {
        WORD code;
        HRESULT result;
        std::int32_t number;
    } cases[] = {{4096, E_ABORT, static_cast<std::int32_t>(0x80004004)},
                 {4096, static_cast<HRESULT>(0x8004010F), static_cast<std::int32_t>(0x8004010F)},
                 {0, E_ABORT, static_cast<std::int32_t>(0x80004004)},
                 {1004, S_OK, 1004},
                 {0, S_OK, automation::errors::failed}};
    for (const auto& test : cases) {
        EXCEPINFO details{};
        details.wCode = test.code;
        details.scode = test.result;
        try {
            platform::windows::checkInvoke(DISP_E_EXCEPTION, details);
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), test.number);
        }
    }
}

TEST_F(AutomationTest, FailuresOfTheLanguageCrossWithoutTheWordsOfItsLibrary) {
    target_->add(L"Fail", [](Access, std::span<const Value>) -> Value {
        throw std::out_of_range("vector::_M_range_check");
    });
    try {
        toAddIn(Object(target_)).call(L"Fail");
        ADD_FAILURE() << "the failure was lost";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), automation::errors::internalError);
        EXPECT_EQ(error.description(), L"Internal error");
    }
}

TEST_F(AutomationTest, AnUnknownMemberIsError438) {
    try {
        toAddIn(Object(target_)).get(L"NoSuchMember");
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), automation::errors::memberNotFound);
        EXPECT_FALSE(error.description().empty());
    }
}

TEST_F(AutomationTest, AMissingNameIsRefused) {
    LPOLESTR names[] = {nullptr};
    DISPID id = 0;
    const auto exported = host->exportObject(Object(std::make_shared<TestTarget>()));
    EXPECT_EQ(exported->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), E_INVALIDARG);
}

TEST_F(AutomationTest, EventsArriveUntilTheSubscriptionEnds) {
    const auto item = std::make_shared<TestTarget>();
    std::vector<std::int32_t> received;
    Object itemReceived;
    auto subscription = subscribe(toAddIn(Object(target_)), TestTarget::events,
                                  [&](std::int32_t event, std::span<Value> arguments) {
                                      received.push_back(event);
                                      itemReceived = arguments[0].toObject();
                                      arguments[1].variable() = Value(true);
                                  });
    EXPECT_EQ(target_->listeners(), 1U);
    Value cancel(false);
    Value arguments[] = {Value(Object(item)), Value::reference(cancel)};
    target_->raise(0xF002, arguments);
    EXPECT_TRUE(cancel.toBool());
    EXPECT_TRUE(itemReceived == toAddIn(Object(item)));
    itemReceived = Object();

    subscription.end();
    EXPECT_EQ(target_->listeners(), 0U);
    target_->raise(0xF002, arguments);
    EXPECT_EQ(received, std::vector<std::int32_t>{0xF002});
}

TEST_F(AutomationTest, AHandlerMayEndItsOwnSubscription) {
    automation::Subscription subscription;
    int calls = 0;
    subscription =
        subscribe(toAddIn(Object(target_)), TestTarget::events, [&](std::int32_t, std::span<Value>) {
            ++calls;
            subscription.end();
            subscription = {};
        });
    target_->raise(0xF008, {});
    target_->raise(0xF008, {});
    EXPECT_EQ(calls, 1);
}

TEST_F(AutomationTest, AHandlersErrorReachesTheSourceAndChangesNoArgument) {
    const auto subscription =
        subscribe(toAddIn(Object(target_)), TestTarget::events, [](std::int32_t, std::span<Value> arguments) {
            arguments[0].variable() = Value(true);
            throw Error(automation::errors::overflow, L"Overflow");
        });
    Value cancel(false);
    Value arguments[] = {Value::reference(cancel)};
    try {
        target_->raise(0xF002, arguments);
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), automation::errors::overflow);
    }
    EXPECT_FALSE(cancel.toBool());
}

TEST_F(AutomationTest, AnObjectWithoutTheEventsRefuses) {
    EXPECT_THROW(
        subscribe(toAddIn(Object(target_)), TestTarget::noEvents, [](std::int32_t, std::span<Value>) {}),
        Error);
}

TEST_F(AutomationTest, AClassThatIsNotThereIsError429) {
    platform::windows::ComAutomation automation(addIn);
    for (const bool running : {false, true}) {
        try {
            running ? automation.activeObject(L"Veltro.NoSuchClass")
                    : automation.createObject(L"Veltro.NoSuchClass");
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), automation::errors::cannotCreateObject);
        }
    }
}

/// Outlook itself fills the arguments of its events; other programs fill them with what they like.
TEST_F(AutomationTest, AnEventWithAVariantCancelGetsTheFullTrue) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_BYREF | VT_BOOL;
    argument.pboolVal = &cancel;
    assign(argument, Value(true), *addIn);
    EXPECT_EQ(static_cast<unsigned short>(cancel), 0xFFFFU);

    Variant inner;
    argument.vt = VT_BYREF | VT_VARIANT;
    argument.pvarVal = inner.address();
    assign(argument, Value(L"text"), *addIn);
    EXPECT_EQ(toValue(inner.get(), *addIn).toText(), L"text");
}

}  // namespace
