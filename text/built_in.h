#pragma once

#include <string_view>

namespace text {

/// The content of text/qvr_text_en.txt when the program was built: every text of the program in English, so
/// that the program needs no file beside it.
std::string_view EnglishTexts();

/// The content of text/qvr_help.txt when the program was built.
std::string_view EnglishHelp();

}  // namespace text
