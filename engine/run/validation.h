#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/data/setup.h"
#include "engine/run/refusal.h"
#include "engine/tools.h"

namespace engine {

/// Whether the source side of a setup gives the operation something to do; nothing when it does. `show_note`
/// gets what is going on while it takes time.
std::optional<Refusal> CheckSource(const Tools& tools, const app::Setup& setup,
                                   const std::function<void(const std::string&)>& show_note);

/// Whether the target can receive copies; nothing when it can.
std::optional<Refusal> CheckTarget(const Tools& tools, const app::Setup& setup);

}  // namespace engine
