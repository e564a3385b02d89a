#include "text/program_texts.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "base/utf8.h"
#include "text/text_numbers.h"

namespace text {
namespace {

constexpr std::size_t kLongestText = 1024;

/// What an escape of one letter stands for; the escape itself when it means nothing.
std::string_view Unescaped(std::string_view escape) {
  if (escape == "\\n") return "\r\n";
  if (escape == "\\s") return " ";
  if (escape == "\\\\") return "\\";
  return escape;
}

std::string TextOf(std::string_view raw) {
  std::string result;
  for (std::size_t i = 0; i < raw.size();) {
    const std::size_t length = raw[i] == '\\' ? 2 : 1;
    result += Unescaped(raw.substr(i, length));
    i += length;
  }
  result.resize(base::utf8::OffsetOf(result, kLongestText));
  return result;
}

std::optional<std::pair<int, std::string>> ParseLine(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  int number = 0;
  const char* const end = line.data() + line.size();
  const auto [behind, error] = std::from_chars(line.data(), end, number);
  if (error != std::errc{} || behind == end || *behind != ' ') return std::nullopt;
  return std::pair(number, TextOf({behind + 1, end}));
}

using Texts = std::unordered_map<int, std::string>;

Texts TextsOf(std::string_view content) {
  Texts texts;
  content = base::utf8::WithoutByteOrderMark(content);
  while (!content.empty()) {
    const std::size_t length = std::min(content.find('\n'), content.size());
    if (auto line = ParseLine(content.substr(0, length))) texts[line->first] = std::move(line->second);
    content.remove_prefix(std::min(length + 1, content.size()));
  }
  return texts;
}

/// kPreviousRun is a caption, too, but first the name of a stored value.
bool NamesAPlace(int number) {
  return number == kDataFolderName || number == kPreviousRunKey || number == kPreviousRun;
}

}  // namespace

ProgramTexts::ProgramTexts(std::string_view english) : texts_(TextsOf(english)) {}

void ProgramTexts::Replace(std::string_view content) {
  for (auto& [number, text] : TextsOf(content))
    if (!NamesAPlace(number)) texts_[number] = std::move(text);
}

std::string ProgramTexts::GetProgramText(int number) const {
  const auto text = texts_.find(number);
  return text == texts_.end() || text->second == "~" ? std::string() : text->second;
}

std::string TextFileName(std::string_view language) { return "qvr_text_" + std::string(language) + ".txt"; }

}  // namespace text
