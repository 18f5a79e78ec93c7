// The window id of a control: made from its name, so that it stays when other controls come or go.
#pragma once

#include <cstdint>
#include <string_view>

namespace chartproject::win32 {

/// An id from 1000 to 31999. Two names of a form may meet in one id; messages are told apart by window, not by id, so
/// only whoever looks a window up from outside has to know the names.
[[nodiscard]] constexpr int ControlId(std::string_view name) noexcept {
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char character : name) hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
  return 1000 + static_cast<int>(hash % 31000U);
}

}  // namespace chartproject::win32
