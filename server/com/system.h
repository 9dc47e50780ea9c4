// The system's headers, in the order that they need, without the macros that collide with names of this project.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#undef GetClassInfo

#include <objbase.h>
#include <objidl.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
