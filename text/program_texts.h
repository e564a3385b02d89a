#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace text {

/// The program's numbered texts in the current language.
///
/// A text file is UTF-8, one text a line: the number, one blank, the text. In a text, "\n" stands for a line
/// end (CR LF in the program), "\s" for a blank (needed only at the end of a line) and "\\" for a backslash.
/// Empty lines and lines that begin with "#" are notes. A later line with the same number wins; lines of any
/// other form are passed over.
class ProgramTexts {
 public:
  /// `english` and `translated` are the contents of two text files; the second may be empty.
  explicit ProgramTexts(std::string_view english = {}, std::string_view translated = {});

  /// The text with this number: the translated one, else the English one; at most 1,024 characters. Empty
  /// when there is none or when it is the single character "~".
  std::string GetProgramText(int number) const;

 private:
  std::unordered_map<int, std::string> texts_;
};

/// The name of the text file of a language ("en", "de"), which lies beside the program.
std::string TextFileName(std::string_view language);

}  // namespace text
