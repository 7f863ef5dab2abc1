#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(COutputStream, COutputStream, "vesk::io::COutputStream", "vesk::base::CObject")

COutputStream::~COutputStream() {}

void COutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  if (!buffer) return;
  // 32-bit end: a range that wraps is empty.
  unsigned int end = offset + length;
  for (unsigned int i = offset; i < end; ++i) Write(buffer[i]);
}

void COutputStream::Write(const char* buffer, unsigned int length) {
  if (!buffer) return;
  Write(buffer, 0, length);
}

}  // namespace io
}  // namespace vesk
