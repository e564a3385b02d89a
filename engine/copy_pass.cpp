#include "engine/copy_pass.h"

#include "base/utf8.h"
#include "engine/failure_text.h"
#include "engine/file_proc.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

/// Of the target's free space: how much beyond the file at hand is plenty, and for how long an answer then
/// holds.
constexpr double kPlenty = 256.0 * 1024 * 1024;
constexpr std::chrono::milliseconds kSpaceHolds{100};

constexpr const char* kDriveFullLine = "The target drive is full.";
constexpr const char* kDriveFullMessage =
    "The target drive is full, so this backup operation\r\n"
    "must be terminated.";
constexpr const char* kNoSpaceForFile = "Insufficient space on the target drive for this file.";

std::string FolderQuestion(const Tools& tools, const std::string& folder) {
  const auto part = [&](int number) { return tools.texts.GetProgramText(number); };
  std::string question = part(text::kTheTargetFolder) + " " + part(text::kCouldNotBeCreated);
  const std::string drive = tools.files.DriveOf(folder);
  if (!drive.empty()) question += " " + part(text::kOnDrive) + " " + drive + " " + part(text::kUnderPath);
  return question + "\r\n" + base::utf8::Printable(folder) + "\r\n\r\n" + part(text::kGoOn) + " " +
         part(text::kWithNextFileOfFolder);
}

std::string ReadOnlyQuestion(const Tools& tools, const std::string& path) {
  const auto part = [&](int number) { return tools.texts.GetProgramText(number); };
  return part(text::kTheTargetFile) + "\r\n" + base::utf8::Printable(path) + "\r\n" +
         part(text::kStaysReadOnly) + "\r\n\r\n" + part(text::kGoOn) + " " + part(text::kWithNextFile);
}

bool IsLink(platform::FileSystem& files, const std::string& folder, const std::string& path) {
  const auto real_folder = files.RealPath(folder);
  const auto real = files.RealPath(path);
  if (!real || !real_folder) return false;
  return files.NameKey(*real) != files.NameKey(platform::JoinPath(*real_folder, platform::NameOf(path)));
}

}  // namespace

CopyPass::CopyPass(const Tools& tools, Listener& listener, Pulse& pulse, Totals& totals,
                   const TargetRoot& target_root)
    : tools_(tools), listener_(listener), pulse_(pulse), totals_(totals), target_root_(target_root) {}

CopyResult CopyPass::Copy(FolderPair& folders, const Candidate& file) {
  if (!HasSpaceFor(file) || !HasTargetFolder(folders, file) || !CanBeReplaced(folders, file)) {
    return CopyResult::kFailed;
  }
  listener_.CopyBegun(file.SourcePath());
  const auto outcome = CopyFileTo(folders, file);
  if (!outcome) {
    // A volume has an error of that name, too.
    const bool cancelled = outcome.error().kind == platform::ErrorKind::kCancelled;
    if (cancelled && listener_.StopRequested()) return CopyResult::kCancelled;
    free_bytes_.reset();
    Fail(file, outcome.error());
    return CopyResult::kFailed;
  }
  CarryAttributes(folders, file, *outcome);
  if (outcome->changed) {
    ++totals_.warnings;
    listener_.WriteLine(NoticeLine(tools_, text::kChangedMeanwhile, file.SourcePath()));
  }
  if (free_bytes_) *free_bytes_ -= static_cast<double>(outcome->bytes);
  ++totals_.counts.copied;
  totals_.bytes_copied += FileSizeOf(outcome->bytes);
  listener_.CopyEnded(totals_.bytes_copied, totals_.counts.copied);
  return CopyResult::kCopied;
}

/// On a disk elsewhere in the network the question takes longer than a small file. With plenty of room the
/// answer holds for a moment; a disk that other programs fill meanwhile fails the copy instead.
std::optional<double> CopyPass::FreeBytes(double wanted) {
  const std::chrono::milliseconds now = tools_.clock.Monotonic();
  const bool is_plenty = free_bytes_ && *free_bytes_ - wanted > kPlenty;
  if (is_plenty && now - free_bytes_asked_ < kSpaceHolds) return free_bytes_;
  double free_bytes = 0;
  double total_bytes = 0;
  free_bytes_.reset();
  free_bytes_asked_ = now;
  if (tools_.GetDiskSpace(target_root_.path(), free_bytes, total_bytes) == 0) free_bytes_ = free_bytes;
  return free_bytes_;
}

