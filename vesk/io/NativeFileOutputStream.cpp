#include "vesk/io/NativeFileOutputStream.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/IOException.h"
#include "vesk/io/internal/NativeFileOutputStreamIW.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CNativeFileOutputStream, CNativeFileOutputStream,
                     "vesk::io::CNativeFileOutputStream", "vesk::io::COutputStream")

namespace {

const char kSource[] = "vesk/io/NativeFileOutputStream";

internal::CNativeFileOutputStreamIW* OpenNative(const unsigned short* path, bool append) {
  if (!path || !path[0]) {
    VESK_THROW(kSource, vesk::base::CIllegalArgumentException, "Invalid file path.");
  }
  return new internal::CNativeFileOutputStreamIW(path, append);
}

}  // namespace

CNativeFileOutputStream::CNativeFileOutputStream(const unsigned short* path, bool append)
    : m_impl(OpenNative(path, append)) {}

CNativeFileOutputStream::~CNativeFileOutputStream() { delete m_impl; }

void CNativeFileOutputStream::CheckOpen() const {
  if (!m_impl->IsOpen()) VESK_THROW(kSource, CIOException, "Stream closed.");
}

void CNativeFileOutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen();
  if (buffer) m_impl->Write(buffer + offset, length);
}

void CNativeFileOutputStream::Write(const char* buffer, unsigned int length) {
  CheckOpen();
  if (buffer) m_impl->Write(buffer, length);
}

void CNativeFileOutputStream::Write(char byte) {
  CheckOpen();
  m_impl->Write(&byte, 1);
}

void CNativeFileOutputStream::Flush() {
  CheckOpen();
  m_impl->Flush();
}

void CNativeFileOutputStream::Close() { m_impl->Close(); }

}  // namespace io
}  // namespace vesk
