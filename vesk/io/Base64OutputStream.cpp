#include "vesk/io/Base64OutputStream.h"

#include <typeinfo>

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

unsigned int CBase64OutputStream::EncodeBlock(const unsigned char* in, unsigned int groups,
                                              char* out) {
  char* o = out;
  for (unsigned int g = 0; g < groups; ++g, in += 3) {
    const char c[4] = {kAlphabet[in[0] >> 2], kAlphabet[((in[0] & 3) << 4) + (in[1] >> 4)],
                       kAlphabet[((in[1] & 15) << 2) + (in[2] >> 6)], kAlphabet[in[2] & 63]};
    if (m_lineLength == 0 || m_column + 4 <= m_lineLength) {
      o[0] = c[0];
      o[1] = c[1];
      o[2] = c[2];
      o[3] = c[3];
      o += 4;
      m_column += 4;
      continue;
    }
    // The group straddles a line end: character by character, a break
    // before any that would overflow the line.
    for (char ch : c) {
      if (m_column >= m_lineLength) {
        *o++ = '\r';
        *o++ = '\n';
        m_column = 0;
      }
      *o++ = ch;
      ++m_column;
    }
  }
  return static_cast<unsigned int>(o - out);
}

void CBase64OutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  // A subclass may count on array writes reaching its Write(char); so may a
  // range that wraps past 2^32, which the contract ignores.
  if (!buffer || typeid(*this) != typeid(CBase64OutputStream) || offset + length < offset) {
    COutputStream::Write(buffer, offset, length);
    return;
  }
  const char* p = buffer + offset;
  const char* end = p + length;
  while (m_groupCount != 0 && p < end) Write(*p++);
  // Whole groups in blocks: 4 characters per group and at most one line
  // break (2 bytes) per character when lines are 1 long.
  const unsigned int kGroups = 1024;
  char out[kGroups * 12];
  while (end - p >= 3) {
    unsigned int groups = static_cast<unsigned int>((end - p) / 3);
    if (groups > kGroups) groups = kGroups;
    unsigned int count = EncodeBlock(reinterpret_cast<const unsigned char*>(p), groups, out);
    p += groups * 3;
    m_stream->Write(out, 0, count);
  }
  while (p < end) Write(*p++);
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
