#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace text {

/// The program's numbered texts in the current language.
///
/// A text file is UTF-8, one text a line: the number, one space, the text. In a text, "\n" stands for a line
/// end (CR LF in the program), "\s" for a space (needed only at the end of a line) and "\\" for a backslash.
/// Empty lines and lines that begin with "#" are notes. A later line with the same number wins; lines of any
/// other form are ignored.
class ProgramTexts {
 public:
  /// `english` is the content of a text file, most often EnglishTexts().
  explicit ProgramTexts(std::string_view english = {});

  /// Puts the texts of another text file in the place of those with the same numbers. Texts that are no words
  /// but names of places where the program keeps things stay as they are: with others it would not find its
  /// setup.
  void Replace(std::string_view content);

  /// The text with this number; at most 1,024 characters. Empty when there is none or when it is the single
  /// character "~".
  std::string GetProgramText(int number) const;

 private:
  std::unordered_map<int, std::string> texts_;
};

/// The name of the text file of a language ("en", "de"), which may lie beside the program.
std::string TextFileName(std::string_view language);

}  // namespace text
