// SPDX-License-Identifier: MIT
// What the shared library shows to its users.
#pragma once

// Marks what the shared library makes visible to its users; everything else stays inside. An application that
// links the static library instead defines KMPROFILE_STATIC, and exports nothing of it.
#if defined(KMPROFILE_STATIC)
#define KM_EXPORT
#elif !defined(_WIN32)
#define KM_EXPORT __attribute__((visibility("default")))
#elif defined(KMPROFILE_BUILD)
#define KM_EXPORT __declspec(dllexport)
#else
#define KM_EXPORT __declspec(dllimport)
#endif

// Around exported classes that have standard containers as members. Warning 4251 says that the application
// then needs the same compiler and runtime as the library, which it is told to use anyway.
#if defined(_MSC_VER)
#define KM_CLASSES_BEGIN __pragma(warning(push)) __pragma(warning(disable : 4251))
#define KM_CLASSES_END __pragma(warning(pop))
#else
#define KM_CLASSES_BEGIN
#define KM_CLASSES_END
#endif
