#pragma once

#include <memory>
#include <string>

#include "ui/win32/win32.h"

namespace contract {

/// Stands in for the system's service that tells screen readers about windows, as long as it lives: Wine has
/// none. Made before the front end.
class Annotations {
 public:
  Annotations();
  ~Annotations();

  /// The name that a window has been given; empty for none.
  std::string NameOf(HWND window) const;

 private:
  class Service;
  class Factory;
  std::unique_ptr<Service> service_;
  std::unique_ptr<Factory> factory_;
  DWORD registration_ = 0;
};

}  // namespace contract
