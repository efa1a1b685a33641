#pragma once

#include <optional>
#include <string>

namespace program::windows {

/// The update service that the machine's registry names while a run lasts. Needs the right to write there.
class UpdateService {
  public:
    /// Throws std::runtime_error without that right.
    explicit UpdateService(const std::wstring& service);
    UpdateService(const UpdateService&) = delete;
    UpdateService& operator=(const UpdateService&) = delete;
    ~UpdateService();

  private:
    std::optional<std::wstring> before_;
};

}  // namespace program::windows
