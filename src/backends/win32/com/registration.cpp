// One list of entries, below the machine's classes or the user's.
#include "backends/win32/com/registration.h"

#include <objbase.h>
#include <olectl.h>

#include "backends/win32/com_module.h"
#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";
/// The system's marshaller for interfaces that a type library describes.
constexpr const wchar_t* kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";

struct Entry {
  std::wstring key;  ///< below the classes
  std::wstring name;
  std::wstring value;
};

/// Which of the two registries of a 64-bit Windows: that of the calling program, or the one of 64-bit programs.
enum class View : REGSAM { kOwn = 0, k64Bit = KEY_WOW64_64KEY };

bool On64BitWindows() noexcept {
  BOOL emulated = FALSE;
  return IsWow64Process(GetCurrentProcess(), &emulated) != 0 && emulated != FALSE;
}

std::vector<View> ViewsOf(const ServerDescription& server) {
  if (server.surrogateId && On64BitWindows()) return {View::kOwn, View::k64Bit};
  return {View::kOwn};
}

/// The keys below the classes, each with all that is below it.
std::vector<std::wstring> KeysOf(const ServerDescription& server) {
  std::vector<std::wstring> keys{L"CLSID\\" + IdText(server.classId), server.progId, server.progId + L".1",
                                 L"TypeLib\\" + IdText(server.libraryId), L"Interface\\" + IdText(server.interfaceId)};
  if (server.surrogateId) keys.push_back(L"AppID\\" + IdText(*server.surrogateId));
  return keys;
}

/// A 64-bit host cannot load the DLL: where the class has an application with an empty DllSurrogate, the system loads
/// it into a process of its own and passes the calls on.
void AddSurrogate(const ServerDescription& server, std::vector<Entry>& entries) {
  const std::wstring id = IdText(*server.surrogateId);
  entries.push_back({L"CLSID\\" + IdText(server.classId), L"AppID", id});
  entries.push_back({L"AppID\\" + id, L"", server.progId});
  entries.push_back({L"AppID\\" + id, L"DllSurrogate", L""});
}

