#include "report/report_texts.h"

#include "tests/report/report_scene.h"

namespace report {

/// The phrases in a row: "|" for a line end, "<" for one that is not indented, ".." for a line left open.
static std::string Joined(const std::vector<Phrase>& phrases) {
  std::string text;
  for (const Phrase& phrase : phrases)
    text += (phrase.indent ? "" : "<") + phrase.text + (phrase.left_open ? ".." : "") +
            (phrase.new_line ? "|" : "");
  return text;
}

TEST(ReportTexts, FoldersAreNamedAndWhatIsCopiedAndDueInThemIsCountedInWords) {
  Story story{"report/told/"};
  for (const std::int64_t count : {-1, 0, 1, 123'456}) story.told += HeadLine(count, "F") + "|";
  for (const char* const path : {"/data/x/data/y", "/dat", "/data", "/home/user"})
    for (const char* const root : {"/data", "", "/"}) story.told += WithPlaceholder(path, root, "{}") + " ";
  for (std::int64_t files = 0; files < 4; ++files) {
    for (std::int64_t some = 0; some <= files; ++some) {
      story.told += "\n" + std::to_string(some) + " of " + std::to_string(files) +
                    " copied:" + Joined(CopyResult(kAll, {files, 0, 0, some})) +
                    " deleted:" + Joined(DeletionResult(files, some));
      for (std::int64_t modified = 0; modified <= some; ++modified) {
        story.told += "\n  " + std::to_string(modified) +
                      " modified:" + Joined(CheckResult({files, some - modified, modified}));
        for (const std::int64_t copied : {std::int64_t{0}, (some + 1) / 2, some})
          story.told += std::to_string(copied) + " copied:" +
                        Joined(CopyResult(kModified, {files, some - modified, modified, copied}));
      }
    }
  }
}

}  // namespace report
