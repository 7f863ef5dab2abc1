#include "vesk/io/JavaDataOutputStream.h"

#include "vesk/base/String.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CRef;
using vesk::base::CString;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CJavaDataOutputStream, CJavaDataOutputStream,
                     "vesk::io::CJavaDataOutputStream", "vesk::io::CDataOutputStream")

namespace {
const char kSource[] = "vesk/io/JavaDataOutputStream";
}  // namespace

CJavaDataOutputStream::CJavaDataOutputStream(const CRef<COutputStream>& stream)
    : CDataOutputStream(stream) {}

CJavaDataOutputStream::CJavaDataOutputStream(COutputStream* stream) : CDataOutputStream(stream) {}

CJavaDataOutputStream::~CJavaDataOutputStream() {}

void CJavaDataOutputStream::WriteString(const CUnicodeString& text) {
  if (!m_stream) VESK_THROW(kSource, CIOException, "Stream closed.");
  CString utf8 = text.ToUTF8();
  unsigned int n = utf8.GetLength();
  if (n > 65535) VESK_THROW(kSource, CIOException, "The specified string is too long.");
  char count[2] = {static_cast<char>(n >> 8), static_cast<char>(n)};
  m_stream->Write(count, 2);
  if (n != 0) m_stream->Write(static_cast<const char*>(utf8), n);
}

void CJavaDataOutputStream::WriteString(const unsigned short* text) {
  if (!m_stream) VESK_THROW(kSource, CIOException, "Stream closed.");
  WriteString(text ? CUnicodeString(text) : CUnicodeString());
}

}  // namespace io
}  // namespace vesk
