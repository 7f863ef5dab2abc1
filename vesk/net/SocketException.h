/// \file
/// vesk::net::CSocketException
#ifndef VESK_NET_SOCKETEXCEPTION_H
#define VESK_NET_SOCKETEXCEPTION_H

#include "vesk/io/IOException.h"

namespace vesk {
namespace net {

/// Exception class vesk::net::CSocketException (base vesk::io::CIOException).
class VESK_API CSocketException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CSocketException);

  CSocketException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace net
}  // namespace vesk

#endif
