#include "platform/windows/Enumerator.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/windows/Exporter.h"
#include "platform/windows/Variant.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/values.h"

namespace platform::windows {

ComPtr<IEnumVARIANT> Enumerator::make(std::shared_ptr<automation::Target> collection,
                                      std::shared_ptr<Exporter> exporter) {
    collection->memberId(L"Count");
    collection->memberId(L"Item");
    return ComPtr<IEnumVARIANT>::adopt(new Enumerator(std::move(collection), std::move(exporter)));
}

Enumerator::Enumerator(std::shared_ptr<automation::Target> collection, std::shared_ptr<Exporter> exporter)
    : ComObject(exporter->liveObjects()),
      exporter_(std::move(exporter)),
      collection_(std::move(collection)) {}

void* Enumerator::find(REFIID id) noexcept {
    return id == IID_IEnumVARIANT ? static_cast<IEnumVARIANT*>(this) : nullptr;
}

ULONG Enumerator::left() const {
    const auto count = static_cast<ULONG>(collection_.get(L"Count").toInteger());
    return count - std::min(count, passed_);
}

STDMETHODIMP Enumerator::Next(ULONG count, VARIANT* elements, ULONG* fetched) {
    if (!elements || (!fetched && count != 1)) {
        return E_POINTER;
    }
    if (fetched) {
        *fetched = 0;
    }
    return guarded([&] {
        std::vector<Variant> found(std::min(count, left()));
        ULONG index = passed_;
        for (Variant& element : found) {
            element = toVariant(collection_.get(L"Item", static_cast<std::int32_t>(++index)), *exporter_);
        }
        passed_ = index;
        for (std::size_t place = 0; place < found.size(); ++place) {
            elements[place] = found[place].detach();
        }
        if (fetched) {
            *fetched = static_cast<ULONG>(found.size());
        }
        return found.size() == count ? S_OK : S_FALSE;
    });
}

STDMETHODIMP Enumerator::Skip(ULONG count) {
    return guarded([&] {
        const ULONG skipped = std::min(count, left());
        passed_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    });
}

STDMETHODIMP Enumerator::Reset() {
    passed_ = 0;
    return S_OK;
}

STDMETHODIMP Enumerator::Clone(IEnumVARIANT** clone) {
    if (!clone) {
        return E_POINTER;
    }
    *clone = nullptr;
    return guarded([&] {
        auto* const made = new Enumerator(collection_.target(), exporter_);
        made->passed_ = passed_;
        *clone = made;
        return S_OK;
    });
}

}  // namespace platform::windows
