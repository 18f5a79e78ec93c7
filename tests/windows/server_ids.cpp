// The ids that the component's type library gives, for its clients.
#include "platform/win32/windows_api.h"

#include <initguid.h>

#include <chart_project.h>
