#pragma once

#include <optional>
#include <source_location>
#include <string>
#include <type_traits>
#include <utility>

#include "mail/Globals.h"
#include "mail/Trace.h"

namespace mail {

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

    /// For what the user has decided already: that it cannot be done is said even where it was refused.
    ErrorReport&& ofRefusals() && {
        ofRefusals_ = true;
        return std::move(*this);
    }
    bool isOfRefusals() const noexcept { return ofRefusals_; }

    std::wstring text(const automation::Error& error) const;

  private:
    enum class Wording { Usual, Check, Module };
    ErrorReport(Wording wording, std::wstring label) : wording_(wording), label_(std::move(label)) {}

    Wording wording_;
    std::wstring label_;
    bool ofRefusals_ = false;
};

/// The error that is being handled. It is noted in the trace.
inline automation::Error currentError(std::source_location where = std::source_location::current()) {
    noteError(where);
    return automation::currentError();
}

/// Shows the report in a message box with the product's title; nothing of a refusal. Never throws.
void reportError(Globals& globals, const ErrorReport& report, const automation::Error& error) noexcept;

// What these catch is noted in the trace with the procedure that called them.

/// Runs `body`; an error is reported and `onFailure` returned in its place. Never throws.
template <class Body, class Result = std::invoke_result_t<Body>>
Result trapErrors(Globals& globals, const ErrorReport& report, Body&& body,
                  std::type_identity_t<Result> onFailure,
                  std::source_location where = std::source_location::current()) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reportError(globals, report, currentError(where));
        return onFailure;
    }
}

/// Runs `body`; an error is reported. Never throws.
template <class Body>
requires std::is_void_v<std::invoke_result_t<Body>>
void trapErrors(Globals& globals, const ErrorReport& report, Body&& body,
                std::source_location where = std::source_location::current()) {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        reportError(globals, report, currentError(where));
    }
}

/// Runs `body` and forgets an error; true when there was none.
template <class Body>
bool skipErrors(Body&& body, std::source_location where = std::source_location::current()) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (...) {
        noteError(where);
        return false;
    }
}

/// Reads a value; nothing when reading fails.
template <class Body>
std::optional<std::invoke_result_t<Body>> attempt(
    Body&& body, std::source_location where = std::source_location::current()) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        noteError(where);
        return std::nullopt;
    }
}

}  // namespace mail
