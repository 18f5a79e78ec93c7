// The tests of the windows, on the application object that the program has.
#include <gtest/gtest.h>

#include "backends/qt/qt_application.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const chartproject::QtApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
