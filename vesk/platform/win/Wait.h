/// \file
/// One wait for a kernel object of the Windows host, with the results as the
/// library names them. Defined in win/Semaphore.cpp.
#ifndef VESK_PLATFORM_WIN_WAIT_H
#define VESK_PLATFORM_WIN_WAIT_H

#include "vesk/platform/Semaphore.h"

namespace vesk {
namespace platform {

/// WaitForSingleObject: kWaitSignalled for a signalled or abandoned object,
/// kWaitTimeout, or kWaitFailed.
WaitResult WaitForObject(void* handle, unsigned int timeout) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
