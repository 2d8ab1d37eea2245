/// Macros for exported names and checked format texts.
#pragma once

// VARNOTIX_BUILDING is defined only while the library itself is compiled.
#if defined(_WIN32)
#if defined(VARNOTIX_BUILDING)
#define VARNOTIX_EXPORT __declspec(dllexport)
#else
#define VARNOTIX_EXPORT __declspec(dllimport)
#endif
#else
#define VARNOTIX_EXPORT __attribute__((visibility("default")))
#endif

// Lets the compiler check format texts. The Windows headers define the dialect of their own printf family.
#if defined(__MINGW_PRINTF_FORMAT)
#define VARNOTIX_PRINTF(text, first) __attribute__((format(__MINGW_PRINTF_FORMAT, text, first)))
#elif defined(__GNUC__)
#define VARNOTIX_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define VARNOTIX_PRINTF(text, first)
#endif
