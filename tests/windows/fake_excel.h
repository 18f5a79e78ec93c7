// A spreadsheet application for the tests, a separate program that logs every call.
#pragma once

#include "backends/win32/windows_api.h"

namespace chartproject::testing {

/// Its class id, one of the tests' own.
inline constexpr CLSID kFakeExcelClass = {0x3f5e27b4, 0x51f0, 0x4b7e, {0x92, 0x44, 0x6d, 0x1b, 0x0c, 0x83, 0x77, 0x1e}};

}  // namespace chartproject::testing
