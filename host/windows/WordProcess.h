#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <string>

#include "platform/automation.h"
#include "platform/windows/Exporter.h"

namespace host::windows {

/// The process that plays Word: it runs the macros of templates, so that what they make and call is as far
/// from Outlook as it is with the real Word. Started with the first macro; ends with this, or with this
/// process.
///
/// Lives in a single-threaded apartment, whose objects the macros reach while a macro runs.
class WordProcess {
  public:
    /// `now` is what the add-in in that process reads as the local time; `started` is told its id.
    WordProcess(platform::windows::Exporter& exporter, std::function<automation::Date()> now,
                std::function<void(DWORD)> started)
        : exporter_(exporter), now_(std::move(now)), started_(std::move(started)) {}
    WordProcess(const WordProcess&) = delete;
    WordProcess& operator=(const WordProcess&) = delete;
    ~WordProcess();

    /// Throws automation::Error when the process cannot be started or has ended.
    automation::Value run(const std::wstring& templatePath, const std::wstring& macro,
                          std::span<const automation::Value> arguments);
    /// Ends it as a crash does; from any thread.
    void kill();

  private:
    void start();
    bool runs() const;
    void release();

    platform::windows::Exporter& exporter_;
    PROCESS_INFORMATION process_{};
    automation::Object macros_;
    std::function<automation::Date()> now_;
    std::function<void(DWORD)> started_;
};

/// The other side: the whole life of the process that plays Word. `arguments` are those that WordProcess
/// starts it with. Gives the status to exit with.
int playWord(std::span<const std::wstring> arguments, const std::function<void(automation::Date)>& stopClock);

}  // namespace host::windows
