#include "host/BasicInterpreter.h"

#include <algorithm>
#include <cwctype>
#include <utility>

#include "platform/text.h"

namespace host {

using automation::Value;

namespace {

constexpr std::int32_t cannotRun = 1004;
constexpr std::int32_t wrongArgumentCount = 450;

[[noreturn]] void notUnderstood(std::wstring_view line) {
    throw automation::Error(cannotRun, L"Compile error: " + std::wstring(line), L"Microsoft Word");
}

bool startsWord(std::wstring_view line, std::wstring_view word) {
    return text::equalsIgnoringCase(line.substr(0, word.size()), word) &&
           (line.size() == word.size() || !std::iswalnum(static_cast<std::wint_t>(line[word.size()])));
}

/// Takes the words off the line when it starts with them.
bool take(std::wstring_view& line, std::initializer_list<std::wstring_view> words) {
    std::wstring_view rest = line;
    for (const std::wstring_view word : words) {
        rest = text::trim(rest);
        if (!startsWord(rest, word)) {
            return false;
        }
        rest.remove_prefix(word.size());
    }
    line = text::trim(rest);
    return true;
}

std::wstring_view withoutComment(std::wstring_view line) {
    bool quoted = false;
    for (std::size_t index = 0; index < line.size(); ++index) {
        quoted = quoted != (line[index] == L'"');
        if (line[index] == L'\'' && !quoted) {
            return line.substr(0, index);
        }
    }
    return line;
}

/// The lines as the language sees them: joined where one ends in "_", without comments and line ends.
std::vector<std::wstring> linesOf(const std::string& module) {
    std::vector<std::wstring> lines;
    bool continues = false;
    std::wstring_view left;
    const std::wstring source = text::fromUtf8(module);
    for (left = source; !left.empty();) {
        const auto end = std::min(left.find(L'\n'), left.size());
        std::wstring_view line = left.substr(0, end);
        left.remove_prefix(std::min(end + 1, left.size()));
        line = text::trim(withoutComment(line.substr(0, std::min(line.find(L'\r'), line.size()))));
        if (!continues) {
            lines.emplace_back();
        }
        continues = line.ends_with(L" _");
        lines.back() += continues ? line.substr(0, line.size() - 1) : line;
    }
    return lines;
}

}  // namespace

ArgumentCopies::ArgumentCopies(std::span<const Value> originals) {
    for (const Value& value : originals) {
        const Value* original = &value;
        while (original->isReference()) {
            original = &original->variable();
        }
        copies_.push_back(*original);
    }
    for (Value& copy : copies_) {
        references_.push_back(Value::reference(copy));
    }
}

/// Reads procedures from the lines of a module.
class BasicInterpreter::Parser {
  public:
    explicit Parser(std::map<std::wstring, Procedure>& procedures) : procedures_(procedures) {}

    void line(std::wstring_view line) {
        if (line.empty() || take(line, {L"Attribute"}) || take(line, {L"Option"}) || take(line, {L"Dim"})) {
            return;
        }
        if (take(line, {L"Public"}) || take(line, {L"Private"})) {
            // Who may call it makes no difference here.
        }
        if (take(line, {L"Function"}) || take(line, {L"Sub"})) {
            header(line);
        } else if (take(line, {L"End", L"Function"}) || take(line, {L"End", L"Sub"})) {
            current_ = nullptr;
        } else if (current_) {
            current_->statements.push_back(statement(line));
        } else {
            notUnderstood(line);
        }
    }

  private:
    static std::wstring name(std::wstring_view& line) {
        std::size_t end = 0;
        while (end < line.size() &&
               (std::iswalnum(static_cast<std::wint_t>(line[end])) || line[end] == L'_')) {
            ++end;
        }
        if (end == 0) {
            notUnderstood(line);
        }
        std::wstring found(line.substr(0, end));
        line = text::trim(line.substr(end));
        return found;
    }

    static bool takeSign(std::wstring_view& line, wchar_t sign) {
        if (!line.starts_with(sign)) {
            return false;
        }
        line = text::trim(line.substr(1));
        return true;
    }

    void header(std::wstring_view line) {
        Procedure procedure{name(line), {}, {}};
        if (!takeSign(line, L'(')) {
            notUnderstood(line);
        }
        while (!takeSign(line, L')')) {
            procedure.parameters.push_back(text::upper(name(line)));
            if (take(line, {L"As"})) {
                name(line);
            }
            takeSign(line, L',');
        }
        const std::wstring key = text::upper(procedure.name);
        current_ = &(procedures_[key] = std::move(procedure));
    }

    static Expression expression(std::wstring_view& line) {
        Expression result;
        if (takeSign(line, L'"')) {
            const auto end = line.find(L'"');
            if (end == std::wstring_view::npos) {
                notUnderstood(line);
            }
            result.text = line.substr(0, end);
            line = text::trim(line.substr(end + 1));
            return result;
        }
        result.name = text::upper(name(line));
        if (takeSign(line, L'.')) {
            result.member = name(line);
        }
        if (takeSign(line, L'(')) {
            while (!takeSign(line, L')')) {
                result.arguments.push_back(expression(line));
                takeSign(line, L',');
            }
        }
        return result;
    }