std::vector<Entry> EntriesOf(const ServerDescription& server) {
  const std::wstring classKey = L"CLSID\\" + IdText(server.classId);
  const std::wstring libraryKey = L"TypeLib\\" + IdText(server.libraryId) + L"\\1.0";
  const std::wstring interfaceKey = L"Interface\\" + IdText(server.interfaceId);
  const std::wstring versioned = server.progId + L".1";
  const std::wstring file = ModuleFile();
  return {
      {classKey, L"", server.progId},
      {classKey + L"\\InprocServer32", L"", file},
      {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {classKey + L"\\ProgID", L"", versioned},
      {classKey + L"\\VersionIndependentProgID", L"", server.progId},
      {classKey + L"\\TypeLib", L"", IdText(server.libraryId)},
      {classKey + L"\\Version", L"", L"1.0"},
      {classKey + L"\\Programmable", L"", L""},
      {server.progId, L"", server.progId},
      {server.progId + L"\\CLSID", L"", IdText(server.classId)},
      {server.progId + L"\\CurVer", L"", versioned},
      {versioned, L"", server.progId},
      {versioned + L"\\CLSID", L"", IdText(server.classId)},
      {libraryKey, L"", server.libraryTitle},
      {libraryKey + L"\\0\\win32", L"", file},
      {libraryKey + L"\\FLAGS", L"", L"0"},
      {libraryKey + L"\\HELPDIR", L"", file.substr(0, file.find_last_of(L'\\'))},
      {interfaceKey, L"", server.interfaceName},
      {interfaceKey + L"\\ProxyStubClsid32", L"", kTypeLibraryMarshaller},
      {interfaceKey + L"\\TypeLib", L"", IdText(server.libraryId)},
      {interfaceKey + L"\\TypeLib", L"Version", L"1.0"},
  };
}

LSTATUS Store(HKEY root, const Entry& entry, bool keepExisting, View view = View::kOwn) {
  OwnedKey key;
  const REGSAM access = KEY_READ | KEY_WRITE | static_cast<REGSAM>(view);
  const LSTATUS opened =
      RegCreateKeyExW(root, (kClasses + entry.key).c_str(), 0, nullptr, 0, access, nullptr, key.Receive(), nullptr);
  if (opened != ERROR_SUCCESS) return opened;
  if (keepExisting && ReadRegistryText(key.Get(), entry.name)) return ERROR_SUCCESS;
  return WriteRegistryText(key.Get(), entry.name, entry.value);
}

LSTATUS StoreAll(HKEY root, const ServerDescription& server) {
  const std::vector<View> views = ViewsOf(server);
  for (const View view : views) {
    std::vector<Entry> entries = EntriesOf(server);
    if (views.size() > 1) AddSurrogate(server, entries);
    const std::wstring inProcess = L"CLSID\\" + IdText(server.classId) + L"\\InprocServer32";
    for (const Entry& entry : entries) {
      if (view == View::k64Bit && entry.key == inProcess) continue;
      const LSTATUS status = Store(root, entry, false, view);
      if (status != ERROR_SUCCESS) return status;
    }
  }
  for (const ClassValue& value : server.classValues) {
    const LSTATUS status = Store(root, {L"CLSID\\" + IdText(server.classId), value.name, value.value}, true);
    if (status != ERROR_SUCCESS) return status;
  }
  return ERROR_SUCCESS;
}

/// The class values that a site has set otherwise than registration does.
std::vector<Entry> SitesValues(HKEY root, const ServerDescription& server) {
  std::vector<Entry> entries;
  const std::wstring classKey = L"CLSID\\" + IdText(server.classId);
  for (const ClassValue& value : server.classValues) {
    const auto text = ReadRegistryText(root, kClasses + classKey, value.name);
    if (text && !text->empty() && *text != value.value) entries.push_back({classKey, value.name, *text});
  }
  return entries;
}

LSTATUS Remove(HKEY root, const std::wstring& key, View view) {
  const auto flag = static_cast<REGSAM>(view);
  OwnedKey opened;
  LSTATUS status = RegOpenKeyExW(root, key.c_str(), 0, KEY_ALL_ACCESS | flag, opened.Receive());
  if (status == ERROR_SUCCESS) status = RegDeleteTreeW(opened.Get(), nullptr);
  return status == ERROR_SUCCESS ? RegDeleteKeyExW(root, key.c_str(), flag, 0) : status;
}

LSTATUS RemoveAll(HKEY root, const ServerDescription& server) {
  const std::vector<Entry> kept = SitesValues(root, server);
  LSTATUS worst = ERROR_SUCCESS;
  for (const View view : ViewsOf(server)) {
    for (const std::wstring& key : KeysOf(server)) {
      const LSTATUS status = Remove(root, kClasses + key, view);
      if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) worst = status;
    }
  }
  for (const Entry& entry : kept) {
    const LSTATUS status = Store(root, entry, true);
    if (status != ERROR_SUCCESS) worst = status;
  }
  return worst;
}

HKEY RootOf(RegistrationScope scope) noexcept {
  return scope == RegistrationScope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

HRESULT ResultOf(LSTATUS status) noexcept {
  if (status == ERROR_ACCESS_DENIED) return E_ACCESSDENIED;
  return status == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
}

}  // namespace

std::wstring IdText(const GUID& id) {
  wchar_t text[40];
  const int length = StringFromGUID2(id, text, 40);
  return {text, static_cast<std::size_t>(length > 0 ? length - 1 : 0)};
}

HRESULT RegisterServer(const ServerDescription& server, RegistrationScope scope) {
  return ResultOf(StoreAll(RootOf(scope), server));
}

HRESULT UnregisterServer(const ServerDescription& server, RegistrationScope scope) {
  return ResultOf(RemoveAll(RootOf(scope), server));
}

}  // namespace chartproject::win32
