// Errors of the outside, which must name their file.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>

#include "support/error_of.h"

namespace chartproject {

/// Number of the error that an operation throws; its description must name the file. 0 when it throws none.
inline int ErrorOf(const std::function<void()>& operation, const std::string& name) {
  const std::string error = ErrorTextOf(operation);
  EXPECT_TRUE(error.empty() || error.find(name) != std::string::npos) << error;
  return std::atoi(error.c_str());
}

}  // namespace chartproject
