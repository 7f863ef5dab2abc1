#include "IO/Location.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace IO {

namespace {

char* CopyPath(const char* path, std::size_t length) {
  char* copy = static_cast<char*>(vesk::platform::Alloc(length + 1));
  if (copy == nullptr) VESK_THROW("IO/Location", vesk::base::CMemoryException);
  if (length != 0) std::memcpy(copy, path, length);
  copy[length] = '\0';
  return copy;
}

char* CopyPath(const char* path) {
  return CopyPath(path != nullptr ? path : "", path != nullptr ? std::strlen(path) : 0);
}

}  // namespace

Location::Location(const char* utf8Path) : m_path(CopyPath(utf8Path)) {}

Location::Location(const unsigned short* utf16Path) : m_path(nullptr) {
  std::size_t length =
      utf16Path != nullptr ? vesk::platform::Utf16ToUtf8(utf16Path, -1, nullptr, 0) : 0;
  m_path = static_cast<char*>(vesk::platform::Alloc(length + 1));
  if (m_path == nullptr) VESK_THROW("IO/Location", vesk::base::CMemoryException);
  m_path[length != 0 ? vesk::platform::Utf16ToUtf8(utf16Path, -1, m_path, length) : 0] = '\0';
}

Location::Location(const Location& other) : m_path(CopyPath(other.m_path)) {}

Location& Location::operator=(const Location& other) {
  if (this != &other) {
    char* copy = CopyPath(other.m_path);
    vesk::platform::Free(m_path);
    m_path = copy;
  }
  return *this;
}

Location::~Location() { vesk::platform::Free(m_path); }

}  // namespace IO
