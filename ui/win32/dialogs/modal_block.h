#pragma once

#include <vector>

#include "ui/win32/toolkit.h"

namespace ui::win32 {

/// Keeps the user from the program's windows while it lives, from all but one.
class ModalBlock {
 public:
  ModalBlock(const Toolkit& toolkit, HWND except);
  ~ModalBlock();
  ModalBlock(const ModalBlock&) = delete;
  ModalBlock& operator=(const ModalBlock&) = delete;

 private:
  std::vector<HWND> blocked_;
};

}  // namespace ui::win32
