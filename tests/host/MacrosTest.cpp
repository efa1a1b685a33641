#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "host/BasicInterpreter.h"
#include "host/VbaProject.h"
#include "platform/FunctionTarget.h"
#include "platform/text.h"
#include "tests/scenarios/AddInWorld.h"

/// The macros of templates: how they are read, and what running them does.
namespace {

using automation::Value;
using host::BasicInterpreter;

std::string templateBytes() {
    std::ifstream file(addInFolder() / "Veltro.dot", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// An object that remembers what it is called with.
struct Called {
    std::vector<std::wstring> calls;
    automation::Object object() {
        using Member = automation::FunctionTarget::Member;
        return automation::Object(std::make_shared<automation::FunctionTarget>(std::vector<Member>{
            {L"Ask", 2,
             [this](std::span<const Value> given) {
                 calls.push_back(given[0].toText() + L"," + given[1].toText());
                 given[1].variable() = L"changed";
                 return Value(true);
             }},
            {L"Fail", 0, [](std::span<const Value>) -> Value { throw automation::Error(1, L"failed"); }}}));
    }
};

/// The result of the macro "Main" of a module, whose CreateObject knows "A.B".
Value resultOf(const std::string& module, std::vector<Value> variables, Called& called) {
    const BasicInterpreter program({module}, [&](const std::wstring& progId) {
        if (progId != L"A.B") {
            throw automation::Error(automation::errors::cannotCreateObject, L"no such class");
        }
        return called.object();
    });
    std::vector<Value> references;
    for (Value& variable : variables) {
        references.push_back(Value::reference(variable));
    }
    Value result = program.run(L"main", references);
    if (!variables.empty()) {
        called.calls.push_back(variables[0].toText());
    }
    return result;
}

TEST(Macros, DoWhatTheirSourceSays) {
    const struct {
        std::string statements;
        std::vector<Value> arguments;
        std::wstring result;
        std::vector<std::wstring> calls;
    } cases[] = {
        {"Main = \"x'y\"  ' a comment", {}, L"x'y", {}},
        {"Set B = CreateObject(\"A.B\")\r\nMain = B.ask(\"1\", _\r\n  P)",
         {L"2"},
         L"True",
         {L"1,2", L"changed"}},
        {"On Error Resume Next\r\nSet B = CreateObject(\"C.D\")\r\nIf B Is Nothing Then Exit Function\r\n"
         "Main = \"not reached\"",
         {},
         L"",
         {}},
        {"On Error Resume Next\r\nSet B = CreateObject(\"A.B\")\r\nB.Fail\r\nMain = B.Fail()\r\nP = Other(P)",
         {L"2"},
         L"",
         {L"2 seen"}},
    };
    for (const auto& test : cases) {
        std::string source = "Attribute VB_Name = \"M\"\r\nOption Explicit\r\n\r\nPublic Function Main(" +
                             std::string(test.arguments.empty() ? "" : "P As Variant") +
                             ") As Variant\r\n    Dim B As Object\r\n" + test.statements +
                             "\r\nEnd Function\r\nFunction Other(X As Variant)\r\nOther = \"2 seen\"\r\nEnd "
                             "Function\r\n";
        Called called;
        EXPECT_EQ(resultOf(source, test.arguments, called).toText(), test.result) << test.statements;
        EXPECT_EQ(called.calls, test.calls) << test.statements;
    }
}

TEST(Macros, AreRefusedWhereTheyAreNotUnderstood) {
    for (const char* const statements :
         {"For I = 1 To 2", "Main = 1 + 2", "If X Then Y", "Main = \"open", "Main = B.Ask(1) 2", "Set"}) {
        Called called;
        EXPECT_THROW(
            resultOf("Function Main()\r\n" + std::string(statements) + "\r\nEnd Function", {}, called),
            automation::Error)
            << statements;
    }
    Called called;
    const std::string empty = "Function Main()\r\nEnd Function";
    EXPECT_THROW(resultOf("MsgBox", {}, called), automation::Error);
    EXPECT_THROW(resultOf("Sub Other()\r\nEnd Sub", {}, called), automation::Error);
    EXPECT_THROW(resultOf(empty, {L"one too many"}, called), automation::Error);
    EXPECT_THROW(resultOf("Function Main()\r\nMain = B.Ask(B, B)\r\nEnd Function", {}, called),
                 automation::Error);
}

TEST(Macros, OfADamagedTemplateAreNotRead) {
    const std::string whole = templateBytes();
    ASSERT_EQ(host::readMacroModules(whole).size(), 3U);
    std::size_t refused = 0;
    for (std::size_t length = 0; length < whole.size(); length += 97) {
        for (const bool cut : {true, false}) {
            std::string bytes = cut ? whole.substr(0, length) : whole;
            if (!cut) {
                bytes[length] = static_cast<char>(~bytes[length]);
            }
            try {
                host::readMacroModules(bytes);
            } catch (const automation::Error&) {
                ++refused;
            }
        }
    }
    EXPECT_GT(refused, whole.size() / 97);
}

}  // namespace