bool CopyPass::HasSpaceFor(const Candidate& file) {
  const std::int32_t source_size = FileSizeOf(file.source);
  const std::optional<double> free_bytes = FreeBytes(source_size);
  if (!free_bytes) return true;
  if (*free_bytes <= 0) {
    listener_.WriteLine(NoticeLine(tools_, text::kNotCopied, file.SourcePath()));
    listener_.WriteLine(std::string(kLineIndent) + kDriveFullLine);
    listener_.Tell(kDriveFullMessage);
    Terminate();
    return false;
  }
  if (static_cast<double>(source_size) < *free_bytes) return true;
  listener_.WriteLine(NoticeLine(tools_, text::kNotCopied, file.SourcePath()) + ". " + kNoSpaceForFile +
                      " (" + text::GroupedNumber(std::int64_t{source_size}, tools_.marks) + " bytes).");
  return false;
}

bool CopyPass::HasTargetFolder(FolderPair& folders, const Candidate& file) {
  if (!folder_given_up_.empty() && platform::IsInside(folders.target_path(), folder_given_up_)) {
    FailForTarget(file, why_given_up_);
    return false;
  }
  const platform::Status ready = folders.EnsureTarget(target_root_);
  if (ready) return true;
  FailForTarget(file, ready.error());
  folder_given_up_ = folders.target_path();
  why_given_up_ = ready.error();
  if (!listener_.AskWhetherToGoOn({FolderQuestion(tools_, folder_given_up_), {}})) Terminate();
  return false;
}

bool CopyPass::CanBeReplaced(const FolderPair& folders, const Candidate& file) {
  if (!file.TargetFileExists() || !IsReadOnly(file.target->attributes)) return true;
  const std::string path = platform::JoinPath(folders.target_path(), file.target->name);
  // The copy takes the place of a link; what the link leads to stays as it is.
  if (IsLink(tools_.files, folders.target_path(), path)) return true;
  if (ClearReadOnly(tools_.files, path)) return true;
  Fail(file, {platform::ErrorKind::kAccessDenied, 0, {}});
  if (!listener_.AskWhetherToGoOn({ReadOnlyQuestion(tools_, path), {}})) Terminate();
  return false;
}

platform::Result<platform::CopyOutcome> CopyPass::CopyFileTo(FolderPair& folders, const Candidate& file) {
  const bool taken = file.TargetFileExists() || folders.TargetHolds(file.source.name);
  const auto name = taken ? platform::TargetName::kTaken : platform::TargetName::kFree;
  return tools_.files.CopyFile(folders.source(), file.source, folders.target(), name, [this](std::int64_t) {
    pulse_.Beat();
    return !listener_.StopRequested();
  });
}

void CopyPass::CarryAttributes(const FolderPair& folders, const Candidate& file,
                               const platform::CopyOutcome& outcome) {
  const bool set = IsSystemFile(outcome.source_attributes) && !IsSystemFile(outcome.target_attributes);
  const bool clear = (outcome.target_attributes & (platform::kReadOnly | platform::kHidden)) != 0;
  if (!set && !clear) return;
  const std::string path = platform::JoinPath(folders.target_path(), file.source.name);
  if (set) SetSystemFile(tools_.files, path);
  if (clear) ClearReadOnlyAndHidden(tools_.files, path);
}

void CopyPass::Fail(const Candidate& file, const platform::Error& error) {
  listener_.WriteLine(FailureLine(tools_, text::kNotCopied, file.SourcePath(), error));
}

void CopyPass::FailForTarget(const Candidate& file, const platform::Error& error) {
  listener_.WriteLine(TargetFailureLine(tools_, text::kNotCopied, file.SourcePath(), error));
}

}  // namespace engine
