#include "vesk/base/win/WinSystemErrorException.h"

#include "vesk/platform/SystemError.h"

namespace vesk {
namespace base {
namespace win {

VESK_IMPLEMENT_CLASS(CWinSystemErrorException, CWinSystemErrorException,
                     "vesk::base::win::CWinSystemErrorException", "vesk::base::CException")

CWinSystemErrorException::CWinSystemErrorException(const char* sourceFile, unsigned int sourceLine,
                                                   const char* errorDescription,
                                                   unsigned long errorCode)
    : CException(sourceFile, sourceLine, errorDescription, nullptr), m_errorCode(errorCode) {
  if (errorCode == 0) return;
  char text[512];
  if (platform::SystemErrorText(errorCode, text, sizeof text)) SetMessage(text);
}

}  // namespace win
}  // namespace base
}  // namespace vesk
