#pragma once

#include <algorithm>

#include "host/Automated.h"

namespace host {

/// A host object that holds others: those in `T::list()`. Where the list holds mere data, `T::at(index)`
/// makes the object of an element. A collection whose elements have names, too, says with
/// `T::isNamed(element, name)` whether this is one's, and with `T::noSuchName` how it fails when there is
/// none of that name.
template <class T>
class Collection : public Automated<T> {
  public:
    static constexpr void (*noSuchName)() = raise::objectNotFound;

    std::size_t count() const { return collection().list().size(); }
    auto at(std::size_t index) const { return collection().list()[index]; }
    /// The first element of this name, or nothing.
    auto find(std::wstring_view name) const {
        const std::size_t found = placeOf(name);
        return found == count() ? nullptr : collection().list()[found];
    }
    /// Item, by number from 1 on or by name.
    automation::Value item(Arguments arguments) const {
        const automation::Value& index = arguments[0];
        if constexpr (requires { &T::isNamed; }) {
            if (index.holds<std::wstring>()) {
                const std::size_t found = placeOf(index.toText());
                if (found == count()) {
                    T::noSuchName();
                }
                return answer(collection().at(found));
            }
        }
        return answer(collection().at(position(index, count())));
    }

    /// Deletes the element of this number, or takes mere data out of the list and notes the change.
    void remove(Arguments arguments) {
        auto&& list = collection().list();
        const std::size_t index = position(arguments[0], list.size());
        if constexpr (requires { list[index]->remove(); }) {
            const auto element = list[index];  // Held, as it leaves the list.
            element->remove();
        } else {
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
            collection().changed();
        }
    }

  private:
    friend T;
    explicit Collection(Core& core) : Automated<T>(core) {}

    T& collection() { return static_cast<T&>(*this); }
    const T& collection() const { return static_cast<const T&>(*this); }
    std::size_t placeOf(std::wstring_view name) const {
        const auto& list = collection().list();
        const auto found =
            std::ranges::find_if(list, [&](const auto& element) { return T::isNamed(element, name); });
        return static_cast<std::size_t>(found - list.begin());
    }
};

/// The rows of a collection, with the dispatch ids that most of Outlook's have.
template <class T, std::int32_t Id = 80>
inline constexpr Member<T> countRow{.name = L"Count", .id = Id, .get = use<&Collection<T>::count>};
template <class T, std::int32_t Id = 81>
inline constexpr Member<T> itemRow{
    .name = L"Item", .id = Id, .get = use<&Collection<T>::item>, .least = 1, .most = 1};
template <class T, std::int32_t Id = 84>
inline constexpr Member<T> removeRow{
    .name = L"Remove", .id = Id, .call = use<&Collection<T>::remove>, .least = 1, .most = 1};

}  // namespace host
