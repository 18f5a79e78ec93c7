// Makes the objects of a server's one class.
#pragma once

#include <functional>

#include "backends/win32/com_module.h"
#include "backends/win32/windows_api.h"

#include <unknwn.h>

namespace chartproject::win32 {

/// Makes an object with one reference; throws RunTimeError when it cannot.
using ObjectMaker = std::function<IUnknown*()>;

/// The class factory: answers DllGetClassObject for one class id. @param source interface named in errors
HRESULT GetFactory(const IID& source, ObjectMaker make, REFIID id, void** object) noexcept;

}  // namespace chartproject::win32
