/// \file
/// vesk::net::CWinSocketException: a socket failure with its Windows Sockets
/// error code. Internal: clients catch it as CSocketException. Not installed.
#ifndef VESK_NET_INTERNAL_WINSOCKETEXCEPTION_H
#define VESK_NET_INTERNAL_WINSOCKETEXCEPTION_H

#include "vesk/net/SocketException.h"

namespace vesk {
namespace net {

/// Exception class vesk::net::CWinSocketException (base vesk::net::CSocketException).
class VESK_API CWinSocketException : public CSocketException {
  VESK_DECLARE_CLASS(CWinSocketException);

  /// errorCode is a Windows Sockets number (10061 for a refused connection,
  /// whatever the host); the message is the host's text for it (none for 0).
  CWinSocketException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
                      unsigned int errorCode);
  /// The Windows Sockets error code taken at the failure.
  unsigned int GetErrorCode() const { return m_errorCode; }

 private:
  unsigned int m_errorCode;
};

}  // namespace net
}  // namespace vesk

#endif
