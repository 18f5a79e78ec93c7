// The place where the ids of the drive link's interfaces and of the stand-in's class are defined.
#include "backends/win32/windows_api.h"

#include <initguid.h>

#include <drive_link.h>
#include <drive_link_sim.h>
