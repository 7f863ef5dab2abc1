#include "vesk/net/internal/WinSocketException.h"

#include "vesk/net/internal/SocketError.h"

namespace vesk {
namespace net {

VESK_IMPLEMENT_CLASS(CWinSocketException, CWinSocketException, "vesk::net::CWinSocketException",
                     "vesk::net::CSocketException")

CWinSocketException::CWinSocketException(const char* sourceFile, unsigned int sourceLine,
                                         const char* errorDescription, unsigned int errorCode)
    : CSocketException(sourceFile, sourceLine, errorDescription, nullptr), m_errorCode(errorCode) {
  if (errorCode == 0) return;
  char text[256];
  if (internal::SocketErrorText(errorCode, text, sizeof text)) SetMessage(text);
}

}  // namespace net
}  // namespace vesk
