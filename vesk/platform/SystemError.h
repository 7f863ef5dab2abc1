/// \file
/// The host's text for an operating-system error code.
#ifndef VESK_PLATFORM_SYSTEMERROR_H
#define VESK_PLATFORM_SYSTEMERROR_H

#include <cstddef>

namespace vesk {
namespace platform {

/// Writes the system's text for code (NUL-terminated, cut to size) into
/// buffer, ending with the host's line break as the host's message table
/// gives it; false when the host knows no text.
bool SystemErrorText(unsigned long code, char* buffer, std::size_t size);

}  // namespace platform
}  // namespace vesk

#endif
