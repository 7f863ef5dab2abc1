#include "vesk/io/DataInputStream.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/IOException.h"
#include "vesk/io/internal/StreamState.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CMemoryException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CDataInputStream, CDataInputStream, "vesk::io::CDataInputStream",
                     "vesk::io::CInputStream")

namespace {
const char kSource[] = "vesk/io/DataInputStream";
}  // namespace

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Stream closed.")

CDataInputStream::CDataInputStream(const CRef<CInputStream>& stream)
    : m_streamRef(stream), m_stream(stream.Get()) {
  if (!m_stream) VESK_THROW(kSource, CIllegalArgumentException, "Invalid input stream.");
}

// The message of the borrowing form differs from the sharing one; clients
// match on both texts as they stand.
CDataInputStream::CDataInputStream(CInputStream* stream) : m_stream(stream) {
  if (!m_stream) VESK_THROW(kSource, CIllegalArgumentException, "Invalid intput stream.");
}

CDataInputStream::~CDataInputStream() {}

unsigned int CDataInputStream::GetAvailable() const {
  VESK_CHECK_OPEN();
  return m_stream->GetAvailable();
}

int CDataInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  return m_stream->Read(buffer, offset, length);
}

int CDataInputStream::Read(char* buffer, unsigned int length) {
  VESK_CHECK_OPEN();
  return m_stream->Read(buffer, length);
}

int CDataInputStream::Read() {
  VESK_CHECK_OPEN();
  return m_stream->Read();
}

int CDataInputStream::Skip(unsigned int count) {
  VESK_CHECK_OPEN();
  return m_stream->Skip(count);
}

void CDataInputStream::Reset() {
  VESK_CHECK_OPEN();
  m_stream->Reset();
}

void CDataInputStream::Close() {
  if (!m_stream) return;
  CInputStream* stream = m_stream;
  m_stream = nullptr;
  stream->Close();
}

void CDataInputStream::ReadRaw(void* value, unsigned int size) {
  VESK_CHECK_OPEN();
  // Zeroed first, so a read at the end of the data yields a defined value.
  std::memset(value, 0, size);
  m_stream->Read(static_cast<char*>(value), size);
}

bool CDataInputStream::ReadBool() {
  VESK_CHECK_OPEN();
  return m_stream->Read() == 1;
}

char CDataInputStream::ReadByte() {
  VESK_CHECK_OPEN();
  return static_cast<char>(m_stream->Read());
}

unsigned char CDataInputStream::ReadSByte() {
  VESK_CHECK_OPEN();
  return static_cast<unsigned char>(m_stream->Read());
}

// The signed reads take their bytes themselves, not through the unsigned
// slots, so a subclass that overrides one read leaves the others alone.
short CDataInputStream::ReadInt16() { return static_cast<short>(CDataInputStream::ReadUInt16()); }

int CDataInputStream::ReadInt32() { return static_cast<int>(CDataInputStream::ReadUInt32()); }

unsigned short CDataInputStream::ReadUInt16() {
  unsigned char b[2];
  ReadRaw(b, 2);
  return static_cast<unsigned short>((b[0] << 8) | b[1]);
}

unsigned int CDataInputStream::ReadUInt32() {
  unsigned char b[4];
  ReadRaw(b, 4);
  return (static_cast<unsigned int>(b[0]) << 24) | (static_cast<unsigned int>(b[1]) << 16) |
         (static_cast<unsigned int>(b[2]) << 8) | b[3];
}

// Floating-point values travel in host byte order, unswapped.
float CDataInputStream::ReadFloat() {
  float value;
  ReadRaw(&value, sizeof value);
  return value;
}

double CDataInputStream::ReadDouble() {
  double value;
  ReadRaw(&value, sizeof value);
  return value;
}

CUnicodeString CDataInputStream::ReadString() {
  VESK_CHECK_OPEN();
  return ReadUTF8(ReadUInt32());
}

namespace {
// Strings up to this many bytes are read with one Read into a block of
// their full size. A longer count may come from damaged data (any four
// bytes make a count of up to 4 GB), so those are read in pieces into a
// block that grows only as the bytes arrive.
constexpr unsigned int kOneReadLimit = 65536;
}  // namespace

CUnicodeString CDataInputStream::ReadUTF8(unsigned int count) {
  VESK_CHECK_OPEN();
  std::size_t capacity = count < kOneReadLimit ? count : kOneReadLimit;
  if (capacity < 32) capacity = 32;
  char* buffer = static_cast<char*>(platform::Alloc(capacity + 1));
  if (!buffer) VESK_THROW(kSource, CMemoryException);
  CUnicodeString text;
  try {
    std::size_t got = 0;
    if (count <= kOneReadLimit) {
      int n = count == 0 ? 0 : m_stream->Read(buffer, count);
      if (n > 0) got = static_cast<std::size_t>(n);
    } else {
      while (got < count) {
        if (got == capacity) {
          std::size_t grown = capacity * 2 < count ? capacity * 2 : count;
          char* moved = static_cast<char*>(platform::Realloc(buffer, grown + 1));
          if (!moved) VESK_THROW(kSource, CMemoryException);
          buffer = moved;
          capacity = grown;
        }
        int n = m_stream->Read(buffer, static_cast<unsigned int>(got),
                               static_cast<unsigned int>(capacity - got));
        if (n <= 0) break;
        got += static_cast<std::size_t>(n);
      }
    }
    // The text ends after the bytes that actually arrived: a short read at
    // the end of the data never exposes the rest of the block.
    buffer[got] = 0;
    text.FromUTF8(buffer, -1);
  } catch (...) {
    platform::Free(buffer);
    throw;
  }
  platform::Free(buffer);
  return text;
}

void CDataInputStream::ReadObject(ISerializable& obj) {
  VESK_CHECK_OPEN();
  obj.ReadFrom(*this);
}

CDataInputStream& CDataInputStream::operator>>(bool& value) {
  value = ReadBool();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(char& value) {
  value = ReadByte();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(unsigned char& value) {
  value = ReadSByte();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(short& value) {
  value = ReadInt16();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(int& value) {
  value = ReadInt32();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(unsigned short& value) {
  value = ReadUInt16();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(unsigned int& value) {
  value = ReadUInt32();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(float& value) {
  value = ReadFloat();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(double& value) {
  value = ReadDouble();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(CUnicodeString& value) {
  value = ReadString();
  return *this;
}
CDataInputStream& CDataInputStream::operator>>(ISerializable& value) {
  ReadObject(value);
  return *this;
}

}  // namespace io
}  // namespace vesk
