#include "vesk/io/XMLPushbackReader.h"

#include <new>

#include "vesk/base/Bool.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/XMLEndElementToken.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLStartElementToken.h"
#include "vesk/io/XMLTextToken.h"
#include "vesk/io/internal/XMLReadSteps.h"
#include "vesk/platform/Format16.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CBool;
using vesk::base::CMemoryException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLPushbackReader, CXMLPushbackReader, "vesk::io::CXMLPushbackReader",
                     "vesk::io::CXMLReader")

namespace {

const char kSource[] = "vesk/io/XMLPushbackReader";
// Typed values are formatted into a buffer of this many units.
const unsigned int kValueUnits = 256;

void CheckLocalName(const unsigned short* localName) {
  if (!localName || !*localName) VESK_THROW(kSource, CXMLException, "Invalid local name.");
}

// A start or end element token named as the text reader names one: the
// qualified and the local name, and the namespace URI (empty without one),
// so that both kinds of element read find it.
template <class Token, typename... Extra>
CRef<IXMLToken> ElementToken(const unsigned short* localName, const unsigned short* namespaceURI,
                             Extra... extra) {
  CUnicodeString name(localName);
  CRef<IXMLToken> token(new Token(name, name, CUnicodeString(namespaceURI), extra...));
  return token;
}

}  // namespace

CXMLPushbackReader::CXMLPushbackReader(const CRef<CXMLReader>& reader, unsigned int size)
    : m_reader(reader), m_buffer(nullptr), m_size(size), m_position(size) {
  if (reader.IsNull()) VESK_THROW(kSource, CXMLException, "Invalid XML reader.");
  if (size == 0) VESK_THROW(kSource, CXMLException, "Invalid pushback buffer size.");
  void* block = static_cast<unsigned long long>(size) * sizeof(CRef<IXMLToken>) > 0xFFFFFFFFull
                    ? nullptr
                    : platform::Alloc(size * sizeof(CRef<IXMLToken>));
  if (!block) VESK_THROW(kSource, CMemoryException);
  m_buffer = static_cast<CRef<IXMLToken>*>(block);
  for (unsigned int i = 0; i < size; ++i) new (m_buffer + i) CRef<IXMLToken>();
}

CXMLPushbackReader::~CXMLPushbackReader() {
  for (unsigned int i = 0; i < m_size; ++i) m_buffer[i].~CRef<IXMLToken>();
  platform::Free(m_buffer);
}

void CXMLPushbackReader::CheckOpen() const {
  if (m_reader.IsNull()) VESK_THROW(kSource, CIOException, "Reader closed.");
}

const CRef<IXMLToken>& CXMLPushbackReader::GetCurrentToken() const { return m_currentToken; }

bool CXMLPushbackReader::ReadToken() {
  CheckOpen();
  if (m_position == m_size) {
    m_currentToken = CRef<IXMLToken>();
    bool more = m_reader->ReadToken();
    m_currentToken = m_reader->GetCurrentToken();
    return more;
  }
  m_currentToken = m_buffer[m_position];
  m_buffer[m_position] = CRef<IXMLToken>();
  ++m_position;
  return true;
}

void CXMLPushbackReader::ReadStartElement(const unsigned short* localName, const unsigned short* namespaceURI) {
  internal::ReadStartElementToken(*this, kSource, internal::kLocalAndNamespace, localName, namespaceURI);
}

void CXMLPushbackReader::ReadStartElement(const unsigned short* name) {
  internal::ReadStartElementToken(*this, kSource, internal::kQualifiedName, name, nullptr);
}

void CXMLPushbackReader::ReadStartElement() {
  internal::ReadStartElementToken(*this, kSource, internal::kAnyElement, nullptr, nullptr);
}

void CXMLPushbackReader::ReadEndElement(const unsigned short* localName, const unsigned short* namespaceURI) {
  internal::ReadEndElementToken(*this, kSource, internal::kLocalAndNamespace, localName, namespaceURI);
}

void CXMLPushbackReader::ReadEndElement(const unsigned short* name) {
  internal::ReadEndElementToken(*this, kSource, internal::kQualifiedName, name, nullptr);
}

void CXMLPushbackReader::ReadEndElement() {
  internal::ReadEndElementToken(*this, kSource, internal::kAnyElement, nullptr, nullptr);
}

bool CXMLPushbackReader::ReadElementTextIfAvailable() {
  CRef<IXMLToken> previous = m_currentToken;
  if (!ReadToken()) return false;
  if (internal::IsCharacterData(m_currentToken)) return true;
  // The token just taken freed a slot (or the buffer was empty), so there is
  // always room to keep it.
  m_buffer[--m_position] = m_currentToken;
  m_currentToken = previous;
  return false;
}

void CXMLPushbackReader::ReadElementText(CUnicodeString& text) {
  if (!ReadElementTextIfAvailable()) {
    if (m_position == m_size) VESK_THROW(kSource, CXMLException, "End of stream reached.");
    m_currentToken = internal::EmptyText();
  }
  text = m_currentToken->GetValue();
}

CUnicodeString CXMLPushbackReader::ReadElementText() {
  CUnicodeString text;
  ReadElementText(text);
  return text;
}

void CXMLPushbackReader::Close() {
  if (m_reader.IsNull()) return;
  CRef<CXMLReader> reader = m_reader;
  m_reader = CRef<CXMLReader>();
  for (unsigned int i = m_position; i < m_size; ++i) m_buffer[i] = CRef<IXMLToken>();
  m_position = m_size;
  m_currentToken = CRef<IXMLToken>();
  reader->Close();
}

