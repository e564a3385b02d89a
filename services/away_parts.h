#pragma once

#include <string>
#include <vector>

#include "app/data/setup.h"
#include "platform/file_system.h"
#include "text/program_texts.h"

/// The folders of a loaded setup that are not there for now: a stick that is not plugged in, a network folder
/// that is not connected, an encrypted folder that is locked. The window shows the setup without them, but
/// that is no choice of the user's, so they stay a part of it until the user chooses something else in their
/// place.
namespace services {

struct AwayParts {
  std::string source;                ///< empty: none. All included folders are then in `folders`.
  std::string target;                ///< empty: none
  std::string folders_of;            ///< the source that `folders` and `order` belong to
  std::vector<std::string> folders;  ///< included folders, as they are named in the setup
  std::vector<std::string> order;    ///< all that were included, in the order of the setup

  bool empty() const { return source.empty() && target.empty() && folders.empty(); }
  /// The user has chosen another source, so its included folders are no concern any more.
  void ForgetSource();
  /// The included folders that are missing from a setup with this source.
  std::vector<std::string> FoldersOf(const std::string& shown_source) const;
};

/// Takes every folder out of `setup`; TakeBackWhatIsThere() puts back what exists.
AwayParts TakeApart(app::Setup& setup);

/// Moves what exists by now from `away` back into `setup`. Only what is surely not there stays away: a folder
/// that cannot be looked at for another reason is put back, so that the run names that reason. Returns
/// whether anything was moved.
bool TakeBackWhatIsThere(platform::FileSystem& files, app::Setup& setup, AwayParts& away);

/// The setup as it is to be saved: what is shown, with what is away in the places that the user has left
/// empty.
app::Setup WithAwayParts(app::Setup shown, const AwayParts& away);

/// "Source folder /a does not exist." and the like.
std::string DoesNotExist(const std::string& which, const std::string& folder);

/// A line for each folder that is away: that it does not exist, and that it stays in the setup.
std::vector<std::string> AwayLines(const AwayParts& away, const text::ProgramTexts& texts);

/// Why the source's side of the setup, or with `target` its target, is not there: a sentence for each of its
/// folders that is away. Empty when none is.
std::string WhyMissing(const AwayParts& away, bool target);

/// What is away in one short text for the window; empty when nothing is away.
std::string AwaySummary(const AwayParts& away, const text::ProgramTexts& texts);

}  // namespace services
