#include "vesk/io/Base64OutputStream.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;

namespace {

const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

VESK_IMPLEMENT_CLASS(CBase64OutputStream, CBase64OutputStream, "vesk::io::CBase64OutputStream",
                     "vesk::io::COutputStream")

CBase64OutputStream::CBase64OutputStream(COutputStream* stream, unsigned int lineLength)
    : m_stream(stream), m_lineLength(lineLength), m_group(), m_groupCount(0), m_column(0) {
  if (!stream) {
    VESK_THROW("vesk/io/Base64OutputStream", CIllegalArgumentException, "Invalid output stream.");
  }
}

CBase64OutputStream::CBase64OutputStream(const CRef<COutputStream>& stream, unsigned int lineLength)
    : m_stream(stream.Get()),
      m_streamRef(stream),
      m_lineLength(lineLength),
      m_group(),
      m_groupCount(0),
      m_column(0) {
  if (!m_stream) {
    VESK_THROW("vesk/io/Base64OutputStream", CIllegalArgumentException, "Invalid output stream.");
  }
}

CBase64OutputStream::~CBase64OutputStream() {}

unsigned int CBase64OutputStream::EncodeGroup(const char* bytes, unsigned int offset,
                                              unsigned int count, char* out,
                                              unsigned int outOffset) {
  const unsigned char* in = reinterpret_cast<const unsigned char*>(bytes) + offset;
  char* o = out + outOffset;
  switch (count % 4) {
    case 3:
      o[0] = kAlphabet[in[0] >> 2];
      o[1] = kAlphabet[((in[0] & 3) << 4) + (in[1] >> 4)];
      o[2] = kAlphabet[((in[1] & 15) << 2) + (in[2] >> 6)];
      o[3] = kAlphabet[in[2] & 63];
      break;
    case 2:
      o[0] = kAlphabet[in[0] >> 2];
      o[1] = kAlphabet[((in[0] & 3) << 4) + (in[1] >> 4)];
      o[2] = kAlphabet[(in[1] & 15) << 2];
      o[3] = '=';
      break;
    case 1:
      o[0] = kAlphabet[in[0] >> 2];
      o[1] = kAlphabet[(in[0] & 3) << 4];
      o[2] = '=';
      o[3] = '=';
      break;
    default:
      break;
  }
  return 4;
}

void CBase64OutputStream::InternalWrite(const char* chars, unsigned int offset,
                                        unsigned int length) {
  if (m_lineLength == 0) {
    m_stream->Write(chars, offset, length);
    return;
  }
  for (unsigned int i = 0; i < length; ++i) {
    if (m_column >= m_lineLength) {
      m_stream->Write('\r');
      m_stream->Write('\n');
      m_column = 0;
    }
    m_stream->Write(chars[offset + i]);
    ++m_column;
  }
}

void CBase64OutputStream::Write(char byte) {
  m_group[m_groupCount++] = byte;
  if (m_groupCount == 3) {
    char out[4];
    unsigned int length = EncodeGroup(m_group, 0, 3, out, 0);
    // The group is emptied before the characters go out, so a failing
    // wrapped stream cannot leave a fourth byte to be stored.
    m_groupCount = 0;
    InternalWrite(out, 0, length);
  }
}

void CBase64OutputStream::Flush() {
  if (m_groupCount == 1 || m_groupCount == 2) {
    char out[4];
    unsigned int length = EncodeGroup(m_group, 0, m_groupCount, out, 0);
    m_groupCount = 0;
    InternalWrite(out, 0, length);
  }
  m_stream->Flush();
}

void CBase64OutputStream::Close() { m_stream->Close(); }

}  // namespace io
}  // namespace vesk
