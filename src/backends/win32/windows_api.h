// The system's header, without the macros that rename our functions.
#pragma once

#include <windows.h>

#undef DrawText
#undef GetObject
#undef CreateFont
