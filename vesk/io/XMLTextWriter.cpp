#include "vesk/io/XMLTextWriter.h"

#include <cstdarg>

#include "vesk/base/Bool.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/BufferedWriter.h"
#include "vesk/io/FileOutputStream.h"
#include "vesk/io/IOException.h"
#include "vesk/io/OutputStreamWriter.h"
#include "vesk/io/PrintWriter.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/internal/XMLTextLine.h"
#include "vesk/io/internal/XMLTextWriterContextStack.h"
#include "vesk/platform/Format16.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/NoSuchElementException.h"

namespace vesk {
namespace io {

using internal::CXMLTextWriterContext;
using vesk::base::CBool;
using vesk::base::CMemoryException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLTextWriter, CXMLTextWriter, "vesk::io::CXMLTextWriter",
                     "vesk::io::CXMLWriter")

const unsigned int CXMLTextWriter::kNumberBufferSize;

namespace {

const char kSource[] = "vesk/io/XMLTextWriter";

// Names and texts here are short: counted inline rather than by a call.
inline unsigned int Length(const unsigned short* text) {
  unsigned int n = 0;
  if (text)
    while (text[n]) ++n;
  return n;
}

inline bool IsEmptyText(const unsigned short* text) { return !text || !*text; }

// The formats of the typed values. The historic "%ld", "%lu" and "%hd" of
// 32- and 16-bit values print the same text as "%d" and "%u" here; "%lg" is
// "%g".
const unsigned short kFormatD[] = {'%', 'd', 0};
const unsigned short kFormatU[] = {'%', 'u', 0};
const unsigned short kFormatLld[] = {'%', 'l', 'l', 'd', 0};
const unsigned short kFormatLlu[] = {'%', 'l', 'l', 'u', 0};
const unsigned short kFormatG[] = {'%', 'g', 0};
const unsigned short kFormatG15[] = {'%', '.', '1', '5', 'g', 0};
const unsigned short kFormatS[] = {'%', 's', 0};
const unsigned short kFormatC[] = {'%', 'c', 0};

inline const unsigned short* BoolText(bool value) {
  return value ? CBool::WSZ_TRUE : CBool::WSZ_FALSE;
}

}  // namespace

// --- construction -------------------------------------------------------------

CXMLTextWriter::CXMLTextWriter(COutputStream* out, const char* encoding, unsigned int bufferSize,
                               CXMLTextTabulator* tabulator, const unsigned short* endOfLine,
                               bool writeByteOrderMark)
    : m_tabulator(tabulator) {
  Init(out, encoding, bufferSize, endOfLine, writeByteOrderMark);
}

CXMLTextWriter::CXMLTextWriter(const CRef<COutputStream>& out, const char* encoding,
                               unsigned int bufferSize, CXMLTextTabulator* tabulator,
                               const unsigned short* endOfLine, bool writeByteOrderMark)
    : m_streamRef(out), m_tabulator(tabulator) {
  Init(out.Get(), encoding, bufferSize, endOfLine, writeByteOrderMark);
}

CXMLTextWriter::CXMLTextWriter(const IO::Location& location, const char* encoding,
                               unsigned int bufferSize, CXMLTextTabulator* tabulator,
                               const unsigned short* endOfLine, bool writeByteOrderMark)
    : m_tabulator(tabulator) {
  // A bad encoding must not empty the file first.
  if (!encoding || !*encoding)
    VESK_THROW(kSource, CXMLException, "Invalid encoding specification.");
  m_streamRef = new CFileOutputStream(location, false);
  Init(m_streamRef.Get(), encoding, bufferSize, endOfLine, writeByteOrderMark);
}

void CXMLTextWriter::Init(COutputStream* out, const char* encoding, unsigned int bufferSize,
                          const unsigned short* endOfLine, bool writeByteOrderMark) {
  if (!encoding || !*encoding)
    VESK_THROW(kSource, CXMLException, "Invalid encoding specification.");
  m_encoding = encoding;
  // The chain borrows from one link to the next; this writer holds every
  // link, the innermost last released.
  m_streamWriter = new COutputStreamWriter(out, encoding, writeByteOrderMark);
  m_bufferedWriter = new CBufferedWriter(m_streamWriter.Get(), bufferSize);
  CRef<CPrintWriter> printWriter(new CPrintWriter(m_bufferedWriter.Get(), false, endOfLine));
  printWriter->GetEndOfLine(m_endOfLine);
  m_line = new internal::CXMLTextLine();
  try {
    m_contexts = new internal::CXMLTextWriterContextStack();
  } catch (...) {
    delete m_line;
    m_line = nullptr;
    throw;
  }
  m_stream = out;
  m_printWriter = printWriter;
}

CXMLTextWriter::~CXMLTextWriter() {
  delete m_contexts;
  delete m_line;
}

void CXMLTextWriter::GetEndOfLine(CUnicodeString& out) const {
  CheckOpen();
  m_printWriter->GetEndOfLine(out);
}

// --- checks -------------------------------------------------------------------

void CXMLTextWriter::CheckOpen() const {
  if (m_printWriter.IsNull()) VESK_THROW(kSource, CIOException, "Writer closed.");
}

void CXMLTextWriter::CheckStarted() const {
  CheckOpen();
  if (!m_documentStarted) VESK_THROW(kSource, CXMLException, "Document hasn't been started yet.");
}

void CXMLTextWriter::CheckRootWritten() const {
  if (!m_rootWritten) VESK_THROW(kSource, CXMLException, "Document root hasn't been written yet.");
}

void CXMLTextWriter::CheckStartElementOpen() const {
  if (!m_startElementOpen)
    VESK_THROW(kSource, CXMLException, "Attributes must be written at start element.");
}

void CXMLTextWriter::CheckLocalName(const unsigned short* localName) const {
  if (IsEmptyText(localName)) VESK_THROW(kSource, CXMLException, "Invalid local name.");
  unsigned int length = Length(localName);
  for (unsigned int i = 0; i < length; ++i)
    if (localName[i] == ':')
      VESK_THROW(kSource, CXMLException, "Local name must be unqualified name.");
  if (!internal::IsXMLNCName(localName, length))
    VESK_THROW(kSource, CXMLException, "Invalid character error.");
}

// A prefix is checked as a name without colon: "a:b" as a prefix would give
// an element name no namespace-aware parser accepts.
void CXMLTextWriter::CheckPrefix(const unsigned short* prefix) const {
  if (IsEmptyText(prefix)) VESK_THROW(kSource, CXMLException, "Invalid prefix.");
  if (!internal::IsXMLNCName(prefix, Length(prefix)))
    VESK_THROW(kSource, CXMLException, "Invalid character error.");
}

void CXMLTextWriter::CheckNamespace(const unsigned short* namespaceURI) const {
  if (IsEmptyText(namespaceURI)) VESK_THROW(kSource, CXMLException, "Invalid namespace URI.");
}

// --- the line -----------------------------------------------------------------

void CXMLTextWriter::BeginLine(bool closeStartTag) {
  m_line->Clear();
  m_lineClosesStartTag = closeStartTag && m_startElementOpen;
  if (m_lineClosesStartTag) {
    m_line->Append('>');
    AppendEndOfLine();
  }
}

void CXMLTextWriter::AppendTab() {
  if (!m_tabulator) return;
  const unsigned short* tab = m_tabulator->GetTabString();
  if (tab) m_line->Append(tab, Length(tab));
}

void CXMLTextWriter::AppendEndOfLine() { m_line->Append(m_endOfLine, m_endOfLine.GetLength()); }

void CXMLTextWriter::AppendEscaped(const unsigned short* text) {
  if (!internal::AppendEscaped(*m_line, text, Length(text)))
    VESK_THROW(kSource, CXMLException, "Invalid character error.");
}

void CXMLTextWriter::AppendDeclaration(const unsigned short* prefix,
                                       const unsigned short* namespaceURI) {
  m_line->AppendAscii(" xmlns");
  if (prefix) {
    m_line->Append(':');
    m_line->Append(prefix, Length(prefix));
  }
  m_line->AppendAscii("=\"");
  m_line->Append(namespaceURI, Length(namespaceURI));
  m_line->Append('"');
}

void CXMLTextWriter::AppendQualifiedName(const unsigned short* prefix,
                                         const unsigned short* localName) {
  if (prefix) {
    m_line->Append(prefix, Length(prefix));
    m_line->Append(':');
  }
  m_line->Append(localName, Length(localName));
}

unsigned int CXMLTextWriter::BeginStartTag(const unsigned short* prefix,
                                           const unsigned short* localName, bool indent,
                                           unsigned int& nameLength) {
  BeginLine(true);
  if (indent) AppendTab();
  m_line->Append('<');
  unsigned int nameStart = m_line->GetLength();
  AppendQualifiedName(prefix, localName);
  nameLength = m_line->GetLength() - nameStart;
  return nameStart;
}

void CXMLTextWriter::PrintLine() {
  m_printWriter->Write(m_line->GetUnits(), 0, m_line->GetLength());
  if (m_lineClosesStartTag) m_startElementOpen = false;
}

// --- document -----------------------------------------------------------------

void CXMLTextWriter::WriteStartDocument() {
  CheckOpen();
  BeginLine(false);
  m_line->AppendAscii("<?xml version=\"1.0\" encoding=\"");
  m_line->AppendAscii(m_encoding);  // a converter's name: ASCII
  m_line->AppendAscii("\"?>");
  AppendEndOfLine();
  PrintLine();
  m_documentStarted = true;
}

void CXMLTextWriter::WriteEndDocument() {
  CheckStarted();
  CheckRootWritten();
  while (!m_contexts->IsEmpty()) WriteEndElement();
}

void CXMLTextWriter::WriteCDATA(const unsigned short* text) {
  CheckStarted();
  CheckRootWritten();
  BeginLine(true);
  m_line->AppendAscii("<![CDATA[");
  m_line->Append(text, Length(text));
  m_line->AppendAscii("]]>");
  AppendEndOfLine();
  PrintLine();
}

void CXMLTextWriter::WriteComment(const unsigned short* text) {
  CheckStarted();
  BeginLine(true);
  m_line->AppendAscii("<!-- ");
  m_line->Append(text, Length(text));
  m_line->AppendAscii("-->");
  AppendEndOfLine();
  PrintLine();
}

void CXMLTextWriter::WriteProcessingInstruction(const unsigned short* target,
                                                const unsigned short* data) {
  if (IsEmptyText(target))
    VESK_THROW(kSource, CXMLException, "Invalid processing instruction target.");
  if (IsEmptyText(data)) VESK_THROW(kSource, CXMLException, "Invalid processing instruction data.");
  CheckStarted();
  BeginLine(true);
  m_line->AppendAscii("<?");
  m_line->Append(target, Length(target));
  m_line->Append(' ');
  m_line->Append(data, Length(data));
  m_line->AppendAscii("?>");
  AppendEndOfLine();
  PrintLine();
}

void CXMLTextWriter::WriteEntityRef(const unsigned short* name) {
  CheckStarted();
  if (IsEmptyText(name)) VESK_THROW(kSource, CXMLException, "Invalid entity name.");
  CheckRootWritten();
  // A reference is a name: anything else would end the reference early.
  if (!internal::IsXMLNCName(name, Length(name)))
    VESK_THROW(kSource, CXMLException, "Invalid character error.");
  BeginLine(true);
  m_line->Append('&');
  m_line->Append(name, Length(name));
  m_line->Append(';');
  PrintLine();
}

void CXMLTextWriter::WriteWhitespace(const unsigned short* text) {
  CheckStarted();
  CheckRootWritten();
  if (IsEmptyText(text)) return;
  BeginLine(false);
  m_line->Append(text, Length(text));
  PrintLine();
}

// --- elements -----------------------------------------------------------------

const CUnicodeString* CXMLTextWriter::ResolveNamespace(const unsigned short* namespaceURI,
                                                       bool& declareDefault) const {
  declareDefault = false;
  if (m_contexts->GetDefaultNamespace() == namespaceURI) return nullptr;
  const CUnicodeString* prefix = m_contexts->FindPrefix(namespaceURI);
  if (!prefix) declareDefault = true;
  return prefix;
}

void CXMLTextWriter::StartElement(const unsigned short* prefix, const unsigned short* localName,
                                  bool hasNamespace, const unsigned short* namespaceURI,
                                  bool indent) {
  CheckStarted();
  CheckLocalName(localName);
  if (prefix) CheckPrefix(prefix);
  if (hasNamespace) CheckNamespace(namespaceURI);

  bool declareDefault = false;
  bool declarePrefix = false;
  const CUnicodeString* boundPrefix = nullptr;
  if (prefix) {
    const CUnicodeString* bound = m_contexts->FindNamespaceOfPrefix(prefix);
    declarePrefix = !bound || *bound != namespaceURI;
  } else if (hasNamespace) {
    boundPrefix = ResolveNamespace(namespaceURI, declareDefault);
    if (boundPrefix) prefix = *boundPrefix;
  }

  unsigned int nameLength = 0;
  unsigned int nameStart = BeginStartTag(prefix, localName, indent, nameLength);
  if (declareDefault) AppendDeclaration(nullptr, namespaceURI);
  if (declarePrefix) AppendDeclaration(prefix, namespaceURI);

  try {
    m_contexts->Push(m_line->GetUnits() + nameStart, nameLength);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CIOException, "Memory full.");
  }
  try {
    if (declareDefault) m_contexts->DeclareDefaultNamespace(namespaceURI);
    if (prefix && !boundPrefix) m_contexts->BindPrefix(prefix, namespaceURI);
    PrintLine();
  } catch (const CMemoryException&) {
    m_contexts->Pop();
    VESK_THROW(kSource, CIOException, "Memory full.");
  } catch (...) {
    m_contexts->Pop();
    throw;
  }
  m_rootWritten = true;
  m_startElementOpen = true;
}

