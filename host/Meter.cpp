#include "host/Meter.h"

#include "host/hostErrors.h"

namespace host {

void Meter::called(std::wstring_view className, std::wstring_view member) {
    const std::size_t call = ++calls_;
    if (recording_) {
        log_.push_back(std::wstring(className) + L"." + std::wstring(member));
    }
    if (call == actAt_) {
        actAt_ = 0;
        std::exchange(action_, nullptr)();
    }
    if (call - failFrom_ < failCount_) {  // Unsigned: false before the first of them, too.
        raise::operationFailed();
    }
}

}  // namespace host
