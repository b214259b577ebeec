// KM_EXPORT marks what the shared library makes visible to its users; everything else stays inside.
// An application that links the static library instead defines KMPROFILE_STATIC.
#pragma once

#if defined(_WIN32)
#if defined(KMPROFILE_BUILD)
#define KM_EXPORT __declspec(dllexport)
#elif defined(KMPROFILE_STATIC)
#define KM_EXPORT
#else
#define KM_EXPORT __declspec(dllimport)
#endif
#else
#define KM_EXPORT __attribute__((visibility("default")))
#endif