void CXMLTextWriter::WriteStartElement(const unsigned short* localName) {
  StartElement(nullptr, localName, false, nullptr, true);
}

void CXMLTextWriter::WriteStartElement(const unsigned short* localName,
                                       const unsigned short* namespaceURI) {
  StartElement(nullptr, localName, true, namespaceURI, false);
}

void CXMLTextWriter::WriteStartElement(const unsigned short* prefix,
                                       const unsigned short* localName,
                                       const unsigned short* namespaceURI) {
  CheckStarted();
  CheckPrefix(prefix);
  StartElement(prefix, localName, true, namespaceURI, false);
}

void CXMLTextWriter::EndElement(bool full) {
  CheckStarted();
  if (m_contexts->IsEmpty())
    VESK_THROW(kSource, CXMLException,
               "There is no start elements to close in the current context.");
  const CUnicodeString& name = m_contexts->Peek().qualifiedName;
  if (!full && m_startElementOpen) {
    BeginLine(false);
    m_line->AppendAscii("/>");
    AppendEndOfLine();
    PrintLine();
    m_startElementOpen = false;
  } else {
    BeginLine(true);
    if (!full) AppendTab();
    m_line->AppendAscii("</");
    m_line->Append(name, name.GetLength());
    m_line->Append('>');
    AppendEndOfLine();
    PrintLine();
  }
  m_contexts->Pop();
}

