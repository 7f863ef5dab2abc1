/// \file
/// vesk::base::win::CWinSystemErrorException
#ifndef VESK_BASE_WIN_WINSYSTEMERROREXCEPTION_H
#define VESK_BASE_WIN_WINSYSTEMERROREXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {
namespace win {

/// Exception class vesk::base::win::CWinSystemErrorException (base vesk::base::CException).
class VESK_API CWinSystemErrorException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CWinSystemErrorException);

  /// The message is the system's text for errorCode (none for 0).
  CWinSystemErrorException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
      unsigned long errorCode);
  /// The system error code (errno on POSIX hosts).
  unsigned long GetErrorCode() const { return m_errorCode; }

 private:
  unsigned long m_errorCode;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
