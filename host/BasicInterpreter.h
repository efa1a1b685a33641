#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"

namespace host {

/// Arguments that a macro may change, and the originals not.
class ArgumentCopies {
  public:
    explicit ArgumentCopies(std::span<const automation::Value> originals);
    ArgumentCopies(const ArgumentCopies&) = delete;
    ArgumentCopies& operator=(const ArgumentCopies&) = delete;
    const std::vector<automation::Value>& references() const noexcept { return references_; }

  private:
    std::vector<automation::Value> copies_;
    std::vector<automation::Value> references_;
};

/// Runs macros of a Word template: as much of the language as templates need that only call into other
/// objects. Names are found without regard to letter case, parameters are passed by reference.
class BasicInterpreter {
  public:
    using CreateObject = std::function<automation::Object(const std::wstring& progId)>;

    /// Throws automation::Error for a statement that it does not know.
    BasicInterpreter(const std::vector<std::string>& modules, CreateObject createObject);

    bool has(std::wstring_view macro) const;
    /// Throws what Word says of a macro that it does not find.
    [[noreturn]] static void noSuchMacro();
    /// A Function's result; empty for a Sub. Throws automation::Error when there is no such macro, when the
    /// number of arguments is not its own, and for an error that it does not skip.
    automation::Value run(std::wstring_view macro, std::span<const automation::Value> arguments) const;

  private:
    /// Of an expression: a name, its member if it has one, and the arguments in brackets.
    struct Expression {
        std::wstring name;
        std::wstring member;
        std::vector<Expression> arguments;
        std::optional<std::wstring> text;
    };
    struct Statement {
        enum class Kind { Assign, Call, SkipErrors, ExitIfNothing };
        Kind kind;
        std::wstring target;
        Expression expression;
    };
    struct Procedure {
        std::wstring name;
        std::vector<std::wstring> parameters;
        std::vector<Statement> statements;
    };
    class Parser;
    class Frame;

    std::map<std::wstring, Procedure> procedures_;
    CreateObject createObject_;
};

}  // namespace host
