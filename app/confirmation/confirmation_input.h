#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/confirmation/operation_preview.h"
#include "engine/run/run_request.h"
#include "platform/file_system.h"
#include "text/grouped_number.h"
#include "text/program_texts.h"

/// A copying operation in words, for the eyes of the user who is about to start it.
namespace app {

struct Fact {
  std::string heading;
  std::string text;  ///< lines end in CR LF
};

/// The volume that holds the target.
struct TargetVolume {
  std::string drive;                         ///< empty: it is not known
  std::optional<platform::DiskSpace> space;  ///< empty: it is not known
  bool holds_source = false;                 ///< the source is on it or on the same physical disk
  std::int64_t largest_file = 0;             ///< bytes that one file may have; 0: no limit is known
};

/// How long so many files and bytes took; no files: it is not known.
struct Pace {
  std::int64_t files = 0;
  std::int64_t bytes = 0;
  double seconds = 0;
};

/// Those of earlier runs.
struct KnownPaces {
  Pace comparing;     ///< bytes of one side
  Pace reading_back;  ///< together with copying
};

struct ConfirmationInput {
  const engine::RunRequest& request;
  const TargetVolume& volume;
  const PreviewFindings& findings;
  const text::ProgramTexts& texts;
  const text::NumberMarks& marks;
};

/// What a copying operation does and does not do, in one or two sentences.
std::string OperationExplained(Operation operation);

/// From where, to where, what, how much: as far as it is known, in the order in which it is shown.
std::vector<Fact> FactsOf(const ConfirmationInput& input);

/// How much is to be read when contents are compared, how long that takes at a known pace, and for how long
/// the choice holds.
std::string ComparisonText(const ConfirmationInput& input, const Pace& pace, bool is_chosen);

/// The same of reading copies back.
std::string ReadBackText(const ConfirmationInput& input, const Pace& pace, bool is_chosen);

/// What in the setup is worth a second look; empty when nothing is.
std::vector<std::string> FindConcerns(const ConfirmationInput& input);

}  // namespace app
