#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace app::test {

/// The program's English texts, as they are shipped.
inline std::string EnglishTexts() {
  std::ifstream file(QV_SOURCE_ROOT "/text/qvr_text_en.txt", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace app::test
