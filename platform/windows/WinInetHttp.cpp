#include "platform/windows/WinInetHttp.h"

#include <memory>
#include <mutex>
#include <utility>

#include "platform/windows/WebTransfer.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/ownModule.h"

namespace platform::windows {

namespace {

constexpr UINT answered = WM_APP;

/// What the thread of a request and whoever waits for its answer share.
struct Exchange {
    explicit Exchange(const WebAddress& address) : transfer(address) {}

    WebTransfer transfer;
    std::mutex mutex;
    /// Where the answer is waited for; null once nobody does.
    HWND window = nullptr;
    Http::Answer answer;
};

/// What a thread is started with, and owns: the DLL with its code included.
struct Start {
    std::shared_ptr<Exchange> exchange;
    HMODULE module = nullptr;
};

void carryOut(const std::shared_ptr<Exchange>& exchange) {
    Http::Answer answer = exchange->transfer.run();
    const std::lock_guard lock(exchange->mutex);
    exchange->answer = std::move(answer);
    if (exchange->window) {
        PostMessageW(exchange->window, answered, 0, 0);
    }
}

DWORD WINAPI threadMain(void* given) noexcept {
    std::unique_ptr<Start> start(static_cast<Start*>(given));
    const HMODULE module = start->module;
    guarded([&start] {
        carryOut(start->exchange);
        return S_OK;
    });
    start.reset();
    FreeLibraryAndExitThread(module, 0);
}

void startThread(const std::shared_ptr<Exchange>& exchange) {
    auto start = std::make_unique<Start>(Start{exchange, nullptr});
    // One more reference to the module, which the thread gives back.
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&threadMain),
                            &start->module)) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
    HANDLE thread = CreateThread(nullptr, 0, &threadMain, start.get(), 0, nullptr);
    if (!thread) {
        const automation::Error error = errorOf(HRESULT_FROM_WIN32(GetLastError()));
        FreeLibrary(start->module);
        throw error;
    }
    static_cast<void>(start.release());
    CloseHandle(thread);
}

class Request final : public HttpRequest {
  public:
    Request(const WebAddress& address, std::function<void(Http::Answer)> done, OwnerLock owner)
        : exchange_(std::make_shared<Exchange>(address)),
          done_(std::move(done)),
          window_(
              MessageWindow::requestName, [this](UINT) { finish(); }, std::move(owner)) {
        exchange_->window = window_.handle();
        // Whatever the transfer is busy with by then.
        if (SetTimer(window_.handle(), 1,
                     static_cast<UINT>(std::chrono::milliseconds(Http::longestWait).count()), nullptr) == 0) {
            throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
        }
        startThread(exchange_);
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request() override { abandon(); }

  private:
    void finish() {
        const auto done = std::exchange(done_, nullptr);
        if (!done) {
            return;
        }
        done(abandon());  // May destroy this.
    }

    /// What has come by now.
    Http::Answer abandon() {
        Http::Answer answer;
        {
            const std::lock_guard lock(exchange_->mutex);
            exchange_->window = nullptr;
            answer = std::move(exchange_->answer);
        }
        KillTimer(window_.handle(), 1);
        exchange_->transfer.abandon();
        return answer;
    }

    std::shared_ptr<Exchange> exchange_;
    std::function<void(Http::Answer)> done_;
    MessageWindow window_;
};

}  // namespace

std::unique_ptr<HttpRequest> WinInetHttp::get(const WebAddress& address, std::function<void(Answer)> done) {
    return std::make_unique<Request>(address, std::move(done), owner_);
}

}  // namespace platform::windows
