#pragma once

#include <vector>

#include "ui/win32/desktop/accessibility.h"
#include "ui/win32/desktop/notice.h"
#include "ui/win32/desktop/task_bar.h"
#include "ui/win32/drawing/fonts.h"

namespace ui::win32 {

class FormPeer;

/// What the peers of one front end share.
struct Toolkit {
  Fonts fonts;
  Accessibility accessibility;
  TaskBar task_bar;
  Notice notice;
  std::vector<FormPeer*> forms;  ///< all that live
};

}  // namespace ui::win32
