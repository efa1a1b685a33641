#include "host/windows/RibbonMenus.h"

#include "platform/text.h"

namespace host::windows {

namespace {

/// Beyond the ids of all other commands.
constexpr int firstId = 2000;

/// As Windows draws it, with no letter underlined.
std::wstring plain(const std::wstring& caption) {
    return text::replaceAll(caption, L"&", L"&&");
}

UINT stateOf(const RibbonCommand& command) {
    return command.button && command.enabled ? MF_ENABLED : MF_GRAYED;
}

}  // namespace

bool RibbonMenus::addTo(HMENU bar) {
    shown_ = outlook_.ribbon(window_);
    HMENU group = nullptr;
    for (std::size_t index = 0; index < shown_.size(); ++index) {
        const RibbonCommand& command = shown_[index];
        if (index == 0 || command.group != shown_[index - 1].group || command.tab != shown_[index - 1].tab) {
            group = CreatePopupMenu();
            AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(group), plain(command.group).c_str());
        }
        AppendMenuW(group, MF_STRING | stateOf(command), firstId + index, plain(command.label).c_str());
    }
    return !shown_.empty();
}

void RibbonMenus::refresh(HMENU bar) {
    const auto now = outlook_.ribbon(window_);
    for (std::size_t index = 0; index < now.size() && index < shown_.size(); ++index) {
        const UINT id = static_cast<UINT>(firstId + index);
        ModifyMenuW(bar, id, MF_BYCOMMAND | MF_STRING | stateOf(now[index]), id,
                    plain(now[index].label).c_str());
    }
}

bool RibbonMenus::press(int id) {
    const auto index = static_cast<std::size_t>(id - firstId);
    if (id < firstId || index >= shown_.size()) {
        return false;
    }
    outlook_.pressRibbon(window_, shown_[index].label);
    return true;
}

}  // namespace host::windows
