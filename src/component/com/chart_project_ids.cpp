// The place where the ids of the component's class, interface and type library are defined.
#include "backends/win32/windows_api.h"

#include <initguid.h>

#include <chart_project.h>