void CXMLTextWriter::WriteEndElement() { EndElement(false); }

void CXMLTextWriter::WriteFullEndElement() { EndElement(true); }

void CXMLTextWriter::Element(const unsigned short* localName, bool hasNamespace,
                             const unsigned short* namespaceURI, const unsigned short* text,
                             bool indent, bool escape) {
  CheckStarted();
  CheckLocalName(localName);
  const unsigned short* prefix = nullptr;
  bool declareDefault = false;
  if (hasNamespace) {
    CheckNamespace(namespaceURI);
    const CUnicodeString* bound = ResolveNamespace(namespaceURI, declareDefault);
    if (bound) prefix = *bound;
  }
  unsigned int nameLength = 0;
  unsigned int nameStart = BeginStartTag(prefix, localName, indent, nameLength);
  if (declareDefault) AppendDeclaration(nullptr, namespaceURI);
  m_line->Append('>');
  if (escape) {
    AppendEscaped(text);
  } else {
    m_line->Append(text, Length(text));
  }
  m_line->AppendAscii("</");
  // The name is copied from the line itself, which may move as it grows.
  m_line->Reserve(nameLength);
  m_line->Append(m_line->GetUnits() + nameStart, nameLength);
  m_line->Append('>');
  AppendEndOfLine();
  PrintLine();
}

