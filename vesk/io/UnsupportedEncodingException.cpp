#include "vesk/io/UnsupportedEncodingException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CUnsupportedEncodingException, CUnsupportedEncodingException, "vesk::io::CUnsupportedEncodingException", "vesk::io::CIOException")

CUnsupportedEncodingException::CUnsupportedEncodingException(const char* sourceFile, unsigned int sourceLine, const char* encoding)
    : CIOException(sourceFile, sourceLine, nullptr, nullptr) {
  AssignOptionalText(m_encoding, encoding);
}

}  // namespace io
}  // namespace vesk
