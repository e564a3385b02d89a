#include "ui/win32/desktop/task_bar.h"

#include <shobjidl.h>

#include <array>

namespace ui::win32 {

TaskBar::TaskBar() : list_(CLSID_TaskbarList, IID_ITaskbarList3) {
  if (list_ && FAILED(list_->HrInit())) list_ = {};
}
TaskBar::~TaskBar() = default;

void TaskBar::ShowProgress(HWND window, std::optional<double> fraction, TaskState state) const {
  if (!list_) return;
  if (!fraction) {
    list_->SetProgressState(window, TBPF_NOPROGRESS);
    return;
  }
  static constexpr std::array kFlags{TBPF_NORMAL, TBPF_PAUSED, TBPF_ERROR};
  list_->SetProgressState(window, kFlags[static_cast<std::size_t>(state)]);
  constexpr ULONGLONG kSteps = 1000;
  list_->SetProgressValue(window, static_cast<ULONGLONG>(*fraction * kSteps), kSteps);
}

UINT TaskBar::ButtonMadeMessage() {
  static const UINT message = RegisterWindowMessageW(L"TaskbarButtonCreated");
  return message;
}

}  // namespace ui::win32
