#include "engine/own_names.h"

#include "platform/file_system.h"

namespace engine {

bool IsTheProgramsOwn(const std::string& name) {
  return platform::IsTemporaryName(name) || name == kUnfinishedMark || name == kRunLock;
}

}  // namespace engine
