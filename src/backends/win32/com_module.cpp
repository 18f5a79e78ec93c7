// The counts that DllCanUnloadNow answers from.
#include "backends/win32/com_module.h"

#include <atomic>

/// Set by the linker at the beginning of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace chartproject::win32 {

namespace {

// A DLL has no object that could hold this: the system asks the module itself.
std::atomic<long> uses{0};

}  // namespace

void ModuleUse::Add() noexcept {
  ++uses;
}

void ModuleUse::Remove() noexcept {
  --uses;
}

bool ModuleUse::Any() noexcept {
  return uses != 0;
}

HINSTANCE ThisModule() noexcept {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::wstring ModuleFile() {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(ThisModule(), name.data(), static_cast<DWORD>(name.size()));
    if (length < name.size()) {
      name.resize(length);
      break;
    }
    name.resize(name.size() * 2);
  }
  return WithoutLongNamePrefix(name);
}

std::wstring WithoutLongNamePrefix(const std::wstring& name) {
  constexpr std::wstring_view kPrefix = L"\\\\?\\";
  constexpr std::wstring_view kServerPrefix = L"\\\\?\\UNC\\";
  if (name.starts_with(kServerPrefix)) return L"\\\\" + name.substr(kServerPrefix.size());
  return name.starts_with(kPrefix) ? name.substr(kPrefix.size()) : name;
}

}  // namespace chartproject::win32
