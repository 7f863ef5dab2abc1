/// \file
/// The export macro of libvesk. The library is built with hidden visibility;
/// every class and function that clients use carries VESK_API.
#ifndef VESK_BASE_EXPORT_H
#define VESK_BASE_EXPORT_H

/// \def VESK_API
/// Marks a class or function as part of the library's interface: exported
/// from libvesk (imported by clients on Windows), empty for a static build
/// (VESK_STATIC).
#if defined(VESK_STATIC)
#define VESK_API
#elif defined(_WIN32)
#if defined(VESK_BUILDING_LIBRARY)
#define VESK_API __declspec(dllexport)
#else
#define VESK_API __declspec(dllimport)
#endif
#else
#define VESK_API __attribute__((visibility("default")))
#endif

#endif
