#include "engine/run/run_request.h"

namespace engine {

SelectionRules RulesOf(const RunRequest& request) {
  const app::Setup& setup = request.setup;
  return {request.operation,
          {setup.FileExtension, SkipPatterns(setup.SkipFilepaths), request.modified_since},
          request.skip_picture_caches};
}

bool ComparesContents(const RunRequest& request) {
  return request.compare_contents && (request.operation == app::Operation::kCheckBackupState ||
                                      request.operation == app::Operation::kBackupModifiedFiles);
}

bool ReadsBack(const RunRequest& request) { return request.read_back && IsCopyOperation(request.operation); }

}  // namespace engine
