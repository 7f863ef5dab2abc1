/// \file
/// vesk::net::CSocketException
#ifndef VESK_NET_SOCKETEXCEPTION_H
#define VESK_NET_SOCKETEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace net {

/// Exception class vesk::net::CSocketException (base vesk::io::CIOException).
VESK_DECLARE_EXCEPTION(CSocketException, vesk::io::CIOException, DescriptionMessage);

}  // namespace net
}  // namespace vesk

#endif
