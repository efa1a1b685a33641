#include "host/hostErrors.h"

#include <string>

namespace host::raise {

using automation::Error;

namespace {

[[noreturn]] void fromOutlook(std::int32_t number, std::wstring description) {
    throw Error(number, std::move(description), L"Microsoft Office Outlook");
}

}  // namespace

void memberNotFound(std::wstring_view name) {
    fromOutlook(automation::errors::memberNotFound,
                L"Object doesn't support this property or method: '" + std::wstring(name) + L"'");
}

void wrongArgumentCount(std::wstring_view name) {
    fromOutlook(badArgumentCount,
                L"Wrong number of arguments or invalid property assignment: '" + std::wstring(name) + L"'");
}

void typeMismatch() {
    fromOutlook(automation::errors::typeMismatch, L"Type mismatch");
}

void outOfBounds() {
    fromOutlook(badIndex, L"Array index out of bounds.");
}

void operationFailed() {
    fromOutlook(automation::errors::failed, L"The operation failed.");
}

void operationAborted() {
    fromOutlook(aborted, L"Operation aborted");
}

void noPermission() {
    fromOutlook(accessDenied, L"You don't have appropriate permission to perform this operation.");
}

void objectNotFound() {
    fromOutlook(notFound, L"The operation failed. An object could not be found.");
}

void noSuchProperty(std::wstring_view name) {
    fromOutlook(notFound, L"The property \"" + std::wstring(name) + L"\" is unknown or cannot be found.");
}

void outOfMemory() {
    fromOutlook(automation::errors::outOfMemory, L"Out of memory or system resources.");
}

void cannotParse() {
    fromOutlook(badIndex, L"Cannot parse condition.");
}

void itemGone() {
    fromOutlook(objectDeleted, L"The item has been moved or deleted.");
}

void messageChanged() {
    fromOutlook(objectChanged, L"The operation cannot be performed because the message has been changed.");
}

void explorerClosed() {
    fromOutlook(
        automation::errors::failed,
        L"The Explorer has been closed and cannot be used for further operations. Review your code and "
        L"restart Outlook.");
}

void inspectorClosed() {
    fromOutlook(automation::errors::failed,
                L"The Inspector has been closed and cannot be used for further operations. Review your code "
                L"and restart Outlook.");
}

void outlookGone() {
    fromOutlook(disconnected, L"The object invoked has disconnected from its clients.");
}

}  // namespace host::raise
