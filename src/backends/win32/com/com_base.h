// What com_base.idl describes, as the system's own headers declare it; included by the generated headers.
#pragma once

#include <windows.h>

#include <ole2.h>
