#include "vesk/io/XMLTextReader.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/io/FileInputStream.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/internal/XMLReadSteps.h"
#include "vesk/io/internal/XMLTextTokenizer.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CException;
using vesk::base::CMemoryException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLTextReader, CXMLTextReader, "vesk::io::CXMLTextReader", "vesk::io::CXMLReader")

namespace {

const char kSource[] = "vesk/io/XMLTextReader";
const char kCreateFailed[] = "Failed to create XML text tokenizer.";
const char kNextFailed[] = "Failed to get the next token of xml text tokenizer.";

// Rethrows a failure of the tokenizer under the reader's description: a
// scanner failure stays a CXMLException, anything else (the stream's own
// failures) becomes a CIOException; the original text goes along as the
// message. Allocation failures pass unchanged.
[[noreturn]] void Rethrow(const CException& e, const char* description) {
  const char* text = e.GetMessage() ? e.GetMessage() : e.GetErrorDescription();
  if (dynamic_cast<const CXMLException*>(&e)) VESK_THROW(kSource, CXMLException, description, text);
  VESK_THROW(kSource, CIOException, description, text);
}

// The file stream's opening failures under the reader's own texts.
CRef<CInputStream> OpenFile(const IO::Location& location) {
  try {
    CRef<CInputStream> file(new CFileInputStream(location));
    return file;
  } catch (const CMemoryException&) {
    throw;
  } catch (const CIOException& e) {
    const char* description = e.GetErrorDescription();
    if (description && std::strcmp(description, "Access denied.") == 0)
      VESK_THROW(kSource, CIOException, "Access denied.");
    if (description) VESK_THROW(kSource, CIOException, "An error occured while trying to open file.");
    VESK_THROW(kSource, CIOException, "Failed to create file for reading the specified xml file.");
  }
}

}  // namespace

CXMLTextReader::CXMLTextReader(CInputStream* stream) : m_tokenizer(nullptr), m_pending(false) {
  Open(stream, CRef<CInputStream>());
}

CXMLTextReader::CXMLTextReader(const CRef<CInputStream>& stream) : m_tokenizer(nullptr), m_pending(false) {
  Open(stream.Get(), stream);
}

CXMLTextReader::CXMLTextReader(const IO::Location& location)
    : m_tokenizer(nullptr), m_file(OpenFile(location)), m_pending(false) {
  Open(m_file.Get(), m_file);
}

void CXMLTextReader::Open(CInputStream* stream, const CRef<CInputStream>& owner) {
  if (!stream) VESK_THROW(kSource, CIOException, kCreateFailed, "Invalid input stream.");
  try {
    m_tokenizer = new internal::CXMLTextTokenizer(stream, owner);
  } catch (const CMemoryException&) {
    throw;
  } catch (const CException& e) {
    Rethrow(e, kCreateFailed);
  }
}

CXMLTextReader::~CXMLTextReader() { delete m_tokenizer; }

void CXMLTextReader::CheckOpen() const {
  if (!m_tokenizer) VESK_THROW(kSource, CIOException, "Reader closed.");
}

const CRef<IXMLToken>& CXMLTextReader::GetCurrentToken() const { return m_currentToken; }

bool CXMLTextReader::ReadToken() {
  CheckOpen();
  if (m_pending) {
    m_currentToken = m_pendingToken;
    m_pendingToken = CRef<IXMLToken>();
    m_pending = false;
    return true;
  }
  try {
    m_tokenizer->NextToken(m_currentToken);
  } catch (const CMemoryException&) {
    throw;
  } catch (const CException& e) {
    m_currentToken = CRef<IXMLToken>();
    Rethrow(e, kNextFailed);
  }
  return !m_currentToken.IsNull();
}

void CXMLTextReader::ReadStartElement(const unsigned short* localName, const unsigned short* namespaceURI) {
  internal::ReadStartElementToken(*this, kSource, internal::kLocalAndNamespace, localName, namespaceURI);
}

void CXMLTextReader::ReadStartElement(const unsigned short* name) {
  internal::ReadStartElementToken(*this, kSource, internal::kQualifiedName, name, nullptr);
}

void CXMLTextReader::ReadStartElement() {
  internal::ReadStartElementToken(*this, kSource, internal::kAnyElement, nullptr, nullptr);
}

void CXMLTextReader::ReadEndElement(const unsigned short* localName, const unsigned short* namespaceURI) {
  internal::ReadEndElementToken(*this, kSource, internal::kLocalAndNamespace, localName, namespaceURI);
}

void CXMLTextReader::ReadEndElement(const unsigned short* name) {
  internal::ReadEndElementToken(*this, kSource, internal::kQualifiedName, name, nullptr);
}

void CXMLTextReader::ReadEndElement() {
  internal::ReadEndElementToken(*this, kSource, internal::kAnyElement, nullptr, nullptr);
}

bool CXMLTextReader::ReadElementTextIfAvailable() {
  CRef<IXMLToken> previous = m_currentToken;
  if (!ReadToken()) return false;
  if (internal::IsCharacterData(m_currentToken)) return true;
  m_pendingToken = m_currentToken;
  m_pending = true;
  m_currentToken = previous;
  return false;
}

void CXMLTextReader::ReadElementText(CUnicodeString& text) {
  if (!ReadElementTextIfAvailable()) {
    if (!m_pending) VESK_THROW(kSource, CXMLException, "End of stream reached.");
    m_currentToken = internal::EmptyText();
  }
  text = m_currentToken->GetValue();
}

CUnicodeString CXMLTextReader::ReadElementText() {
  CUnicodeString text;
  ReadElementText(text);
  return text;
}

void CXMLTextReader::Close() {
  delete m_tokenizer;
  m_tokenizer = nullptr;
  m_pendingToken = CRef<IXMLToken>();
  m_pending = false;
  m_file = CRef<CInputStream>();
}

}  // namespace io
}  // namespace vesk
