#pragma once

#include <objbase.h>

#include "base/handle.h"
#include "ui/win32/win32.h"

namespace ui::win32 {

inline void ReleaseComObject(IUnknown* object) { object->Release(); }

/// Owns one reference to a COM object; null where the system does not offer it.
template <typename Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ComPointer(const CLSID& kind, const IID& interface_id) {
    void* made = nullptr;
    if (SUCCEEDED(CoCreateInstance(kind, nullptr, CLSCTX_INPROC_SERVER, interface_id, &made))) {
      object_ = base::Handle<base::ClosedBy<IUnknown*, &ReleaseComObject>>(static_cast<Interface*>(made));
    }
  }

  Interface* get() const { return static_cast<Interface*>(object_.get()); }
  Interface* operator->() const { return get(); }
  explicit operator bool() const { return static_cast<bool>(object_); }

 private:
  base::Handle<base::ClosedBy<IUnknown*, &ReleaseComObject>> object_;
};

}  // namespace ui::win32
