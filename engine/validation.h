#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/operation_run.h"

namespace engine {

struct Refusal {
  std::int16_t status = 0;
  std::string text;             ///< of the message
  std::string title;            ///< of the message
  std::string unattended = {};  ///< the text for an unattended run, where it is another one
};

/// Whether the source side of a setup gives the operation something to do; nothing when it does. `host`
/// shows what is going on while it takes time.
std::optional<Refusal> CheckSource(const Tools& tools, const app::Setup& setup, RunHost& host);

/// Whether the target can receive copies; nothing when it can.
std::optional<Refusal> CheckTarget(const Tools& tools, const app::Setup& setup);

}  // namespace engine
