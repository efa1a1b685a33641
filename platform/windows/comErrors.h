#pragma once

#include <windows.h>

#include <oaidl.h>

#include <new>
#include <string>

#include "platform/automation.h"

/// COM's results and the errors of automation calls, each in terms of the other.
namespace platform::windows {

/// What the system says about a result or error code; without the line break at its end.
std::wstring systemMessage(DWORD code);

/// The error that a failed result stands for. Results that automation has a number of its own for (wrong
/// type, no such member, ...) get that number, all others keep theirs.
automation::Error errorOf(HRESULT result);

/// Throws errorOf(result) unless it is a success.
void check(HRESULT result);

/// The same for the result of an Invoke, with the object's own words when it raised an exception; asks for
/// them if it deferred them. Frees the texts in `details`.
void checkInvoke(HRESULT result, EXCEPINFO& details);

/// The result that carries the error's number through COM; errorOf gives the same number back.
HRESULT resultOf(const automation::Error& error);

/// Describes the error to a caller of Invoke, who frees the texts.
void describe(const automation::Error& error, EXCEPINFO& details);

/// Runs the body of a COM entry point: no exception may cross it. The body answers a result.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
    try {
        return body();
    } catch (const automation::Error& error) {
        return resultOf(error);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

/// The same for Invoke, which describes errors besides.
template <class Body>
HRESULT guardedInvoke(EXCEPINFO* details, Body&& body) noexcept {
    return guarded([&]() -> HRESULT {
        try {
            return body();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (...) {
            const automation::Error error = automation::currentError();
            if (!details) {
                return resultOf(error);
            }
            describe(error, *details);
            return DISP_E_EXCEPTION;
        }
    });
}

}  // namespace platform::windows
