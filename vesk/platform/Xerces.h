/// \file
/// Xerces-C for the library: the XML scanner, the XML character tables and
/// the regular-expression engine all need XMLPlatformUtils started. The
/// library starts it once, on first use, and ends its start at unload.
/// Xerces-C counts its starts, so a client that also uses Xerces-C directly
/// (with its own Initialize / Terminate) keeps working.
#ifndef VESK_PLATFORM_XERCES_H
#define VESK_PLATFORM_XERCES_H

#include "vesk/base/Export.h"

namespace vesk {
namespace platform {

/// Starts Xerces-C for the library unless already started; thread-safe.
/// Returns false when Xerces-C could not be started (a later call tries
/// again).
VESK_API bool EnsureXerces() noexcept;

}  // namespace platform
}  // namespace vesk

#endif
