#pragma once

#include "host/Application.h"
#include "host/Core.h"
#include "host/NameSpace.h"

namespace host {

// First steps of rows.

inline Application& applicationOf(const HostObject& object) {
    return object.core().application();
}

inline NameSpace& sessionOf(const HostObject& object) {
    return object.core().nameSpace();
}

inline WindowList& windowsOf(const HostObject& object) {
    return object.core().windows();
}

// The rows that stand in the tables of all of Outlook's own objects.

template <class T>
inline constexpr Member<T> applicationRow{.name = L"Application", .id = 61440, .get = use<applicationOf>};
template <class T, auto Parent = applicationOf>
inline constexpr Member<T> parentRow{.name = L"Parent", .id = 61441, .get = use<Parent>};
/// By Outlook's number of the class.
template <class T, std::int32_t Number>
inline constexpr Member<T> classRow{
    .name = L"Class", .id = 61450, .get = [](T&, Arguments) { return automation::Value(Number); }};
template <class T>
inline constexpr Member<T> sessionRow{.name = L"Session", .id = 61451, .get = use<sessionOf>};

}  // namespace host