void CXMLTextWriter::WriteElementString(const unsigned short* localName,
                                        const unsigned short* namespaceURI,
                                        const unsigned short* text) {
  Element(localName, true, namespaceURI, text, false, true);
}

void CXMLTextWriter::WriteElementString(const unsigned short* localName,
                                        const unsigned short* text) {
  Element(localName, false, nullptr, text, true, true);
}

// --- attributes ---------------------------------------------------------------

void CXMLTextWriter::AttributeLine(const unsigned short* prefix, const unsigned short* localName,
                                   const unsigned short* value, bool escape) {
  BeginLine(false);
  m_line->Append(' ');
  AppendQualifiedName(prefix, localName);
  m_line->AppendAscii("=\"");
  if (escape) {
    AppendEscaped(value);
  } else {
    unsigned int length = Length(value);
    if (!internal::AreXMLChars(value, length))
      VESK_THROW(kSource, CXMLException, "Invalid character error.");
    m_line->Append(value, length);
  }
  m_line->Append('"');
  PrintLine();
}

void CXMLTextWriter::Attribute(const unsigned short* localName, bool hasNamespace,
                               const unsigned short* namespaceURI, const unsigned short* value,
                               bool escape) {
  CheckStarted();
  CheckStartElementOpen();
  CheckLocalName(localName);
  const unsigned short* prefix = nullptr;
  if (hasNamespace) {
    try {
      prefix = m_contexts->GetPrefix(namespaceURI);
    } catch (const util::CNoSuchElementException&) {
      VESK_THROW(kSource, CXMLException, "Undeclared namespace.");
    }
  }
  AttributeLine(prefix, localName, value, escape);
}

