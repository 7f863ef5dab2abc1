/// \file
/// vesk::net::CUnknownHostException
#ifndef VESK_NET_UNKNOWNHOSTEXCEPTION_H
#define VESK_NET_UNKNOWNHOSTEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/String.h"

namespace vesk {
namespace net {

/// Exception class vesk::net::CUnknownHostException (base vesk::io::CIOException).
class VESK_API CUnknownHostException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CUnknownHostException);

  /// The description is always "Unknown host name.".
  CUnknownHostException(const char* sourceFile, unsigned int sourceLine, const char* hostName);
  /// The host name that could not be resolved ("" when none).
  const char* GetHostName() const { return m_hostName; }

 private:
  vesk::base::CString m_hostName;
};

}  // namespace net
}  // namespace vesk

#endif
