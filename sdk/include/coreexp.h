#pragma once

// Marks what the host's library exports: host code is built with MAX_HOST_BUILD.
#if defined(_WIN32)
#if defined(MAX_HOST_BUILD)
#define CoreExport __declspec(dllexport)
#else
#define CoreExport __declspec(dllimport)
#endif
#define DllExport __declspec(dllexport)
#else
#define CoreExport __attribute__((visibility("default")))
#define DllExport __attribute__((visibility("default")))
#endif
