#pragma once

#include <initguid.h>

#include "ui/win32/win32.h"

#include <ole2.h>

#include <oleacc.h>

#include <map>
#include <string>

// COM objects are never deleted through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace contract {

/// IAccPropServices as far as anybody calls it: what counts is the order of the calls (oleacc.h).
class PropServices : public IUnknown {
 public:
  std::map<HWND, std::wstring> names;  ///< what windows are called beyond what they show

  virtual HRESULT WINAPI SetPropValue() { return S_FALSE; }
  virtual HRESULT WINAPI SetPropServer() { return S_FALSE; }
  virtual HRESULT WINAPI ClearProps() { return S_FALSE; }
  virtual HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) { return S_OK; }
  virtual HRESULT WINAPI SetHwndPropStr(HWND window, DWORD, DWORD, MSAAPROPID property, LPCWSTR text) {
    if (property == PROPID_ACC_NAME) names[window] = text;
    return S_OK;
  }
  virtual HRESULT WINAPI SetHwndPropServer() { return S_FALSE; }
  virtual HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) { return S_OK; }
};

/// Stands in for the system's service that tells screen readers about windows, as long as it lives: Wine has
/// none. Made before the front end. It is its own factory.
class Annotations : public PropServices, public IClassFactory {
 public:
  Annotations() {
    OleInitialize(nullptr);
    CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                          REGCLS_MULTIPLEUSE, &registration_);
  }
  ~Annotations() {
    CoRevokeClassObject(registration_);
    OleUninitialize();
  }

  HRESULT WINAPI QueryInterface(REFIID wanted, void** object) override {
    *object = static_cast<IClassFactory*>(this);
    if (wanted == IID_IAccPropServices) *object = static_cast<PropServices*>(this);
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return 1; }
  ULONG WINAPI Release() override { return 1; }
  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** made) override {
    return QueryInterface(id, made);
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

 private:
  DWORD registration_ = 0;
};

}  // namespace contract
