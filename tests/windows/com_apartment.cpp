// The tests' thread as a COM apartment, for the whole program.
#include <gtest/gtest.h>

#include "backends/win32/windows_api.h"

#include <objbase.h>

namespace {

class Apartment : public ::testing::Environment {
 public:
  void SetUp() override { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  void TearDown() override { CoUninitialize(); }
};

const ::testing::Environment* const apartment = ::testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
