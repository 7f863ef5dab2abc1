/// \file
/// The host's line end, as text. Print streams start with it as their line
/// separator; classes that need CR LF whatever the host keep their own.
#ifndef VESK_PLATFORM_LINEEND_H
#define VESK_PLATFORM_LINEEND_H

namespace vesk {
namespace platform {

#if defined(_WIN32)
/// The host's line end: CR LF.
inline constexpr char kLineEnd[] = "\r\n";
#else
/// The host's line end: LF.
inline constexpr char kLineEnd[] = "\n";
#endif

/// Length of kLineEnd in bytes, without the terminator.
inline constexpr unsigned int kLineEndLength = sizeof(kLineEnd) - 1;

}  // namespace platform
}  // namespace vesk

#endif
