#include "IO/File.h"

#include <cstring>

#include "vesk/platform/Memory.h"

namespace IO {

File::File(const Location& location, Access)
    : m_location(location),
      m_handle(host::kNoHandle),
      m_status(location.IsEmpty() ? kStatusInvalidLocation : 0),
      m_outputStatus(0),
      m_buffer(nullptr),
      m_readEnd(0),
      m_readPos(0),
      m_writeLen(0) {}

File::~File() {
  if (IsOpen()) Close();
  vesk::platform::Free(m_buffer);
}

unsigned int File::Open(int mode, int) {
  if (m_status != 0) return m_status;
  if (IsOpen()) return kStatusFailed;
  host::OpenKind kind;
  switch (mode) {
    case kModeRead:
      kind = host::kOpenRead;
      break;
    case kModeWrite:
      kind = host::kOpenWriteTruncate;
      break;
    case kModeAppend:
      kind = host::kOpenAppend;
      break;
    case kModeWriteInPlace:
      kind = host::kOpenWriteInPlace;
      break;
    default:
      return kStatusFailed;
  }
  m_outputStatus = 0;
  m_readEnd = m_readPos = m_writeLen = 0;
  return host::OpenFile(m_location.GetPath(), kind, &m_handle);
}

unsigned int File::Close() {
  if (!IsOpen()) return kStatusNotOpen;
  unsigned int status = Flush();
  unsigned int closed = host::CloseFile(m_handle);
  m_handle = host::kNoHandle;
  m_readEnd = m_readPos = m_writeLen = 0;
  vesk::platform::Free(m_buffer);
  m_buffer = nullptr;
  return status != 0 ? status : closed;
}

bool File::EnsureBuffer() {
  // Without a buffer every call goes straight to the host: slower, but
  // nothing fails for want of memory.
  if (!m_buffer) m_buffer = static_cast<char*>(vesk::platform::Alloc(kBufferSize));
  return m_buffer != nullptr;
}

unsigned int File::Flush() {
  if (!IsOpen()) return kStatusNotOpen;
  if (m_writeLen == 0) return 0;
  std::size_t length = m_writeLen;
  // The bytes leave the buffer whatever happens; a failure is reported to
  // the caller, who learns that what it wrote did not all arrive.
  m_writeLen = 0;
  return host::WriteFile(m_handle, m_buffer, length);
}

unsigned int File::Sync() {
  if (m_writeLen != 0) return Flush();
  if (m_readPos < m_readEnd) {
    std::int64_t back = static_cast<std::int64_t>(m_readEnd - m_readPos);
    m_readEnd = m_readPos = 0;
    return host::SeekFile(m_handle, -back, 1, nullptr);
  }
  m_readEnd = m_readPos = 0;
  return 0;
}

unsigned int File::GetPosition(std::uint64_t* position) {
  if (!IsOpen()) return kStatusNotOpen;
  std::uint64_t at = 0;
  unsigned int status = host::SeekFile(m_handle, 0, 1, &at);
  if (status != 0) return status;
  *position = at + m_writeLen - (m_readEnd - m_readPos);
  return 0;
}

unsigned int File::GetDataLength(std::uint64_t* length) {
  if (!IsOpen()) return kStatusNotOpen;
  if (m_writeLen != 0) {
    unsigned int status = Flush();
    if (status != 0) return status;
  }
  return host::FileSize(m_handle, length);
}

unsigned int File::GetRemainingLength(std::uint64_t* remaining) {
  std::uint64_t length = 0, position = 0;
  unsigned int status = GetDataLength(&length);
  if (status == 0) status = GetPosition(&position);
  if (status != 0) return status;
  *remaining = position < length ? length - position : 0;
  return 0;
}

unsigned int File::Seek(std::int64_t offset, int origin) {
  if (!IsOpen()) return kStatusNotOpen;
  // A forward or backward move inside the read-ahead costs no system call.
  if (origin == 1 && m_readPos < m_readEnd) {
    std::int64_t target = static_cast<std::int64_t>(m_readPos) + offset;
    if (target >= 0 && target <= static_cast<std::int64_t>(m_readEnd)) {
      m_readPos = static_cast<std::size_t>(target);
      return 0;
    }
  }
  unsigned int status = Sync();
  if (status != 0) return status;
  return host::SeekFile(m_handle, offset, origin, nullptr);
}

unsigned int File::SetPosition(std::uint64_t position) {
  if (!IsOpen()) return kStatusNotOpen;
  unsigned int status = Sync();
  if (status != 0) return status;
  return host::SeekFile(m_handle, static_cast<std::int64_t>(position), 0, nullptr);
}

unsigned int File::Read(unsigned char* byte) {
  if (m_readPos < m_readEnd) {
    *byte = static_cast<unsigned char>(m_buffer[m_readPos++]);
    return 0;
  }
  std::size_t read = 0;
  return ReadBin(byte, 1, &read);
}

unsigned int File::Read(unsigned short* unit) {
  std::size_t read = 0;
  unsigned char bytes[2];
  unsigned int status = ReadBin(bytes, 2, &read);
  if (status == 0) std::memcpy(unit, bytes, 2);
  return status;
}

unsigned int File::ReadBin(void* buffer, std::size_t length, std::size_t* read) {
  *read = 0;
  if (!IsOpen()) return kStatusNotOpen;
  if (m_writeLen != 0) {
    unsigned int status = Flush();
    if (status != 0) return status;
  }
  char* out = static_cast<char*>(buffer);
  std::size_t done = 0;
  while (done < length) {
    if (m_readPos < m_readEnd) {
      std::size_t n = m_readEnd - m_readPos;
      if (n > length - done) n = length - done;
      std::memcpy(out + done, m_buffer + m_readPos, n);
      m_readPos += n;
      done += n;
      continue;
    }
    std::size_t got = 0;
    unsigned int status;
    // Large requests go straight into the caller's block; small ones fill
    // the buffer first.
    if (length - done >= kBufferSize || !EnsureBuffer()) {
      status = host::ReadFile(m_handle, out + done, length - done, &got);
      done += got;
    } else {
      status = host::ReadFile(m_handle, m_buffer, kBufferSize, &got);
      m_readPos = 0;
      m_readEnd = got;
    }
    if (status != 0) {
      *read = done;
      return status;
    }
    if (got == 0) break;
  }
  *read = done;
  return done < length ? kStatusEndOfData : 0;
}

unsigned int File::Put(const void* data, std::size_t length) {
  if (!IsOpen()) return kStatusNotOpen;
  if (m_readPos < m_readEnd) {
    unsigned int status = Sync();
    if (status != 0) return status;
  }
  if (m_writeLen + length > kBufferSize) {
    unsigned int status = Flush();
    if (status != 0) return status;
  }
  if (length >= kBufferSize || !EnsureBuffer()) return host::WriteFile(m_handle, data, length);
  std::memcpy(m_buffer + m_writeLen, data, length);
  m_writeLen += length;
  return 0;
}

File& File::operator<<(char byte) {
  if (IsOpen() && m_buffer && m_writeLen < kBufferSize - 1 && m_readPos == m_readEnd) {
    m_buffer[m_writeLen++] = byte;
    m_outputStatus = 0;
  } else {
    m_outputStatus = Put(&byte, 1);
  }
  return *this;
}

File& File::operator<<(unsigned short unit) {
  m_outputStatus = Put(&unit, 2);
  return *this;
}

unsigned int File::WriteBin(const void* buffer, std::size_t length) {
  return m_outputStatus = Put(buffer, length);
}

}  // namespace IO
