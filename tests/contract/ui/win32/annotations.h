#pragma once

#include <initguid.h>

#include "ui/win32/win32.h"

#include <ole2.h>

#include <oleacc.h>

#include <algorithm>
#include <map>
#include <string>

// COM objects are never deleted through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace contract {

/// Stands in for the system's service that tells screen readers about windows, as long as it lives: Wine has
/// none. Made before the front end. It is its own factory.
class Annotations : public IAccPropServices, public IClassFactory {
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
  std::map<HWND, std::wstring> names;  ///< what windows are called beyond what they show

  HRESULT WINAPI QueryInterface(REFIID wanted, void** object) override {
    *object = static_cast<IClassFactory*>(this);
    if (wanted == IID_IAccPropServices) *object = static_cast<IAccPropServices*>(this);
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return 1; }
  ULONG WINAPI Release() override { return 1; }
  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** made) override {
    return QueryInterface(id, made);
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

  using Ids = const MSAAPROPID*;
  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD, DWORD, MSAAPROPID property, LPCWSTR text) override {
    if (property == PROPID_ACC_NAME) names[window] = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD, DWORD, Ids ids, int count) override {
    if (std::find(ids, ids + count, PROPID_ACC_NAME) != ids + count) names.erase(window);
    return S_OK;
  }
  HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return S_OK; }

  // Nobody asks for these.
  using Text = const BYTE*;
  using Server = IAccPropServer*;
  HRESULT WINAPI SetPropValue(Text, DWORD, MSAAPROPID, VARIANT) override { return S_FALSE; }
  HRESULT WINAPI SetPropServer(Text, DWORD, Ids, int, Server, AnnoScope) override { return S_FALSE; }
  HRESULT WINAPI ClearProps(Text, DWORD, Ids, int) override { return S_FALSE; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, Ids, int, Server, AnnoScope) override {
    return S_FALSE;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return S_FALSE; }
  HRESULT WINAPI DecomposeHwndIdentityString(Text, DWORD, HWND*, DWORD*, DWORD*) override { return S_FALSE; }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return S_FALSE; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return S_FALSE; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, Ids, int, Server, AnnoScope) override { return S_FALSE; }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, Ids, int) override { return S_FALSE; }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return S_FALSE; }
  HRESULT WINAPI DecomposeHmenuIdentityString(Text, DWORD, HMENU*, DWORD*) override { return S_FALSE; }

 private:
  DWORD registration_ = 0;
};

}  // namespace contract
