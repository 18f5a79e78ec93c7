// The system's header, without the macros that rename functions of ours.
#pragma once

#include <windows.h>

#undef DrawText
#undef GetObject
#undef CreateFont
