// What the entry points of a COM server's DLL ask of the one class in it.
#pragma once

#include "backends/win32/com/registration.h"

#include <unknwn.h>

namespace chartproject::win32 {

/// The class as registration and class factory need it. Each DLL defines it for its class.
[[nodiscard]] ServerDescription DescribeServer();

/// A new object of the class, with one reference. Each DLL defines it for its class.
/// Throws RunTimeError when the object cannot be made.
[[nodiscard]] IUnknown* MakeServerObject();

}  // namespace chartproject::win32
