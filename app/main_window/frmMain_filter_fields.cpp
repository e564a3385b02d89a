#include "app/main_window/filter_text.h"
#include "app/main_window/frmMain.h"
#include "base/utf8.h"

/// The filter controls of the main window.
namespace app {
namespace {

constexpr std::size_t kLongestShownPattern = 70;
constexpr std::size_t kShortestExtension = 2;
constexpr std::size_t kLongestExtension = 5;

}  // namespace

void frmMain::txbFileExtension_LostFocus() {
  if (txbFileExtension.text().empty()) return;
  txbFileExtension.SetText(base::utf8::ToLower(KeepOnlyCharacters(txbFileExtension.text(), false, "*?")));
  if (IsOnlyStars(txbFileExtension.text())) txbFileExtension.SetText({});
  const std::size_t length = txbFileExtension.length();
  if (length >= kShortestExtension && length <= kLongestExtension) return;
  context_.front_end.dialogs().Show(*this, {"A file extension must consist of from 2 to 5 letters\r\n"
                                            "(optionally with wildcards '*' and '?')",
                                            "File extension", ui::Icon::kInformation});
}

void frmMain::txbExcludedFilepaths_LostFocus() {
  const bool is_long = txbExcludedFilepaths.length() > kLongestShownPattern;
  txbExcludedFilepaths.SetToolTip(is_long ? txbExcludedFilepaths.text() : std::string());
}

void frmMain::cboModifiedSince_Click() {
  if (!FormLoaded) return;
  SetupEdited();
  if (cboModifiedSince.choice_finished()) SetInitialFocus();
}

}  // namespace app
