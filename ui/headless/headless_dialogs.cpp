#include <utility>

#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace ui::headless {

void HeadlessDialogs::Open(Form& owner, const Asked& asked_now) {
  asked.push_back(asked_now);
  const ModalScope nothing_reacts(owner.front_end(), nullptr);
  if (while_open) while_open(asked_now);
}

void HeadlessDialogs::Show(Form& owner, const MessageBox& box) {
  Open(owner, {"message", box.text, box.title, box.icon});
}

bool HeadlessDialogs::AskYesNo(Form& owner, const MessageBox& box) {
  Open(owner, {"yes-no", box.text, box.title, box.icon});
  if (yes_no.empty()) return false;
  const bool answer = yes_no.front().value_or(!box.no_by_default);
  yes_no.pop_front();
  return answer;
}

std::optional<std::string> HeadlessDialogs::Ask(Form& owner, const Asked& asked_now) {
  Open(owner, asked_now);
  if (texts.empty()) return std::nullopt;
  std::optional<std::string> answer = std::move(texts.front());
  texts.pop_front();
  return answer;
}

std::optional<std::string> HeadlessDialogs::BrowseForFolder(Form& owner, const std::string& title,
                                                            const std::string& start, bool /*new_style*/) {
  return Ask(owner, {"folder", start, title});
}

std::optional<std::string> HeadlessDialogs::OpenFile(Form& owner, const FileDialog& dialog) {
  return Ask(owner, {"open", dialog.filter_name, dialog.title});
}

std::optional<std::string> HeadlessDialogs::SaveFile(Form& owner, const FileDialog& dialog) {
  return Ask(owner, {"save", dialog.filter_name, dialog.title});
}

std::optional<std::string> HeadlessDialogs::AskText(Form& owner, const InputBox& box) {
  return Ask(owner, {"text", box.prompt, box.title});
}

}  // namespace ui::headless
