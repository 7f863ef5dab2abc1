#include "vesk/io/DataOutputStream.h"

#include <cstring>
#include <typeinfo>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/io/IOException.h"
#include "vesk/io/internal/StreamState.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using vesk::base::CString;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CDataOutputStream, CDataOutputStream, "vesk::io::CDataOutputStream",
                     "vesk::io::COutputStream")

namespace {
const char kSource[] = "vesk/io/DataOutputStream";

inline void PutBig32(char* out, unsigned int v) {
  out[0] = static_cast<char>(v >> 24);
  out[1] = static_cast<char>(v >> 16);
  out[2] = static_cast<char>(v >> 8);
  out[3] = static_cast<char>(v);
}
}  // namespace

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Stream closed.")

namespace {
CBufferedOutputStream* ExactlyBuffered(COutputStream* stream) {
  return stream && typeid(*stream) == typeid(CBufferedOutputStream)
             ? static_cast<CBufferedOutputStream*>(stream)
             : nullptr;
}
}  // namespace

CDataOutputStream::CDataOutputStream(const CRef<COutputStream>& stream)
    : m_streamRef(stream), m_stream(stream.Get()), m_buffered(ExactlyBuffered(stream.Get())) {
  if (!m_stream) VESK_THROW(kSource, CIllegalArgumentException, "Invalid output stream.");
}

CDataOutputStream::CDataOutputStream(COutputStream* stream)
    : m_stream(stream), m_buffered(ExactlyBuffered(stream)) {
  if (!m_stream) VESK_THROW(kSource, CIllegalArgumentException, "Invalid output stream.");
}

CDataOutputStream::~CDataOutputStream() {}

void CDataOutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  m_stream->Write(buffer, offset, length);
}

void CDataOutputStream::Write(const char* buffer, unsigned int length) {
  VESK_CHECK_OPEN();
  m_stream->Write(buffer, length);
}

void CDataOutputStream::Write(char byte) {
  VESK_CHECK_OPEN();
  m_stream->Write(byte);
}

void CDataOutputStream::Flush() {
  VESK_CHECK_OPEN();
  m_stream->Flush();
}

void CDataOutputStream::Close() {
  if (!m_stream) return;
  COutputStream* stream = m_stream;
  m_stream = nullptr;
  m_buffered = nullptr;
  stream->Close();
}

void CDataOutputStream::WriteCheckedValueBytes(const char* bytes, unsigned int length) {
  VESK_CHECK_OPEN();
  WriteValueBytes(bytes, length);
}

void CDataOutputStream::WriteBool(bool value) {
  VESK_CHECK_OPEN();
  m_stream->Write(static_cast<char>(value ? 1 : 0));
}

void CDataOutputStream::WriteByte(char value) {
  VESK_CHECK_OPEN();
  m_stream->Write(value);
}

void CDataOutputStream::WriteUByte(unsigned char value) {
  VESK_CHECK_OPEN();
  m_stream->Write(static_cast<char>(value));
}

// Floating-point values keep the host byte order: files written by earlier
// releases hold them that way.
void CDataOutputStream::WriteFloat(float value) {
  VESK_CHECK_OPEN();
  char b[sizeof value];
  std::memcpy(b, &value, sizeof value);
  WriteValueBytes(b, sizeof b);
}

void CDataOutputStream::WriteDouble(double value) {
  VESK_CHECK_OPEN();
  char b[sizeof value];
  std::memcpy(b, &value, sizeof value);
  WriteValueBytes(b, sizeof b);
}

void CDataOutputStream::WriteString(const CUnicodeString& text) {
  VESK_CHECK_OPEN();
  CString utf8 = text.ToUTF8();
  unsigned int n = utf8.GetLength();
  char count[4];
  PutBig32(count, n);
  m_stream->Write(count, 4);
  if (n != 0) m_stream->Write(static_cast<const char*>(utf8), n);
}

void CDataOutputStream::WriteString(const unsigned short* text) {
  VESK_CHECK_OPEN();
  if (!text || !*text) return;
  WriteString(CUnicodeString(text));
}

void CDataOutputStream::WriteObject(const ISerializable& obj) {
  VESK_CHECK_OPEN();
  obj.WriteTo(*this);
}

CDataOutputStream& CDataOutputStream::operator<<(bool value) {
  WriteBool(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(char value) {
  WriteByte(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(unsigned char value) {
  WriteUByte(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(short value) {
  WriteInt16(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(int value) {
  WriteInt32(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(unsigned short value) {
  WriteUInt16(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(unsigned int value) {
  WriteUInt32(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(float value) {
  WriteFloat(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(double value) {
  WriteDouble(value);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(const unsigned short* text) {
  WriteString(text);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(const CUnicodeString& text) {
  WriteString(text);
  return *this;
}
CDataOutputStream& CDataOutputStream::operator<<(const ISerializable& obj) {
  WriteObject(obj);
  return *this;
}

}  // namespace io
}  // namespace vesk