void CXMLPushbackReader::Push(const CRef<IXMLToken>& token) {
  CheckOpen();
  if (m_position == 0) VESK_THROW(kSource, CIOException, "Pushback buffer is full.");
  m_buffer[--m_position] = token;
}

void CXMLPushbackReader::UnreadToken() {
  if (m_currentToken.IsNull()) VESK_THROW(kSource, CXMLException, "There is no valid token.");
  Push(m_currentToken);
}

void CXMLPushbackReader::UnreadToken(const CRef<IXMLToken>& token) { Push(token); }

void CXMLPushbackReader::UnreadStartElement(const unsigned short* localName) {
  UnreadStartElement(localName, nullptr);
}

void CXMLPushbackReader::UnreadStartElement(const unsigned short* localName,
                                            const unsigned short* namespaceURI) {
  CheckLocalName(localName);
  Push(ElementToken<CXMLStartElementToken>(localName, namespaceURI, CXMLAttributeList()));
}

void CXMLPushbackReader::UnreadEndElement(const unsigned short* localName) { UnreadEndElement(localName, nullptr); }

void CXMLPushbackReader::UnreadEndElement(const unsigned short* localName, const unsigned short* namespaceURI) {
  CheckLocalName(localName);
  Push(ElementToken<CXMLEndElementToken>(localName, namespaceURI));
}

void CXMLPushbackReader::UnreadElementText(const unsigned short* text) {
  if (!text || !*text) VESK_THROW(kSource, CXMLException, "Invalid element text.");
  CRef<IXMLToken> token(new CXMLTextToken(CUnicodeString(text)));
  Push(token);
}

void CXMLPushbackReader::UnreadElement(const unsigned short* localName, const unsigned short* namespaceURI,
                                       const unsigned short* text) {
  CheckLocalName(localName);
  CheckOpen();
  bool hasText = text && *text;
  // All or nothing: the whole element must fit before any of it goes back.
  if (m_position < (hasText ? 3u : 2u)) VESK_THROW(kSource, CIOException, "Pushback buffer is full.");
  CRef<IXMLToken> start = ElementToken<CXMLStartElementToken>(localName, namespaceURI, CXMLAttributeList());
  CRef<IXMLToken> end = ElementToken<CXMLEndElementToken>(localName, namespaceURI);
  CRef<IXMLToken> body;
  if (hasText) body = CRef<IXMLToken>(new CXMLTextToken(CUnicodeString(text)));
  Push(end);
  if (hasText) Push(body);
  Push(start);
}

void CXMLPushbackReader::UnreadElementString(const unsigned short* localName, const unsigned short* text) {
  UnreadElement(localName, nullptr, text);
}

void CXMLPushbackReader::UnreadElementString(const unsigned short* localName, const unsigned short* namespaceURI,
                                             const unsigned short* text) {
  UnreadElement(localName, namespaceURI, text);
}

void CXMLPushbackReader::UnreadElementBool(const unsigned short* localName, bool value) {
  UnreadElement(localName, nullptr, value ? CBool::WSZ_TRUE : CBool::WSZ_FALSE);
}

void CXMLPushbackReader::UnreadElementBool(const unsigned short* localName, const unsigned short* namespaceURI,
                                           bool value) {
  UnreadElement(localName, namespaceURI, value ? CBool::WSZ_TRUE : CBool::WSZ_FALSE);
}

namespace {

// The value texts of the typed unreads. "%ld" of a 32-bit value prints as
// "%d" does here.
template <typename T>
struct ValueText {
  ValueText(const char16_t* format, T value) {
    platform::Utf16Format(units, kValueUnits, reinterpret_cast<const unsigned short*>(format), value);
  }
  unsigned short units[kValueUnits];
};

}  // namespace

void CXMLPushbackReader::UnreadElementShort(const unsigned short* localName, short value) {
  UnreadElement(localName, nullptr, ValueText<int>(u"%hd", value).units);
}

void CXMLPushbackReader::UnreadElementShort(const unsigned short* localName, const unsigned short* namespaceURI,
                                            short value) {
  UnreadElement(localName, namespaceURI, ValueText<int>(u"%hd", value).units);
}

void CXMLPushbackReader::UnreadElementLong(const unsigned short* localName, int value) {
  UnreadElement(localName, nullptr, ValueText<int>(u"%d", value).units);
}

void CXMLPushbackReader::UnreadElementLong(const unsigned short* localName, const unsigned short* namespaceURI,
                                           int value) {
  UnreadElement(localName, namespaceURI, ValueText<int>(u"%d", value).units);
}

void CXMLPushbackReader::UnreadElementFloat(const unsigned short* localName, float value) {
  UnreadElement(localName, nullptr, ValueText<double>(u"%g", value).units);
}

void CXMLPushbackReader::UnreadElementFloat(const unsigned short* localName, const unsigned short* namespaceURI,
                                            float value) {
  UnreadElement(localName, namespaceURI, ValueText<double>(u"%g", value).units);
}

void CXMLPushbackReader::UnreadElementDouble(const unsigned short* localName, double value) {
  UnreadElement(localName, nullptr, ValueText<double>(u"%lg", value).units);
}

void CXMLPushbackReader::UnreadElementDouble(const unsigned short* localName, const unsigned short* namespaceURI,
                                             double value) {
  UnreadElement(localName, namespaceURI, ValueText<double>(u"%lg", value).units);
}

}  // namespace io
}  // namespace vesk