void CXMLTextWriter::WriteAttribute(const unsigned short* prefix, const unsigned short* localName,
                                    const unsigned short* namespaceURI,
                                    const unsigned short* value) {
  (void)namespaceURI;  // neither declared nor checked against the scope
  CheckStarted();
  CheckStartElementOpen();
  CheckPrefix(prefix);
  CheckLocalName(localName);
  AttributeLine(prefix, localName, value, false);
}

void CXMLTextWriter::WriteAttribute(const unsigned short* localName,
                                    const unsigned short* namespaceURI,
                                    const unsigned short* value) {
  Attribute(localName, true, namespaceURI, value, true);
}

void CXMLTextWriter::WriteAttribute(const unsigned short* localName, const unsigned short* value) {
  Attribute(localName, false, nullptr, value, true);
}

void CXMLTextWriter::WriteAttrDefaultNamespaceDeclaration(const unsigned short* namespaceURI) {
  CheckStarted();
  CheckStartElementOpen();
  if (m_contexts->Peek().hasDefaultNamespace)
    VESK_THROW(kSource, CXMLException,
               "This start element already contains default namespace declaration.");
  BeginLine(false);
  AppendDeclaration(nullptr, namespaceURI);
  try {
    m_contexts->DeclareDefaultNamespace(namespaceURI);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CIOException, "Memory full.");
  }
  try {
    PrintLine();
  } catch (...) {
    m_contexts->UndeclareDefaultNamespace();
    throw;
  }
}

