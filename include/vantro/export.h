// VANTRO_EXPORT marks what a shared build of the library exports: every class whose objects or exceptions cross the
// library's boundary, and every function that is not inline. A project that uses a shared build without the installed
// CMake package must define VANTRO_SHARED itself.
#pragma once

#if !defined(VANTRO_SHARED)
#define VANTRO_EXPORT
#elif !defined(_WIN32)
#define VANTRO_EXPORT __attribute__((visibility("default")))
#elif defined(VANTRO_BUILDING_SHARED)
#define VANTRO_EXPORT __declspec(dllexport)
#else
#define VANTRO_EXPORT __declspec(dllimport)
#endif
