#include "platform/windows/values.h"

#include <cstring>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/comErrors.h"

namespace platform::windows {

namespace {

using automation::Array;
using automation::Binary;
using automation::Date;
using automation::Object;
using automation::Value;

[[noreturn]] void throwTypeMismatch() {
    throw errorOf(DISP_E_TYPEMISMATCH);
}

/// An integer of any width: as one if it fits, else as a double.
template <class Integer>
Value integerValue(Integer number) {
    if (std::in_range<std::int32_t>(number)) {
        return static_cast<std::int32_t>(number);
    }
    return static_cast<double>(number);
}

double decimalValue(const VARIANT& variant) {
    double number = 0;
    check(VarR8FromDec(const_cast<DECIMAL*>(&variant.decVal), &number));
    return number;
}

/// Bytes of a variable of that type; 0 for types that are neither assigned to nor kept in arrays.
std::size_t sizeOf(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return 0;
    }
}

/// How many elements an array of one dimension has; none for no array.
ULONG countOf(SAFEARRAY* array, VARTYPE elementType) {
    if (!array) {
        return 0;
    }
    // An array that is not of the type it is passed as would not fit into an element.
    if (SafeArrayGetDim(array) != 1 || SafeArrayGetElemsize(array) != sizeOf(elementType)) {
        throwTypeMismatch();
    }
    return array->rgsabound[0].cElements;
}

/// Lets the elements of an array be touched for as long as it lives.
class ArrayData {
  public:
    explicit ArrayData(SAFEARRAY* array) : array_(array) { check(SafeArrayAccessData(array, &data_)); }
    ~ArrayData() { SafeArrayUnaccessData(array_); }
    ArrayData(const ArrayData&) = delete;
    ArrayData& operator=(const ArrayData&) = delete;

    void* get() const noexcept { return data_; }

