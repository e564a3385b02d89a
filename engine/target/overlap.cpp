#include "engine/target/overlap.h"

#include "platform/path.h"

namespace engine {

Overlap::Overlap(platform::FileSystem& files, const std::string& source, const std::string& target)
    : files_(files),
      source_{platform::WithoutTrailingSeparators(source), {}, {}},
      target_{platform::WithoutTrailingSeparators(target), {}, {}} {
  if (target_.path.empty()) return;
  source_identity_ = files.IdentityOf(source_.path);
  target_identity_ = files.IdentityOf(target_.path);
  const auto real_source = files.RealPath(source_.path);
  const auto real_target = files.RealPath(target_.path);
  if (!real_source || !real_target) return;
  source_.real = *real_source;
  source_.key = files.NameKey(*real_source);
  target_.real = *real_target;
  target_.key = files.NameKey(*real_target);
}

bool Overlap::IsOneFolder() const {
  return (source_identity_ && source_identity_ == target_identity_) ||
         (known() && source_.key == target_.key);
}

bool Overlap::TargetIsInSource() const { return LiesIn(target_, source_, source_identity_); }

bool Overlap::SourceIsInTarget() const { return LiesIn(source_, target_, target_identity_); }

bool Overlap::LiesIn(const Root& inner, const Root& outer,
                     const std::optional<platform::Identity>& identity) const {
  if (!known()) return false;
  if (platform::IsInside(inner.key, outer.key)) return true;
  const auto is_outer = [&](const std::string& folder) { return files_.IdentityOf(folder) == identity; };
  return identity && platform::FindAbove(inner.real, is_outer).has_value();
}

bool Overlap::IsTarget(const std::string& source_folder) const {
  return known() && KeyBelow(source_, source_folder) == target_.key;
}

bool Overlap::IsTarget(const platform::Folder& source_folder) const {
  return target_identity_ && source_folder.identity() == target_identity_;
}

bool Overlap::IsSource(const platform::Folder& target_folder) const {
  return source_identity_ && target_folder.identity() == source_identity_;
}

bool Overlap::LandsInSource(const std::string& target_folder, bool is_link) const {
  if (!known()) return false;
  if (KeyBelow(target_, target_folder) == source_.key) return true;
  if (!is_link) return false;
  const auto real = files_.RealPath(target_folder);
  if (!real) return false;
  const std::string key = files_.NameKey(*real);
  return platform::IsInside(key, source_.key) || platform::IsInside(source_.key, key);
}

std::string Overlap::KeyBelow(const Root& root, const std::string& path) const {
  return files_.NameKey(platform::JoinPath(root.real, std::string_view(path).substr(root.path.size())));
}

}  // namespace engine
