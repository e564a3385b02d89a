#include "ui/win32/desktop/accessibility.h"

#include <initguid.h>
#include <oleauto.h>

#include <oleacc.h>

#include <array>

#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

void SetText(IAccPropServices& services, HWND window, const MSAAPROPID& property, const std::string& text) {
  if (text.empty()) {
    services.ClearHwndProps(window, kClient, CHILDID_SELF, &property, 1);
  } else {
    services.SetHwndPropStr(window, kClient, CHILDID_SELF, property, ToWide(text).c_str());
  }
}

}  // namespace

Accessibility::Accessibility() : services_(CLSID_AccPropServices, IID_IAccPropServices) {}
Accessibility::~Accessibility() = default;

void Accessibility::SetName(HWND window, const std::string& name) const {
  if (services_) SetText(*services_.get(), window, PROPID_ACC_NAME, name);
}

void Accessibility::SetDescription(HWND window, const std::string& description) const {
  if (services_) SetText(*services_.get(), window, PROPID_ACC_DESCRIPTION, description);
}

void Accessibility::SetRole(HWND window, LONG role) const {
  if (!services_) return;
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = role;
  services_->SetHwndProp(window, kClient, CHILDID_SELF, PROPID_ACC_ROLE, value);
}

void Accessibility::Forget(HWND window) const {
  const std::array all = {PROPID_ACC_NAME, PROPID_ACC_DESCRIPTION, PROPID_ACC_ROLE};
  if (!services_) return;
  services_->ClearHwndProps(window, kClient, CHILDID_SELF, all.data(), static_cast<int>(all.size()));
}

}  // namespace ui::win32
