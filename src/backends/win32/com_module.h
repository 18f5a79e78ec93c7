// What a COM server's DLL knows of itself: how many objects and locks keep it loaded, where its file is.
#pragma once

#include <string>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// Counts one object (or lock) while it lives; the DLL may be unloaded when there is none.
class ModuleUse {
 public:
  ModuleUse() noexcept { Add(); }
  ~ModuleUse() { Remove(); }
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
  static void Add() noexcept;
  static void Remove() noexcept;
  [[nodiscard]] static bool Any() noexcept;
};

/// Locks that clients hold on the server (IClassFactory::LockServer), each a use of the module.
class ServerLocks {
 public:
  static void Add() noexcept;
  /// A surplus call does nothing: it must not take the uses of living objects away.
  static void Remove() noexcept;
};

/// The module that this code is linked into.
[[nodiscard]] HINSTANCE ThisModule() noexcept;
/// Loads a library from the system's folder only, never from the current one or the path. Null when it is not there.
HMODULE LoadSystemLibrary(const wchar_t* fileName);
/// A function of a library that the system does not keep ready for every program: the loader would look for it beside
/// the host, too. The library stays loaded. Null when either is not there.
template <typename Function>
[[nodiscard]] Function SystemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadSystemLibrary(library);
  return module == nullptr ? nullptr
                           : reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}
/// Full name of its file, without the prefix for long names that registration tools may put before it.
[[nodiscard]] std::wstring ModuleFile();
/// "\\?\C:\file" as "C:\file", "\\?\UNC\server\file" as "\\server\file"; other names as they are.
[[nodiscard]] std::wstring WithoutLongNamePrefix(const std::wstring& name);

}  // namespace chartproject::win32
