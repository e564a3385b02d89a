#include "main/program.h"

#include <cstdio>

#include "app/main_window/frmMain.h"
#include "platform/path.h"
#include "text/built_in.h"

namespace program {
namespace {

constexpr std::int64_t kLargestTextFile = 1 << 20;

/// Empty without such a file: it is there only where somebody wants other words than those of the program.
std::string TextFile(const Parts& parts, const std::string& language) {
  const std::string path = platform::JoinPath(parts.shell.ProgramFolder(), text::TextFileName(language));
  const auto content = parts.files.ReadFile(path, kLargestTextFile);
  return content ? *content : std::string();
}

/// Fails without a word: a backup is not worth less when nobody reads its report or a log cannot take it.
void PrintLine(const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

}  // namespace

std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) line += ' ';
    line += argv[i];
  }
  return line;
}

int Run(const Parts& parts, const std::string& command_line, bool ends_by_itself) {
  text::ProgramTexts texts(text::EnglishTexts());
  texts.Replace(TextFile(parts, "en"));
  texts.Replace(TextFile(parts, parts.locale.Language()));
  app::Context context{
      parts.front_end,
      parts.files,
      parts.clock,
      parts.locale,
      parts.settings,
      parts.shell,
      texts,
      {parts.locale.ThousandsSeparator(), parts.locale.DecimalSeparator(), parts.locale.DigitGroups()},
      command_line,
      !ends_by_itself,
      PrintLine};
  app::frmMain main_window(context);
  main_window.Form_Load();
  if (ends_by_itself) main_window.Form_Unload();
  return parts.front_end.Run();
}

}  // namespace program
