#include "engine/failure_text.h"

#include "base/utf8.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

int SentenceOf(platform::ErrorKind kind) {
  using platform::ErrorKind;
  switch (kind) {
    case ErrorKind::kNotFound:
      return text::kReasonNotFound;
    case ErrorKind::kAccessDenied:
      return text::kReasonAccessDenied;
    case ErrorKind::kReadOnlyMedium:
      return text::kReasonReadOnlyMedium;
    case ErrorKind::kDiskFull:
      return text::kReasonDiskFull;
    case ErrorKind::kIsAFolder:
      return text::kReasonFolderInTheWay;
    case ErrorKind::kAlreadyExists:
    case ErrorKind::kNotAFolder:
      return text::kReasonFileInTheWay;
    case ErrorKind::kNameTaken:
      return text::kReasonNameTaken;
    case ErrorKind::kInUse:
      return text::kReasonInUse;
    case ErrorKind::kForeignLink:
      return text::kReasonForeignLink;
    case ErrorKind::kBadName:
      return text::kReasonBadName;
    case ErrorKind::kTooLarge:
      return text::kReasonTooLarge;
    case ErrorKind::kShort:
      return text::kReasonShort;
    case ErrorKind::kNotAsWritten:
      return text::kReasonNotAsWritten;
    case ErrorKind::kDamaged:
      return text::kReasonDamaged;
    case ErrorKind::kTooManyOpen:
      return text::kReasonTooManyOpen;
    case ErrorKind::kCancelled:
    case ErrorKind::kOther:
      break;
  }
  return text::kReasonOther;
}

std::string CodeInParentheses(const platform::Error& error) {
  if (error.code == 0 && error.text.empty()) return {};
  std::string code = " (" + std::to_string(error.code);
  if (!error.text.empty()) code += ": " + error.text;
  return code + ")";
}

std::string Line(const Tools& tools, int lead_text, const std::string& path, int sentence,
                 const platform::Error& error) {
  return NoticeLine(tools, lead_text, path) + ". " + tools.texts.GetProgramText(sentence) +
         CodeInParentheses(error);
}

}  // namespace

std::string NoticeLine(const Tools& tools, int lead_text, const std::string& path) {
  return kLineIndent + tools.texts.GetProgramText(lead_text) + " " + base::utf8::Printable(path);
}

std::string FailureLine(const Tools& tools, int lead_text, const std::string& path,
                        const platform::Error& error) {
  return Line(tools, lead_text, path, SentenceOf(error.kind), error);
}

std::string FolderFailureLine(const Tools& tools, const std::string& path, const platform::Error& error) {
  const int sentence = IsGone(error) ? text::kReasonFolderGone : SentenceOf(error.kind);
  return Line(tools, text::kNotRead, path, sentence, error);
}

std::string TargetFailureLine(const Tools& tools, int lead_text, const std::string& path,
                              const platform::Error& error) {
  int sentence = SentenceOf(error.kind);
  if (error.kind == platform::ErrorKind::kNotFound) sentence = text::kReasonTargetGone;
  if (error.kind == platform::ErrorKind::kNameTaken) sentence = text::kReasonFolderNameTaken;
  const bool is_of_a_run = error.kind == platform::ErrorKind::kInUse && error.code == 0;
  if (is_of_a_run) sentence = text::kReasonFolderInUse;
  return Line(tools, lead_text, path, sentence, error);
}

}  // namespace engine
