#include "vesk/io/Reader.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CReader, CReader, "vesk::io::CReader", "vesk::base::CObject")

CReader::~CReader() {}

int CReader::Read(unsigned short* buffer, unsigned int length) { return Read(buffer, 0, length); }

int CReader::Read() {
  unsigned short unit = 0;
  if (Read(&unit, 0, 1) == -1) return EOS;
  return unit;
}

int CReader::Skip(unsigned int count) {
  if (count == 0) return 0;
  unsigned int remaining = count;
  while (remaining > 0 && Read() != EOS) --remaining;
  return static_cast<int>(remaining);
}

}  // namespace io
}  // namespace vesk
