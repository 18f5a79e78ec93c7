// The registry entries of a server's class and type library.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// A further text under the class' own key. A site may change it: its text outlives registration and unregistration, so
/// that an upgrade keeps it.
struct ClassValue {
  std::wstring name;
  std::wstring value;
};

struct ServerDescription {
  GUID classId;
  GUID libraryId;
  GUID interfaceId;
  std::wstring interfaceName;
  std::wstring libraryTitle;
  std::wstring progId;  ///< without version; ".1" follows for the versioned one
  std::vector<ClassValue> classValues;
  /// The application whose surrogate process lends the class to 64-bit hosts; none: it is for 32-bit hosts only.
  std::optional<GUID> surrogateId{};
};

/// Whose classes are meant: all users' or the calling user's own.
enum class RegistrationScope { kMachine, kUser };

/// Writes every key of the server, on a 64-bit Windows also those by which a 64-bit host finds the surrogate. Returns
/// E_ACCESSDENIED when that part of the registry is closed to the caller, SELFREG_E_CLASS for other failures. Throws
/// std::bad_alloc.
[[nodiscard]] HRESULT RegisterServer(const ServerDescription& server, RegistrationScope scope);
/// Removes every key of the server, but class values that a site changed; none left is success. Returns and throws as
/// RegisterServer.
[[nodiscard]] HRESULT UnregisterServer(const ServerDescription& server, RegistrationScope scope);

/// An id as the registry writes it, in braces.
[[nodiscard]] std::wstring IdText(const GUID& id);

}  // namespace chartproject::win32
