#pragma once

#include <cstdint>
#include <string>

namespace engine {

/// Why a run did not start, as an unattended run reports it.
inline constexpr std::int16_t kNothingToDo = -101;
inline constexpr std::int16_t kNoFilesInSource = -102;
inline constexpr std::int16_t kNoFilesInSetup = -103;
inline constexpr std::int16_t kTargetNotSpecified = -104;
inline constexpr std::int16_t kTargetMissing = -105;
inline constexpr std::int16_t kTargetWriteProtected = -106;
inline constexpr std::int16_t kTargetIsSource = -107;
inline constexpr std::int16_t kSourceNotReadable = -108;
inline constexpr std::int16_t kNotConfirmed = -109;
inline constexpr std::int16_t kSetupNotRead = -110;
inline constexpr std::int16_t kNoSetup = -111;
inline constexpr std::int16_t kTargetNotReadable = -112;
inline constexpr std::int16_t kTargetInUse = -113;

inline constexpr const char* kTargetMissingTitle = "Target folder does not exist";

/// Why a run does not start.
struct Refusal {
  std::int16_t status = 0;
  std::string text;             ///< of the message
  std::string title;            ///< of the message
  std::string unattended = {};  ///< the text for an unattended run, where it is another one

  const std::string& UnattendedText() const { return unattended.empty() ? text : unattended; }
};

}  // namespace engine
