// The counts that DllCanUnloadNow answers from.
#include "backends/win32/com_module.h"

#include <atomic>

/// Set by the linker at the beginning of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace chartproject::win32 {

namespace {

// Global, because the system asks the module, which has no object to keep these counts.
std::atomic<long> uses{0};
std::atomic<long> locks{0};

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

void ServerLocks::Add() noexcept {
  ++locks;
  ModuleUse::Add();
}

void ServerLocks::Remove() noexcept {
  long held = locks;
  while (held > 0 && !locks.compare_exchange_weak(held, held - 1)) {
  }
  if (held > 0) ModuleUse::Remove();
}

HINSTANCE ThisModule() noexcept {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

HMODULE LoadSystemLibrary(const wchar_t* fileName) {
  std::wstring folder(GetSystemDirectoryW(nullptr, 0), L'\0');
  folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
  return LoadLibraryExW((folder + L"\\" + fileName).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
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