  private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

Binary toBinary(SAFEARRAY* array) {
    Binary bytes(countOf(array, VT_UI1));
    if (!bytes.empty()) {
        std::memcpy(bytes.data(), ArrayData(array).get(), bytes.size());
    }
    return bytes;
}

Array toArray(SAFEARRAY* array, VARTYPE elementType, ObjectTranslator& translator) {
    const ULONG count = countOf(array, elementType);
    if (count == 0) {
        return {};
    }
    LONG first = 0;
    check(SafeArrayGetLBound(array, 1, &first));
    Array values;
    // By count: the last index may be the greatest of its type, and that of an empty array before the least.
    for (ULONG position = 0; position < count; ++position) {
        auto index = static_cast<LONG>(static_cast<ULONG>(first) + position);
        Variant element;
        if (elementType == VT_VARIANT) {
            check(SafeArrayGetElement(array, &index, element.address()));
        } else {
            // The members of a VARIANT's union all start at the same place.
            check(SafeArrayGetElement(array, &index, &element->byref));
            element->vt = elementType;
        }
        values.push_back(toValue(element.get(), translator));
    }
    return values;
}

using ArrayOwner = std::unique_ptr<SAFEARRAY, decltype(&SafeArrayDestroy)>;

ArrayOwner makeVector(VARTYPE elementType, std::size_t count) {
    if (!std::in_range<LONG>(count)) {
        throw std::bad_alloc();
    }
    ArrayOwner array(SafeArrayCreateVector(elementType, 0, static_cast<ULONG>(count)), &SafeArrayDestroy);
    if (!array) {
        throw std::bad_alloc();
    }
    return array;
}

ArrayOwner toSafeArray(const Binary& bytes) {
    ArrayOwner array = makeVector(VT_UI1, bytes.size());
    if (!bytes.empty()) {
        std::memcpy(ArrayData(array.get()).get(), bytes.data(), bytes.size());
    }
    return array;
}

ArrayOwner toSafeArray(const Array& values, ObjectTranslator& translator) {
    ArrayOwner array = makeVector(VT_VARIANT, values.size());
    LONG index = 0;
    for (const Value& value : values) {
        Variant element = toVariant(value, translator);
        check(SafeArrayPutElement(array.get(), &index, element.address()));
        ++index;
    }
    return array;
}

void setObject(VARIANT& variant, const Object& object, ObjectTranslator& translator) {
    variant.vt = VT_DISPATCH;
    variant.pdispVal = nullptr;
    if (ComPtr<IUnknown> unknown = translator.toCom(object)) {
        if (ComPtr<IDispatch> dispatch = query<IDispatch>(unknown.get(), IID_IDispatch)) {
            variant.pdispVal = dispatch.detach();
        } else {
            variant.vt = VT_UNKNOWN;
            variant.punkVal = unknown.detach();
        }
    }
}

VARTYPE referredType(const VARIANT& reference) {
    return static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
}

bool isAssignable(const VARIANT& variant) {
    return (variant.vt & VT_BYREF) != 0 && variant.byref && sizeOf(referredType(variant)) != 0;
}

}  // namespace

Value toValue(const VARIANT& variant, ObjectTranslator& translator) {
    if ((variant.vt & VT_BYREF) != 0) {
        Variant copy;
        check(VariantCopyInd(copy.address(), const_cast<VARIANT*>(&variant)));
        return toValue(copy.get(), translator);
    }
    if (variant.vt == (VT_ARRAY | VT_UI1)) {
        return toBinary(variant.parray);
    }
    if ((variant.vt & VT_ARRAY) != 0) {
        return toArray(variant.parray, static_cast<VARTYPE>(variant.vt & ~VT_ARRAY), translator);
    }
    switch (variant.vt) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_ERROR:
            return {};
        case VT_BOOL:
            return variant.boolVal != VARIANT_FALSE;
        case VT_I1:
            return integerValue(static_cast<signed char>(variant.cVal));
        case VT_UI1:
            return integerValue(variant.bVal);
        case VT_I2:
            return integerValue(variant.iVal);
        case VT_UI2:
            return integerValue(variant.uiVal);
        case VT_I4:
        case VT_INT:
            return integerValue(variant.lVal);
        case VT_UI4:
        case VT_UINT:
            return integerValue(variant.ulVal);
        case VT_I8:
            return integerValue(variant.llVal);
        case VT_UI8:
            return integerValue(variant.ullVal);
        case VT_R4:
            return static_cast<double>(variant.fltVal);
        case VT_R8:
            return variant.dblVal;
        case VT_CY:
            return static_cast<double>(variant.cyVal.int64) / 10000;
        case VT_DECIMAL:
            return decimalValue(variant);
        case VT_DATE:
            return Date{variant.date};
        case VT_BSTR:
            return Bstr::toText(variant.bstrVal);
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return translator.toObject(variant.punkVal);
        default:
            throwTypeMismatch();
    }
}

Variant toVariant(const Value& value, ObjectTranslator& translator) {
    const Value::Data& data = value.data();
    if (const auto* variable = std::get_if<Value*>(&data)) {
        return toVariant(**variable, translator);
    }
    Variant variant;
    if (const auto* flag = std::get_if<bool>(&data)) {
        variant->vt = VT_BOOL;
        variant->boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const auto* integer = std::get_if<std::int32_t>(&data)) {
        variant->vt = VT_I4;
        variant->lVal = *integer;
    } else if (const auto* number = std::get_if<double>(&data)) {
        variant->vt = VT_R8;
        variant->dblVal = *number;
    } else if (const auto* date = std::get_if<Date>(&data)) {
        variant->vt = VT_DATE;
        variant->date = date->days;
    } else if (const auto* text = std::get_if<std::wstring>(&data)) {
        variant->bstrVal = Bstr(*text).detach();
        variant->vt = VT_BSTR;
    } else if (const auto* object = std::get_if<Object>(&data)) {
        setObject(variant.get(), *object, translator);
    } else if (const auto* array = std::get_if<Array>(&data)) {
        variant->parray = toSafeArray(*array, translator).release();
        variant->vt = VT_ARRAY | VT_VARIANT;
    } else if (const auto* bytes = std::get_if<Binary>(&data)) {
        variant->parray = toSafeArray(*bytes).release();
        variant->vt = VT_ARRAY | VT_UI1;
    }
    return variant;
}

