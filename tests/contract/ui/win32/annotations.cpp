#include "tests/contract/ui/win32/annotations.h"

#include <initguid.h>
#include <ole2.h>

#include <oleacc.h>

#include <map>

#include "ui/win32/wide_text.h"

// COM objects are never deleted through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace contract {

/// Lives as long as the one who made it, whoever refers to it.
template <typename Interface>
class Unowned : public Interface {
 public:
  HRESULT WINAPI QueryInterface(REFIID, void** object) override {
    *object = static_cast<Interface*>(this);
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return 1; }
  ULONG WINAPI Release() override { return 1; }
};

class Annotations::Service : public Unowned<IAccPropServices> {
 public:
  std::map<HWND, std::wstring> names;

  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD, DWORD, MSAAPROPID property, LPCWSTR text) override {
    if (property == PROPID_ACC_NAME) names[window] = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID* properties, int count) override {
    for (int i = 0; i < count; ++i) {
      if (properties[i] == PROPID_ACC_NAME) names.erase(window);
    }
    return S_OK;
  }
  HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return S_OK; }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }
};

class Annotations::Factory : public Unowned<IClassFactory> {
 public:
  explicit Factory(Service& service) : service_(service) {}
  HRESULT WINAPI CreateInstance(IUnknown*, REFIID wanted, void** object) override {
    return service_.QueryInterface(wanted, object);
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

 private:
  Service& service_;
};

Annotations::Annotations()
    : service_(std::make_unique<Service>()), factory_(std::make_unique<Factory>(*service_)) {
  OleInitialize(nullptr);
  CoRegisterClassObject(CLSID_AccPropServices, factory_.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                        &registration_);
}

Annotations::~Annotations() {
  CoRevokeClassObject(registration_);
  OleUninitialize();
}

std::string Annotations::NameOf(HWND window) const {
  const auto found = service_->names.find(window);
  return found == service_->names.end() ? "" : ui::win32::FromWide(found->second);
}

}  // namespace contract
