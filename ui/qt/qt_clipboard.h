#pragma once

#include "ui/front_end.h"

namespace ui::qt {

/// Lines end in LF on the clipboard, as programs for Linux expect, and in CR LF here.
class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  std::string Text() override;
};

}  // namespace ui::qt
