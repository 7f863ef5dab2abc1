#include "vesk/io/InputStream.h"

#include "vesk/io/internal/StreamState.h"

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

int CInputStream::Skip(unsigned int count) { return internal::SkipByReading(*this, count); }

// Defined once more here so that the DLL exports it: a client that binds the
// constant to a reference (EXPECT_EQ does) imports it on Windows.
constexpr int CInputStream::EOS;

}  // namespace io
}  // namespace vesk
