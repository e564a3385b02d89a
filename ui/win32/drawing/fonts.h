#pragma once

#include <map>
#include <string>
#include <tuple>

#include "base/handle.h"
#include "ui/geometry.h"
#include "ui/win32/win32.h"

namespace ui::win32 {

/// Keeps the fonts that are in use.
class Fonts {
 public:
  /// Valid as long as this object. A font without a name is the one of the system's messages.
  HFONT Get(const Font& font, UINT dpi);

 private:
  using Key = std::tuple<std::string, int, bool, UINT>;
  std::map<Key, base::Handle<base::ClosedBy<HFONT, &DeleteObject>>> fonts_;
};

/// The size of one line of text, in pixels.
SIZE MeasureText(const std::wstring& text, HFONT font);

}  // namespace ui::win32
