#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <span>
#include <vector>

#include "platform/automation.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/LiveObjects.h"
#include "platform/windows/Variant.h"

/// Values as automation carries them, and back.
///
/// A byte, a short, a currency: numbers of every width become the 32-bit integer if that is their kind and
/// they fit, else a double. Null, missing arguments and error values become the empty value. Texts are
/// counted, so NULs and lone surrogates in them survive. Arrays have one dimension; one of
/// bytes is Binary.
namespace platform::windows {

/// Turns objects into COM interfaces and back.
class ObjectTranslator {
  public:
    virtual ~ObjectTranslator() = default;
    /// The object as COM sees it: IDispatch, or a bare IUnknown. Nothing for nothing.
    virtual ComPtr<IUnknown> toCom(const automation::Object& object) = 0;
    /// Nothing for null.
    virtual automation::Object toObject(IUnknown* object) = 0;
    /// Where the COM objects made on the way are counted.
    virtual LiveObjects& liveObjects() = 0;
    /// What must outlive the handling of an event, held by the caller meanwhile; may be nothing.
    virtual std::shared_ptr<void> owner() { return nullptr; }
};

/// A by-reference VARIANT is followed. Throws Error 13 for a kind that automation's clients do not know.
automation::Value toValue(const VARIANT& variant, ObjectTranslator& translator);
/// A reference Value is followed.
Variant toVariant(const automation::Value& value, ObjectTranslator& translator);

/// Stores the value in the variable that a by-reference VARIANT points to, in that variable's type.
void assign(VARIANT& reference, const automation::Value& value, ObjectTranslator& translator);

/// Arguments on their way into an Invoke: last first, as DISPPARAMS wants them. A reference Value is passed
/// by reference; writeBack() brings what the callee wrote to its variable. An empty Value is a left-out
/// argument.
class OutgoingArguments {
  public:
    /// `put` says that the last argument is the new value of a property.
    OutgoingArguments(std::span<const automation::Value> arguments, bool put, ObjectTranslator& translator);
    OutgoingArguments(const OutgoingArguments&) = delete;
    OutgoingArguments& operator=(const OutgoingArguments&) = delete;

    DISPPARAMS& parameters() noexcept { return parameters_; }
    void writeBack();

  private:
    /// Keeps what a variant refers to, for as long as the arguments live.
    struct Passed {
        std::unique_ptr<Variant> storage;
        /// Null for an argument passed by value.
        automation::Value* variable;
    };
    VARIANT pass(const automation::Value& value, bool newValue);

    ObjectTranslator& translator_;
    std::vector<Passed> passed_;
    std::vector<VARIANT> variants_;
    DISPID putId_ = DISPID_PROPERTYPUT;
    DISPPARAMS parameters_{};
};

/// Arguments that an Invoke received, in declared order. By-reference ones become reference Values, except in
/// a property put, whose new value may be kept beyond the call. Throws Error when their kinds or their naming
/// are not what automation clients pass.
class IncomingArguments {
  public:
    IncomingArguments(const DISPPARAMS* parameters, bool put, ObjectTranslator& translator);
    IncomingArguments(const IncomingArguments&) = delete;
    IncomingArguments& operator=(const IncomingArguments&) = delete;

    std::span<automation::Value> values() noexcept { return values_; }
    /// Copies the by-reference arguments back to the caller's variables.
    void writeBack();

  private:
    struct Reference {
        VARIANT* target;
        std::unique_ptr<automation::Value> variable;
    };

    ObjectTranslator& translator_;
    std::vector<Reference> references_;
    std::vector<automation::Value> values_;
};

}  // namespace platform::windows
