/// \file
/// vesk::io::CAccessDeniedException
#ifndef VESK_IO_ACCESSDENIEDEXCEPTION_H
#define VESK_IO_ACCESSDENIEDEXCEPTION_H

#include "vesk/io/IOException.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CAccessDeniedException (base vesk::io::CIOException).
class VESK_API CAccessDeniedException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CAccessDeniedException);

  CAccessDeniedException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace io
}  // namespace vesk

#endif
