#include "ui/caption.h"

#include <algorithm>

#include "base/ascii_case.h"

namespace ui {

std::string MarkAccessKey(std::string_view text, char access_key) {
  const auto key = access_key == 0 ? text.end() : std::find_if(text.begin(), text.end(), [=](char c) {
    return base::LowerAscii(c) == base::LowerAscii(access_key);
  });
  std::string caption;
  for (auto c = text.begin(); c != text.end(); ++c) {
    if (c == key || *c == '&') caption += '&';
    caption += *c;
  }
  return caption;
}

}  // namespace ui
