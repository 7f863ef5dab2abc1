#include "vesk/io/JavaDataInputStream.h"

#include "vesk/io/IOException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CJavaDataInputStream, CJavaDataInputStream, "vesk::io::CJavaDataInputStream",
                     "vesk::io::CDataInputStream")

CJavaDataInputStream::CJavaDataInputStream(const CRef<CInputStream>& stream)
    : CDataInputStream(stream) {}

CJavaDataInputStream::CJavaDataInputStream(CInputStream* stream) : CDataInputStream(stream) {}

CJavaDataInputStream::~CJavaDataInputStream() {}

CUnicodeString CJavaDataInputStream::ReadString() {
  if (!m_stream) VESK_THROW("vesk/io/JavaDataInputStream", CIOException, "Stream closed.");
  return ReadUTF8(ReadUInt16());
}

}  // namespace io
}  // namespace vesk
