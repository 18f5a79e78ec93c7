// The COM object of the class ChartClass.
#pragma once

#include "platform/win32/windows_api.h"

#include <unknwn.h>

namespace chartproject::win32 {

/// Starts an instance of the component up; the object has one reference. Throws RunTimeError when the start-up fails.
[[nodiscard]] IUnknown* MakeChartObject();

}  // namespace chartproject::win32