void CXMLTextWriter::WriteAttrNamespaceDeclaration(const unsigned short* prefix,
                                                   const unsigned short* namespaceURI) {
  CheckStarted();
  CheckStartElementOpen();
  CheckPrefix(prefix);
  CheckNamespace(namespaceURI);
  // A second xmlns:p on one tag would make the document ill-formed.
  if (m_contexts->Peek().prefixes.ContainsKey(prefix))
    VESK_THROW(kSource, CXMLException, "This start element already declares the prefix.");
  BeginLine(false);
  AppendDeclaration(prefix, namespaceURI);
  try {
    m_contexts->BindPrefix(prefix, namespaceURI);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CIOException, "Memory full.");
  }
  try {
    PrintLine();
  } catch (...) {
    m_contexts->UnbindPrefix(prefix);
    throw;
  }
}

// --- content ------------------------------------------------------------------

void CXMLTextWriter::WriteString(const unsigned short* text) {
  CheckStarted();
  if (IsEmptyText(text)) return;
  BeginLine(true);
  AppendEscaped(text);
  PrintLine();
}

CPrintWriter& CXMLTextWriter::Content() {
  CheckStarted();
  if (m_startElementOpen) {
    BeginLine(true);
    PrintLine();
  }
  return *m_printWriter;
}

void CXMLTextWriter::Flush() {
  CheckOpen();
  m_printWriter->Flush();
}

void CXMLTextWriter::Close() {
  CheckOpen();
  try {
    if (m_documentStarted && !m_contexts->IsEmpty()) WriteEndElement();
  } catch (...) {
    CloseChain();
    throw;
  }
  CloseChain();
}

void CXMLTextWriter::CloseChain() {
  CRef<CPrintWriter> printWriter = m_printWriter;
  m_printWriter = vesk::null;  // closed from here on, even when closing fails
  try {
    printWriter->Close();
  } catch (...) {
    m_bufferedWriter = vesk::null;
    m_streamWriter = vesk::null;
    m_streamRef = vesk::null;
    m_stream = nullptr;
    throw;
  }
  m_bufferedWriter = vesk::null;
  m_streamWriter = vesk::null;
  m_streamRef = vesk::null;
  m_stream = nullptr;
}

// --- typed values -------------------------------------------------------------

const unsigned short* CXMLTextWriter::Number(const unsigned short* format, ...) {
  m_numberBuffer[0] = 0;
  std::va_list args;
  va_start(args, format);
  platform::Utf16VFormat(m_numberBuffer, kNumberBufferSize, format, args);
  va_end(args);
  return m_numberBuffer;
}

// The element forms write the formatted value through the WriteElementString
// path and the attribute forms through the WriteAttribute path, unescaped.
#define VESK_XML_TYPED(Name, Type, ElementFormat, AttributeFormat, Value)                   \
  void CXMLTextWriter::WriteElement##Name(const unsigned short* localName,                  \
                                          const unsigned short* namespaceURI, Type value) { \
    Element(localName, true, namespaceURI, Number(ElementFormat, Value), false, false);     \
  }                                                                                         \
  void CXMLTextWriter::WriteElement##Name(const unsigned short* localName, Type value) {    \
    Element(localName, false, nullptr, Number(ElementFormat, Value), true, false);          \
  }                                                                                         \
  void CXMLTextWriter::WriteAttr##Name(const unsigned short* localName,                     \
                                       const unsigned short* namespaceURI, Type value) {    \
    Attribute(localName, true, namespaceURI, Number(AttributeFormat, Value), false);        \
  }                                                                                         \
  void CXMLTextWriter::WriteAttr##Name(const unsigned short* localName, Type value) {       \
    Attribute(localName, false, nullptr, Number(AttributeFormat, Value), false);            \
  }

