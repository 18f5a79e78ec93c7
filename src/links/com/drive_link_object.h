// The stand-in's object: simulated or scripted drives behind the interface of the host's link.
#pragma once

#include "platform/win32/windows_api.h"

#include <unknwn.h>

namespace chartproject::win32 {

/// A new object with one reference. The environment variable CHARTPROJECT_SCENARIO, else the text value "Scenario" of
/// the stand-in's class key, names a scenario file to replay; with neither the drives are simulated.
/// Throws RunTimeError when the scenario cannot be read.
[[nodiscard]] IUnknown* MakeDriveLinkObject();

inline constexpr const wchar_t* kScenarioValue = L"Scenario";

}  // namespace chartproject::win32
