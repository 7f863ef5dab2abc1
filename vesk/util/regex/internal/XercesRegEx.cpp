#include "vesk/util/regex/internal/XercesRegEx.h"

#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/regx/Token.hpp>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace util {
namespace regex {
namespace internal {

namespace {

using xercesc::Token;

bool IsUnbounded(const Token* token) {
  Token::tokType type = token->getTokenType();
  return (type == Token::T_CLOSURE || type == Token::T_NONGREEDYCLOSURE) && token->getMax() < 0;
}

bool FindEmptyLoop(const Token* token) {
  if (IsUnbounded(token)) {
    const Token* body = token->getChild(0);
    if (body->getMinLength() == 0) return true;
  }
  for (XMLSize_t i = 0, n = token->size(); i < n; ++i) {
    if (FindEmptyLoop(token->getChild(i))) return true;
  }
  return false;
}

// Units and bytes of the character at text (at most available bytes); a
// malformed byte is one '?'.
inline unsigned int StepChar(const char* text, std::size_t available, unsigned int* units) {
  if (static_cast<unsigned char>(*text) < 0x80) {
    *units = 1;
    return 1;
  }
  int codePoint;
  unsigned int bytes = platform::Utf8Decode(text, available, &codePoint);
  *units = codePoint > 0xFFFF ? 2 : 1;
  return bytes;
}

}  // namespace

bool CRegExEngine::HasEmptyLoop() const { return fTokenTree && FindEmptyLoop(fTokenTree); }

void CRegExEngine::RepairLiteralEnd(xercesc::Match* record) const {
  if (!fFixedStringOnly || !fFixedString || !record || record->getNoGroups() < 1) return;
  int start = record->getStartPos(0);
  if (start >= 0)
    record->setEndPos(0, start + static_cast<int>(xercesc::XMLString::stringLen(fFixedString)));
}

CWideText::CWideText(const char* text, std::size_t bytes, const char* source)
    : m_text(m_small), m_length(0), m_bytes(bytes) {
  // No character takes more UTF-16 units than UTF-8 bytes, so the bytes size
  // the block and one pass converts.
  if (bytes >= sizeof(m_small) / sizeof(m_small[0])) {
    m_text = static_cast<XMLCh*>(platform::Alloc((bytes + 1) * sizeof(XMLCh)));
    if (!m_text) VESK_THROW(source, vesk::base::CMemoryException);
  }
  std::size_t ascii = 0;
  while (ascii < bytes && static_cast<unsigned char>(text[ascii]) < 0x80) {
    m_text[ascii] = static_cast<unsigned char>(text[ascii]);
    ++ascii;
  }
  m_length = ascii;
  if (ascii < bytes) {
    m_length += platform::Utf8ToUtf16(text + ascii, static_cast<int>(bytes - ascii),
                                      reinterpret_cast<unsigned short*>(m_text + ascii),
                                      bytes - ascii);
  }
  m_text[m_length] = 0;
}

CWideText::~CWideText() {
  if (m_text != m_small) platform::Free(m_text);
}

namespace {

// Walks whole characters from the start of a UTF-8 text of length bytes
// while neither count passes its limit; answers the bytes or the units
// walked.
std::size_t Walk(const char* text, std::size_t length, std::size_t byteLimit,
                 std::size_t unitLimit, bool answerBytes) {
  std::size_t bytes = 0;
  std::size_t units = 0;
  while (bytes < length) {
    unsigned int n;
    unsigned int step = StepChar(text + bytes, length - bytes, &n);
    if (bytes + step > byteLimit || units + n > unitLimit) break;
    bytes += step;
    units += n;
  }
  return answerBytes ? bytes : units;
}

}  // namespace

std::size_t UnitOffset(const char* text, std::size_t length, std::size_t offset) {
  return Walk(text, length, offset, static_cast<std::size_t>(-1), false);
}

std::size_t ByteOffset(const char* text, std::size_t length, std::size_t units) {
  return Walk(text, length, static_cast<std::size_t>(-1), units, true);
}

}  // namespace internal
}  // namespace regex
}  // namespace util
}  // namespace vesk
