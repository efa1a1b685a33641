#include "host/Meter.h"

#include "host/hostErrors.h"

namespace host {

void Meter::called(std::wstring_view className, std::wstring_view member) {
    ++calls_;
    if (recording_) {
        log_.push_back(std::wstring(className) + L"." + std::wstring(member));
    }
    if (calls_ == failAt_) {
        raise::operationFailed();
    }
}

}  // namespace host
