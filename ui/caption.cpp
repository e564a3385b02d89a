#include "ui/caption.h"

#include <algorithm>
#include <cctype>

namespace ui {
namespace {

bool SameLetter(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

}  // namespace

std::string MarkAccessKey(std::string_view text, char access_key) {
  const auto key = access_key == 0 ? text.end() : std::find_if(text.begin(), text.end(), [=](char c) {
    return SameLetter(c, access_key);
  });
  std::string caption;
  for (auto c = text.begin(); c != text.end(); ++c) {
    if (c == key || *c == '&') caption += '&';
    caption += *c;
  }
  return caption;
}

}  // namespace ui
