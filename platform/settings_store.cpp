#include "platform/settings_store.h"

namespace platform {

std::string CommonStoreMessage(int code) {
  switch (code) {
    case kStoreSuccess:
      return "The operation completed successfully.";
    case kStoreNotFound:
      return "The system cannot find the file specified.";
    case kStoreAccessDenied:
      return "Access is denied.";
    default:
      return {};
  }
}

}  // namespace platform
