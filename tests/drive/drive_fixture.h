// A drive context on fake ports, over drives that answer what a test says.
#pragma once

#include <gmock/gmock.h>

#include "drive/drive_context.h"
#include "support/error_of.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {

struct DriveTest : ::testing::Test {
  FakePorts fakes;
  FakePlant plant;
  DriveContext context{fakes.ports, fakes.forms, plant};
};

}  // namespace chartproject