void assign(VARIANT& reference, const Value& value, ObjectTranslator& translator) {
    if (!isAssignable(reference)) {
        throwTypeMismatch();
    }
    const VARTYPE type = referredType(reference);
    Variant source = toVariant(value, translator);
    if (type == VT_VARIANT) {
        VariantClear(reference.pvarVal);
        *reference.pvarVal = source.detach();
        return;
    }
    if (source->vt == VT_EMPTY && (type == VT_DISPATCH || type == VT_UNKNOWN)) {
        source->vt = type;
        source->punkVal = nullptr;
    } else if (source->vt != type) {
        check(VariantChangeType(source.address(), source.address(), 0, type));
    }
    Variant former;  // Frees what the variable held.
    former->vt = type;
    std::memcpy(&former->byref, reference.byref, sizeOf(type));
    const VARIANT moved = source.detach();
    std::memcpy(reference.byref, &moved.byref, sizeOf(type));
}

OutgoingArguments::OutgoingArguments(std::span<const Value> arguments, bool put, ObjectTranslator& translator)
    : translator_(translator) {
    variants_.reserve(arguments.size());
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        variants_.push_back(pass(*argument, put && argument == arguments.rbegin()));
    }
    parameters_.rgvarg = variants_.data();
    parameters_.cArgs = static_cast<UINT>(variants_.size());
    if (put) {
        parameters_.rgdispidNamedArgs = &putId_;
        parameters_.cNamedArgs = 1;
    }
}

VARIANT OutgoingArguments::pass(const Value& value, bool newValue) {
    VARIANT variant;
    VariantInit(&variant);
    if (value.isEmpty() && !value.isReference() && !newValue) {
        variant.vt = VT_ERROR;
        variant.scode = DISP_E_PARAMNOTFOUND;
        return variant;
    }
    auto storage = std::make_unique<Variant>(toVariant(value, translator_));
    VARIANT& stored = storage->get();
    Value* variable = nullptr;
    if (value.isReference() && !newValue) {
        variable = &value.variable();
        const bool typed = sizeOf(stored.vt) != 0;
        variant.vt = static_cast<VARTYPE>(VT_BYREF | (typed ? stored.vt : VARTYPE{VT_VARIANT}));
        variant.byref = typed ? static_cast<void*>(&stored.byref) : &stored;
    } else {
        variant = stored;
    }
    passed_.push_back({std::move(storage), variable});
    return variant;
}

void OutgoingArguments::writeBack() {
    for (const Passed& passed : passed_) {
        if (passed.variable) {
            *passed.variable = toValue(passed.storage->get(), translator_);
        }
    }
}

IncomingArguments::IncomingArguments(const DISPPARAMS* parameters, bool put, ObjectTranslator& translator)
    : translator_(translator) {
    if (!parameters || (parameters->cArgs > 0 && !parameters->rgvarg)) {
        throw errorOf(E_INVALIDARG);
    }
    const bool named = parameters->cNamedArgs > 0;
    if (named && !(put && parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs &&
                   parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)) {
        throw errorOf(DISP_E_NONAMEDARGS);
    }
    if (put && parameters->cArgs == 0) {
        throw errorOf(DISP_E_BADPARAMCOUNT);
    }
    values_.reserve(parameters->cArgs);
    for (UINT index = parameters->cArgs; index-- > 0;) {
        VARIANT& argument = parameters->rgvarg[index];
        Value value = toValue(argument, translator);
        if (!put && isAssignable(argument)) {
            references_.push_back({&argument, std::make_unique<Value>(std::move(value))});
            value = Value::reference(*references_.back().variable);
        }
        values_.push_back(std::move(value));
    }
}

void IncomingArguments::writeBack() {
    for (const Reference& reference : references_) {
        assign(*reference.target, *reference.variable, translator_);
    }
}

}  // namespace platform::windows
