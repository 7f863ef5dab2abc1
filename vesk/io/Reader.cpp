#include "vesk/io/Reader.h"

#include "vesk/io/internal/StreamState.h"

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

int CReader::Skip(unsigned int count) { return internal::SkipByReading(*this, count); }

// Defined once more here so that the DLL exports it: a client that binds the
// constant to a reference (EXPECT_EQ does) imports it on Windows.
constexpr int CReader::EOS;

}  // namespace io
}  // namespace vesk
