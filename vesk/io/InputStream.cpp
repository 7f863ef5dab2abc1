#include "vesk/io/InputStream.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CInputStream, CInputStream, "vesk::io::CInputStream", "vesk::base::CObject")

CInputStream::~CInputStream() {}

int CInputStream::Read(char* buffer, unsigned int length) { return Read(buffer, 0, length); }

int CInputStream::Read() {
  char byte = 0;
  if (Read(&byte, 0, 1) == -1) return EOS;
  return static_cast<signed char>(byte);
}

int CInputStream::Skip(unsigned int count) {
  if (count == 0) return 0;
  unsigned int remaining = count;
  while (remaining > 0 && Read() != EOS) --remaining;
  return static_cast<int>(remaining);
}

}  // namespace io
}  // namespace vesk