    static Expression wholeExpression(std::wstring_view line) {
        const std::wstring_view all = line;
        Expression result = expression(line);
        if (!line.empty()) {
            notUnderstood(all);
        }
        return result;
    }

    static Statement statement(std::wstring_view line) {
        using Kind = Statement::Kind;
        const std::wstring_view all = line;
        if (take(line, {L"On", L"Error", L"Resume", L"Next"})) {
            return {Kind::SkipErrors, {}, {}};
        }
        if (take(line, {L"If"})) {
            const std::wstring variable = text::upper(name(line));
            if (!take(line, {L"Is", L"Nothing", L"Then", L"Exit"})) {
                notUnderstood(all);
            }
            return {Kind::ExitIfNothing, variable, {}};
        }
        take(line, {L"Set"});
        std::wstring_view rest = line;
        const std::wstring target = text::upper(name(rest));
        if (takeSign(rest, L'=')) {
            return {Kind::Assign, target, wholeExpression(rest)};
        }
        return {Kind::Call, {}, wholeExpression(line)};
    }

    std::map<std::wstring, Procedure>& procedures_;
    Procedure* current_ = nullptr;
};

/// One call of a procedure.
class BasicInterpreter::Frame {
  public:
    Frame(const BasicInterpreter& program, const Procedure& procedure, std::span<const Value> arguments)
        : program_(program), procedure_(procedure) {
        for (std::size_t index = 0; index < arguments.size(); ++index) {
            const Value& given = arguments[index];
            variables_[procedure.parameters[index]] = given;
        }
    }

    Value run() {
        for (const Statement& each : procedure_.statements) {
            try {
                if (!perform(each)) {
                    break;
                }
            } catch (const automation::Error&) {
                if (!skipsErrors_) {
                    throw;
                }
            }
        }
        return variables_[text::upper(procedure_.name)];
    }

  private:
    /// False when it ends the procedure.
    bool perform(const Statement& statement) {
        switch (statement.kind) {
            case Statement::Kind::SkipErrors:
                skipsErrors_ = true;
                return true;
            case Statement::Kind::ExitIfNothing:
                return !isNothing(variables_[statement.target]);
            case Statement::Kind::Assign:
                assign(statement.target, value(statement.expression));
                return true;
            case Statement::Kind::Call:
                value(statement.expression);
                return true;
        }
        return true;
    }

    static bool isNothing(const Value& value) { return value.isEmpty() || !value.toObject(); }

    void assign(const std::wstring& name, Value value) {
        Value& variable = variables_[name];
        (variable.isReference() ? variable.variable() : variable) = std::move(value);
    }

    /// By reference where it is a variable.
    Value argument(const Expression& expression) {
        const bool isVariable = !expression.text && expression.member.empty() && expression.arguments.empty();
        if (!isVariable) {
            return value(expression);
        }
        Value& variable = variables_[expression.name];
        return variable.isReference() ? variable : Value::reference(variable);
    }

    Value value(const Expression& expression) {
        if (expression.text) {
            return *expression.text;
        }
        std::vector<Value> arguments;
        for (const Expression& each : expression.arguments) {
            arguments.push_back(argument(each));
        }
        if (!expression.member.empty()) {
            automation::Target& object = *requireObject(variables_[expression.name]);
            return object.invoke(object.memberId(expression.member), automation::Access::Call, arguments);
        }
        if (expression.name == L"CREATEOBJECT" && arguments.size() == 1) {
            return program_.createObject_(arguments[0].toText());
        }
        if (program_.has(expression.name)) {
            return program_.run(expression.name, arguments);
        }
        return variables_[expression.name];
    }

    static std::shared_ptr<automation::Target> requireObject(const Value& value) {
        if (isNothing(value)) {
            throw automation::Error(automation::errors::objectNotSet, L"Object variable not set");
        }
        return value.toObject().target();
    }

    const BasicInterpreter& program_;
    const Procedure& procedure_;
    std::map<std::wstring, Value> variables_;
    bool skipsErrors_ = false;
};

BasicInterpreter::BasicInterpreter(const std::vector<std::string>& modules, CreateObject createObject)
    : createObject_(std::move(createObject)) {
    for (const std::string& module : modules) {
        Parser parser(procedures_);
        for (const std::wstring& line : linesOf(module)) {
            parser.line(line);
        }
    }
}

void BasicInterpreter::noSuchMacro() {
    throw automation::Error(cannotRun, L"Unable to run the specified macro", L"Microsoft Word");
}

bool BasicInterpreter::has(std::wstring_view macro) const {
    return procedures_.contains(text::upper(macro));
}

Value BasicInterpreter::run(std::wstring_view macro, std::span<const Value> arguments) const {
    const auto found = procedures_.find(text::upper(macro));
    if (found == procedures_.end()) {
        noSuchMacro();
    }
    if (arguments.size() != found->second.parameters.size()) {
        throw automation::Error(wrongArgumentCount,
                                L"Wrong number of arguments or invalid property assignment",
                                L"Microsoft Word");
    }
    return Frame(*this, found->second, arguments).run();
}

}  // namespace host
