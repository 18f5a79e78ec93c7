// Entry points of a COM server's DLL; they only hand over to class factory and registration.
#include "backends/win32/com/server_module.h"

#include "backends/win32/com/class_factory.h"
#include "backends/win32/com_module.h"

namespace win32 = chartproject::win32;
using win32::RegistrationScope;

namespace {

/// Only memory can be lacking here.
template <typename Body>
HRESULT Walled(Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  return Walled([&] {
    const win32::ServerDescription server = win32::DescribeServer();
    if (!IsEqualCLSID(classId, server.classId)) return CLASS_E_CLASSNOTAVAILABLE;
    return win32::GetFactory(server.interfaceId, win32::MakeServerObject, id, object);
  });
}

STDAPI DllCanUnloadNow() {
  return win32::ModuleUse::Any() ? S_FALSE : S_OK;
}

/// For all users; for the calling user alone where the machine's part of the registry is closed to him.
STDAPI DllRegisterServer() {
  return Walled([] {
    const win32::ServerDescription server = win32::DescribeServer();
    const HRESULT forAll = win32::RegisterServer(server, RegistrationScope::kMachine);
    return forAll == E_ACCESSDENIED ? win32::RegisterServer(server, RegistrationScope::kUser) : forAll;
  });
}

/// Of the calling user and of all users.
STDAPI DllUnregisterServer() {
  return Walled([] {
    const win32::ServerDescription server = win32::DescribeServer();
    const HRESULT ofUser = win32::UnregisterServer(server, RegistrationScope::kUser);
    const HRESULT ofAll = win32::UnregisterServer(server, RegistrationScope::kMachine);
    return FAILED(ofUser) ? ofUser : ofAll;
  });
}

/// The classes asked for and no others, "user" (regsvr32 /n /i:user) or "machine", the default.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  const std::wstring_view asked = commandLine == nullptr ? L"" : commandLine;
  const bool forUser = asked == L"user";
  if (!forUser && asked != L"machine" && !asked.empty()) return E_INVALIDARG;
  return Walled([install, forUser] {
    const win32::ServerDescription server = win32::DescribeServer();
    const RegistrationScope scope = forUser ? RegistrationScope::kUser : RegistrationScope::kMachine;
    return install != FALSE ? win32::RegisterServer(server, scope) : win32::UnregisterServer(server, scope);
  });
}