VESK_XML_TYPED(Bool, bool, kFormatS, kFormatS, BoolText(value))
VESK_XML_TYPED(Char, char, kFormatD, kFormatD, static_cast<int>(static_cast<signed char>(value)))
VESK_XML_TYPED(UnsignedChar, unsigned char, kFormatU, kFormatU, static_cast<unsigned int>(value))
VESK_XML_TYPED(Short, short, kFormatD, kFormatD, static_cast<int>(value))
VESK_XML_TYPED(UnsignedShort, unsigned short, kFormatU, kFormatU, static_cast<unsigned int>(value))
VESK_XML_TYPED(Long, int, kFormatD, kFormatD, value)
VESK_XML_TYPED(Int, int, kFormatD, kFormatD, value)
VESK_XML_TYPED(Int32, int, kFormatD, kFormatD, value)
VESK_XML_TYPED(UnsignedLong, unsigned int, kFormatU, kFormatU, value)
VESK_XML_TYPED(UnsignedInt, unsigned int, kFormatU, kFormatU, value)
VESK_XML_TYPED(UInt32, unsigned int, kFormatU, kFormatU, value)
VESK_XML_TYPED(Int64, long long, kFormatLld, kFormatLld, value)
VESK_XML_TYPED(UnsignedInt64, unsigned long long, kFormatLlu, kFormatLlu, value)
VESK_XML_TYPED(Float, float, kFormatG, kFormatG, static_cast<double>(value))
#undef VESK_XML_TYPED

void CXMLTextWriter::WriteElementDouble(const unsigned short* localName,
                                        const unsigned short* namespaceURI, double value) {
  Element(localName, true, namespaceURI, Number(kFormatG, value), false, false);
}

// The one-name form alone prints fifteen significant digits.
void CXMLTextWriter::WriteElementDouble(const unsigned short* localName, double value) {
  Element(localName, false, nullptr, Number(kFormatG15, value), true, false);
}

void CXMLTextWriter::WriteAttrDouble(const unsigned short* localName,
                                     const unsigned short* namespaceURI, double value) {
  Attribute(localName, true, namespaceURI, Number(kFormatG, value), false);
}

void CXMLTextWriter::WriteAttrDouble(const unsigned short* localName, double value) {
  Attribute(localName, false, nullptr, Number(kFormatG, value), false);
}

// Content: what the print writer's matching Print prints.
void CXMLTextWriter::WriteBool(bool value) { Content().Print(value); }

// Print(char) prints the character itself; here it is checked and escaped
// like any text, so "<" cannot open a tag.
void CXMLTextWriter::WriteChar(char value) {
  WriteString(Number(kFormatC, static_cast<int>(value)));
}

void CXMLTextWriter::WriteUnsignedChar(unsigned char value) { Content().PrintUnsignedChar(value); }

void CXMLTextWriter::WriteShort(short value) { Content().Print(value); }

void CXMLTextWriter::WriteUnsignedShort(unsigned short value) {
  Content().PrintUnsignedShort(value);
}

void CXMLTextWriter::WriteInt(int value) { Content().PrintInt(value); }

void CXMLTextWriter::WriteUnsignedInt(unsigned int value) { Content().PrintUnsignedInt(value); }

void CXMLTextWriter::WriteLong(int value) { Content().Print(value); }

void CXMLTextWriter::WriteUnsignedLong(unsigned int value) { Content().Print(value); }

void CXMLTextWriter::WriteInt32(int value) { Content().Print(value); }

void CXMLTextWriter::WriteUInt32(unsigned int value) { Content().Print(value); }

void CXMLTextWriter::WriteUInt64(unsigned long long value) { Content().Print(value); }

void CXMLTextWriter::WriteFloat(float value) { Content().Print(value); }

void CXMLTextWriter::WriteDouble(double value) { Content().Print(value); }

}  // namespace io
}  // namespace vesk
