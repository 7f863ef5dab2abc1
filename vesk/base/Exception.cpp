#include "vesk/base/Exception.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/platform/Memory.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CException, CException, "vesk::base::CException", "vesk::base::CObject")

CException::CException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
                       const char* message)
    : m_sourceFile(sourceFile),
      m_sourceLine(sourceLine),
      m_errorDescription(errorDescription),
      m_message(nullptr) {
  SetMessage(message);
}

CException::CException(const CException& other)
    : CObject(other),
      m_sourceFile(other.m_sourceFile),
      m_sourceLine(other.m_sourceLine),
      m_errorDescription(other.m_errorDescription),
      m_message(nullptr) {
  SetMessage(other.m_message);
}

CException& CException::operator=(const CException& other) {
  if (this != &other) {
    m_sourceFile = other.m_sourceFile;
    m_sourceLine = other.m_sourceLine;
    m_errorDescription = other.m_errorDescription;
    SetMessage(other.m_message);
  }
  return *this;
}

CException::~CException() { platform::Free(m_message); }

bool CException::SetMessage(const char* text) {
  // The copy is made before the old message is freed: text may be the
  // current message itself (or a part of it).
  char* copy = nullptr;
  if (text && *text) {
    std::size_t size = std::strlen(text) + 1;
    copy = static_cast<char*>(platform::Alloc(size));
    if (copy) std::memcpy(copy, text, size);
  }
  platform::Free(m_message);
  m_message = copy;
  return copy != nullptr || !text || !*text;
}

void CException::AssignOptionalText(CString& target, const char* text) {
  if (!text || !*text) return;
  try {
    target = text;
  } catch (const CMemoryException&) {
    // an exception is still built without the text
  }
}

}  // namespace base
}  // namespace vesk
