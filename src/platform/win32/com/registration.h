// How a server's class and type library stand in the registry.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/windows_api.h"

namespace chartproject::win32 {

/// A further text under the class' own key; kept when it is there, for a site may have changed it.
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
};

/// Registers for all users; for the calling user alone when the machine's part is closed to him, or when the
/// environment variable CHARTPROJECT_REGISTER is "user".
HRESULT RegisterServer(const ServerDescription& server) noexcept;
/// Removes every key of the server, of all users and of the calling one.
HRESULT UnregisterServer(const ServerDescription& server) noexcept;

/// An id as the registry writes it, in braces.
[[nodiscard]] std::wstring IdText(const GUID& id);

}  // namespace chartproject::win32
