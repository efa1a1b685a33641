#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "mail/Globals.h"

namespace basGlobals {

/// How a procedure words its error report.
class ErrorReport {
  public:
    /// "<label> - Error <number>: <description>"; the label names module and procedure.
    static ErrorReport usual(std::wstring label) { return ErrorReport(Wording::Usual, std::move(label)); }
    /// "<label> - Error: <number> <description>", the form of the send checks.
    static ErrorReport check(std::wstring label) { return ErrorReport(Wording::Check, std::move(label)); }

    /// "Error <number> (<description>) in procedure <name> of Module basVeltro".
    static ErrorReport module(std::wstring procedure) {
        return ErrorReport(Wording::Module, std::move(procedure));
    }

    std::wstring text(const automation::Error& error) const;

  private:
    enum class Wording { Usual, Check, Module };
    ErrorReport(Wording wording, std::wstring label) : wording_(wording), label_(std::move(label)) {}

    Wording wording_;
    std::wstring label_;
};

using automation::currentError;

/// Shows the report in a message box with the product's title. Never throws.
void reportError(Globals& globals, const ErrorReport& report, const automation::Error& error) noexcept;

/// Runs `body`; an error is reported and `onFailure` returned in its place. Never throws.
template <class Body, class Result = std::invoke_result_t<Body>>
Result trapErrors(Globals& globals, const ErrorReport& report, Body&& body,
                  std::type_identity_t<Result> onFailure) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reportError(globals, report, currentError());
        return onFailure;
    }
}

/// Runs `body`; an error is reported. Never throws.
template <class Body>
void trapErrors(Globals& globals, const ErrorReport& report, Body&& body) {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        reportError(globals, report, currentError());
    }
}

/// Runs `body` and forgets an error; true when there was none.
template <class Body>
bool skipErrors(Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (...) {
        return false;
    }
}

/// Reads a value; nothing when reading fails.
template <class Body>
std::optional<std::invoke_result_t<Body>> attempt(Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return std::nullopt;
    }
}

}  // namespace basGlobals
