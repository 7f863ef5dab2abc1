#include "vesk/io/internal/XMLTextTokenizer.h"

#include <cstdio>
#include <cstring>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/internal/XMLScannerResolver.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/DTD/DTDValidator.hpp>
#include <xercesc/validators/common/GrammarResolver.hpp>

#include "vesk/base/MemoryException.h"
#include "vesk/base/internal/UnicodeStringAccess.h"
#include "vesk/io/XMLAttributeList.h"
#include "vesk/io/XMLCDATAToken.h"
#include "vesk/io/XMLCommentToken.h"
#include "vesk/io/XMLEndElementToken.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLPIToken.h"
#include "vesk/io/XMLStartElementToken.h"
#include "vesk/io/XMLTextToken.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"
#include "vesk/platform/Xerces.h"

namespace vesk {
namespace io {
namespace internal {

using vesk::base::CMemoryException;
using vesk::base::CRef;
using vesk::base::CString;
using vesk::base::CUnicodeString;
using vesk::base::internal::CUnicodeStringAccess;

namespace {

const char kSource[] = "vesk/io/XMLTextTokenizer";
const char kScanError[] = "XML scanner error.";

// What every external entity reads as: an XML declaration and nothing else.
const char kEmptyEntity[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
static_assert(sizeof(kEmptyEntity) - 1 == 38, "the empty entity is 38 bytes");
const XMLCh kEmptyEntityId[] = {'e', 'm', 'p', 't', 'y', 0};

// The deepest element nesting read. The scanner resolves every element's
// namespace by walking down its element stack, so each level costs every
// element below it a step: 100 000 levels take the scanner seconds, and a
// document of deep elements would take hours. Nesting this deep in real
// documents is unknown.
const unsigned int kMaxDepth = 4096;

// Strings kept for the next token are at most this long, so a huge value is
// not held after its token is gone.
const unsigned int kMaxKeptText = 1024;
// A start token's attribute slots go to the next start token only up to
// this many.
const unsigned int kMaxKeptAttributeSlots = 64;

// Empties a slot whose string is longer than the ones kept for later tokens.
inline void ForgetIfLong(CUnicodeString& slot) {
  if (slot.GetLength() > kMaxKeptText) slot = CUnicodeString();
}

const unsigned short* Units(const XMLCh* text) { return reinterpret_cast<const unsigned short*>(text); }

CString Narrow(const XMLCh* text) { return CUnicodeString(Units(text)).ToUTF8(); }

// Starts Xerces-C before the first member that needs it (the input source
// takes its memory manager when it is built).
CInputStream* WithXerces(CInputStream* stream) {
  if (!platform::EnsureXerces()) VESK_THROW(kSource, CXMLException, "Failed to start the XML scanner.");
  return stream;
}

}  // namespace

CXMLTextTokenizer::CXMLTextTokenizer(CInputStream* stream, const CRef<CInputStream>& owner)
    : m_source(WithXerces(stream), owner),
      m_grammarResolver(nullptr),
      m_validator(nullptr),
      m_scanner(nullptr),
      m_depth(0),
      m_textBuffer(nullptr),
      m_textLength(0),
      m_textCapacity(0),
      m_elementDecls(),
      m_uriIds(),
      m_ended(false),
      m_failed(false) {
  try {
    m_grammarResolver = new xercesc::GrammarResolver(nullptr);
    // The scanner uses the validator but leaves it to its owner to delete.
    m_validator = new xercesc::DTDValidator();
    m_scanner = xercesc::XMLScannerResolver::resolveScanner(xercesc::XMLUni::fgWFXMLScanner, m_validator,
                                                            m_grammarResolver);
    // A scanner made by the resolver has no URI pool of its own; namespace
    // processing looks every prefix up in it.
    m_scanner->setURIStringPool(m_grammarResolver->getStringPool());
    m_scanner->setDocHandler(this);
    m_scanner->setEntityHandler(this);
    m_scanner->setErrorReporter(this);
    m_scanner->setDoNamespaces(true);
    m_scanner->setValidationScheme(xercesc::XMLScanner::Val_Never);
    m_scanner->setLoadExternalDTD(false);
    m_scanner->setDisableDefaultEntityResolution(true);
    m_scanner->setExitOnFirstFatal(true);
    // Encoding errors in the prolog leave scanFirst as Xerces exceptions
    // instead of reaching the error reporter; Step's handlers convert them.
    bool more = false;
    try {
      more = m_scanner->scanFirst(m_source, m_scanToken);
    } catch (const xercesc::XMLException& e) {
      Fail(Narrow(e.getMessage()));
    } catch (const xercesc::OutOfMemoryException&) {
      throw CMemoryException(kSource, __LINE__);
    }
    if (!more) m_ended = true;
    // The prolog is behind us. From here on, a reference to an entity the
    // DTD declared is refused as undeclared: the scanner would otherwise
    // drop it without a word.
    m_scanner->setHasNoDTD(true);
    FlushText();
  } catch (...) {
    Destroy();
    throw;
  }
}

CXMLTextTokenizer::~CXMLTextTokenizer() { Destroy(); }

void CXMLTextTokenizer::Destroy() {
  // The scanner's readers refer to the input source, and the scanner to the
  // validator and the resolver's pool, so it goes first.
  delete m_scanner;
  m_scanner = nullptr;
  delete m_validator;
  m_validator = nullptr;
  delete m_grammarResolver;
  m_grammarResolver = nullptr;
  platform::Free(m_textBuffer);
  m_textBuffer = nullptr;
}

void CXMLTextTokenizer::NextToken(CRef<IXMLToken>& token) {
  for (;;) {
    if (!m_front.IsNull()) {
      token = m_front;
      m_front = vesk::null;
      return;
    }
    if (!m_queue.IsEmpty()) {
      token = m_queue.Dequeue();
      return;
    }
    if (m_failed) VESK_THROW(kSource, CXMLException, kScanError, m_failure);
    if (m_ended) {
      token = vesk::null;
      return;
    }
    Step();
  }
}

void CXMLTextTokenizer::Step() {
  // Any exception leaves the scanner unusable (it drops its readers), so
  // the tokenizer fails for good; tokens of the failed step are dropped.
  try {
    if (!m_scanner->scanNext(m_scanToken)) m_ended = true;
    FlushText();
    return;
  } catch (const xercesc::XMLException& e) {
    m_failure = Narrow(e.getMessage());
  } catch (const xercesc::OutOfMemoryException&) {
    m_failure = "Out of memory.";
  } catch (const CXMLException& e) {
    m_failure = e.GetMessage();
  } catch (const vesk::base::CException& e) {
    m_failed = true;
    DropTokens();
    throw;
  }
  m_failed = true;
  DropTokens();
  m_textLength = 0;
}

void CXMLTextTokenizer::Fail(const char* message) {
  m_failed = true;
  m_failure = message;
  VESK_THROW(kSource, CXMLException, kScanError, message);
}

// The front slot holds a token only while the queue is empty, so it is
// always the oldest.
template <class T>
void CXMLTextTokenizer::Push(const CRef<T>& token) {
  if (m_front.IsNull() && m_queue.IsEmpty())
    m_front = token;
  else
    m_queue.Enqueue(CRef<IXMLToken>(token));
}

void CXMLTextTokenizer::Enqueue(IXMLToken* token) { Push(CRef<IXMLToken>(token)); }

void CXMLTextTokenizer::DropTokens() {
  m_front = vesk::null;
  m_queue.RemoveAll();
}

// Start, text and end tokens come in the same rhythm for every element, and
// a reader usually drops each before the next of its kind is made. A spare
// that only the tokenizer still holds is therefore filled again with the
// next token's strings (its kind and its memory stay); one a client still
// holds is left alone (tokens never change once handed out) and a new one
// becomes the spare. Filling only shares strings, which cannot fail.
void CXMLTextTokenizer::SetNames(CXMLElementToken& token, const CUnicodeString& qualifiedName,
                                 const CUnicodeString& localName, const CUnicodeString& namespaceURI) {
  token.m_qualifiedName = qualifiedName;
  token.m_localName = localName;
  token.m_namespaceURI = namespaceURI;
}

void CXMLTextTokenizer::PushEnd(const CUnicodeString& qualifiedName, const CUnicodeString& localName,
                                const CUnicodeString& namespaceURI) {
  if (m_spareEnd.GetRefCount() == 1)
    SetNames(*m_spareEnd.Get(), qualifiedName, localName, namespaceURI);
  else
    m_spareEnd = new CXMLEndElementToken(qualifiedName, localName, namespaceURI);
  Push(m_spareEnd);
}

// The pieces of a run collect in one buffer, kept from run to run and grown
// by doubling (a run split by a million references stays linear); the token
// gets an exact copy.
void CXMLTextTokenizer::AppendText(const unsigned short* chars, unsigned int count) {
  std::size_t needed = static_cast<std::size_t>(m_textLength) + count;
  if (needed >= 0xFFFFFFFFu) VESK_THROW(kSource, CMemoryException);
  if (needed > m_textCapacity) {
    std::size_t capacity = needed < 2 * static_cast<std::size_t>(m_textCapacity) ? 2 * m_textCapacity : needed;
    if (capacity < 256) capacity = 256;
    if (capacity >= 0xFFFFFFFFu) capacity = needed;
    void* grown = platform::Realloc(m_textBuffer, capacity * sizeof(unsigned short));
    if (!grown) VESK_THROW(kSource, CMemoryException);
    m_textBuffer = static_cast<unsigned short*>(grown);
    m_textCapacity = static_cast<unsigned int>(capacity);
  }
  std::memcpy(m_textBuffer + m_textLength, chars, count * sizeof(unsigned short));
  m_textLength = static_cast<unsigned int>(needed);
}

void CXMLTextTokenizer::FlushText() {
  if (m_textLength == 0) return;
  unsigned int length = m_textLength;
  m_textLength = 0;
  // The scanner never passes a zero unit in character data (the document
  // cannot hold one), so the run is copied as it is: into the kept string's
  // own buffer once the spare token has let it go.
  CXMLTextToken* text = m_spareText.Get();
  if (m_spareText.GetRefCount() == 1) {
    text->m_text.Empty();
    CUnicodeStringAccess::SetUnits(m_text, m_textBuffer, length);
    text->m_text = m_text;
  } else {
    CUnicodeStringAccess::SetUnits(m_text, m_textBuffer, length);
    m_spareText = new CXMLTextToken(m_text);
  }
  ForgetIfLong(m_text);
  Push(m_spareText);
}

// Names come back element after element: the last string made for each
// (by a small hash of its units) is handed out again, sharing its buffer.
CUnicodeString CXMLTextTokenizer::Name(const XMLCh* text) {
  const unsigned short* units = Units(text);
  unsigned int hash = 2166136261u;
  unsigned int length = 0;
  for (; units[length] && length < kMaxInternedName; ++length) hash = (hash ^ units[length]) * 16777619u;
  if (units[length]) return CUnicodeString(units);
  CUnicodeString& slot = m_names[hash % kNameSlots];
  if (slot.GetLength() != length || std::memcmp(static_cast<const unsigned short*>(slot), units,
                                                length * sizeof(unsigned short)) != 0)
    slot = CUnicodeString(units, length);
  return slot;
}

// A slot holding text already is handed out as it is; otherwise it takes a
// copy (in its own buffer when nobody shares it and it is large enough).
const CUnicodeString& CXMLTextTokenizer::Refill(CUnicodeString& slot, const XMLCh* text) {
  const unsigned short* units = Units(text);
  const unsigned short* held = slot;  // "" when empty; strings hold no zero unit
  unsigned int i = 0;
  while (units[i] == held[i] && units[i]) ++i;
  if (units[i] != held[i])
    CUnicodeStringAccess::SetUnits(slot, units, i + platform::Utf16Length(units + i));
  return slot;
}

// A huge name is not kept for the next element once its token is made (an
// element's names stay while it is open, for its end: the scanner keeps
// them that long too).
void CXMLTextTokenizer::ForgetNames(CUnicodeString* names) {
  ForgetIfLong(names[0]);
  ForgetIfLong(names[1]);
}

// Scanner ids of namespace URIs stay bound to their text for the whole scan.
// The scanner keeps every URI's text for the whole document itself, so the
// slots add no lasting size of their own.
const CUnicodeString& CXMLTextTokenizer::UriText(unsigned int uriId) {
  unsigned int index = uriId % kUriSlots;
  if (m_uriIds[index] != uriId) {
    m_uris[index] = Units(m_scanner->getURIText(uriId));
    m_uriIds[index] = uriId;
  }
  return m_uris[index];
}

void CXMLTextTokenizer::docCharacters(const XMLCh* const chars, const XMLSize_t length, const bool cdataSection) {
  // Character data outside the root element makes no token.
  if (m_depth == 0) return;
  // Most pieces fit the room the run has left.
  if (!cdataSection && m_textBuffer && length <= m_textCapacity - m_textLength) {
    std::memcpy(m_textBuffer + m_textLength, chars, length * sizeof(unsigned short));
    m_textLength += static_cast<unsigned int>(length);
    return;
  }
  unsigned int count = length > 0xFFFFFFFEu ? 0xFFFFFFFEu : static_cast<unsigned int>(length);
  if (cdataSection) {
    FlushText();
    Enqueue(new CXMLCDATAToken(CUnicodeString(Units(chars), count)));
  } else {
    AppendText(Units(chars), count);
  }
}

void CXMLTextTokenizer::docComment(const XMLCh* const comment) {
  FlushText();
  Enqueue(new CXMLCommentToken(CUnicodeString(Units(comment))));
}

void CXMLTextTokenizer::docPI(const XMLCh* const target, const XMLCh* const data) {
  FlushText();
  Enqueue(new CXMLPIToken(CUnicodeString(Units(target)), CUnicodeString(Units(data))));
}

void CXMLTextTokenizer::startElement(const xercesc::XMLElementDecl& elemDecl, const unsigned int uriId,
                                     const XMLCh* const, const xercesc::RefVectorOf<xercesc::XMLAttr>& attrList,
                                     const XMLSize_t attrCount, const bool isEmpty, const bool) {
  if (!isEmpty && m_depth >= kMaxDepth) {
    const xercesc::Locator* locator = m_scanner->getLocator();
    char message[128];
    std::snprintf(message, sizeof(message), "elements nested deeper than %u levels (line %llu, column %llu)",
                  kMaxDepth, static_cast<unsigned long long>(locator->getLineNumber()),
                  static_cast<unsigned long long>(locator->getColumnNumber()));
    VESK_THROW(kSource, CXMLException, kScanError, message);
  }
  FlushText();
  // The names (qualified, local, namespace URI) are kept by depth, for the
  // end element and for the next element at the same depth, which usually
  // has the same name.
  // Deeper elements take their names from the recent-name slots.
  CUnicodeString deepNames[3];
  const bool kept = m_depth < kNameDepths;
  CUnicodeString* names = kept ? m_elementNames[m_depth] : deepNames;
  auto setName = [&](CUnicodeString& slot, const XMLCh* text) {
    if (kept)
      Refill(slot, text);
    else
      slot = Name(text);
  };
  // The scanner keeps one declaration per element name for the whole
  // document, so the same declaration at a depth means the same names.
  const XMLCh* fullName = elemDecl.getFullName();
  const XMLCh* baseName = elemDecl.getBaseName();
  const bool same = kept && m_elementDecls[m_depth] == &elemDecl && !names[0].IsEmpty();
  if (!same) {
    setName(names[0], fullName);
    if (kept) m_elementDecls[m_depth] = &elemDecl;
  }
  if (uriId != 0) {
    // An unprefixed name is its own local part (the scanner hands out one
    // buffer for both).
    if (baseName == fullName)
      names[1] = names[0];
    else if (!same || names[1].IsEmpty())
      setName(names[1], baseName);
    names[2] = UriText(uriId);
  } else {
    names[1] = CUnicodeString();
    names[2] = CUnicodeString();
  }
  // The token is filled here, before anyone sees it: its attributes go
  // straight into its own list instead of being copied from another. Names
  // come from the kept slots, so only new values make new strings.
  // A spare start token is filled again unless its list has grown beyond a
  // few dozen slots (a huge list does not outlive its token); emptying the
  // list releases the old values before they are refilled below.
  CXMLStartElementToken* start = m_spareStart.Get();
  if (m_spareStart.GetRefCount() == 1 && start->GetAttributes().GetSlotCount() <= kMaxKeptAttributeSlots) {
    const_cast<CXMLAttributeList&>(start->GetAttributes()).Clear();
    SetNames(*start, names[0], names[1], names[2]);
  } else {
    m_spareStart = new CXMLStartElementToken(names[0], names[1], names[2], CXMLAttributeList());
    start = m_spareStart.Get();
  }
  CXMLAttributeList& attributes = const_cast<CXMLAttributeList&>(start->GetAttributes());
  for (XMLSize_t i = 0; i < attrCount; ++i) {
    const xercesc::XMLAttr* attribute = attrList.elementAt(i);
    if (i < kAttributeSlots) {
      CUnicodeString* attributeNames = m_attributeNames[i];
      const XMLCh* qualifiedName = attribute->getQName();
      const XMLCh* localName = attribute->getName();
      Refill(attributeNames[0], qualifiedName);
      if (localName == qualifiedName)
        attributeNames[1] = attributeNames[0];
      else
        Refill(attributeNames[1], localName);
      attributes.Add(attributeNames[0], attributeNames[1], UriText(attribute->getURIId()),
                     Refill(m_values[i], attribute->getValue()));
      // A huge name or value is not kept for the next element.
      ForgetNames(attributeNames);
      ForgetIfLong(m_values[i]);
    } else {
      attributes.Add(Name(attribute->getQName()), Name(attribute->getName()), UriText(attribute->getURIId()),
                     CUnicodeString(Units(attribute->getValue())));
    }
  }
  Push(m_spareStart);
  // An empty-element tag gets no end callback: its end token follows now.
  if (isEmpty) {
    PushEnd(names[0], names[1], names[2]);
    ForgetNames(names);
  }
  if (!isEmpty) ++m_depth;
}

void CXMLTextTokenizer::endElement(const xercesc::XMLElementDecl& elemDecl, const unsigned int uriId,
                                   const bool, const XMLCh* const) {
  FlushText();
  // The scanner only gets here when the end tag matched the start tag, so
  // the names kept for that depth are this element's.
  if (m_depth > 0 && m_depth <= kNameDepths) {
    CUnicodeString* names = m_elementNames[m_depth - 1];
    PushEnd(names[0], names[1], names[2]);
    ForgetNames(names);
  } else {
    CUnicodeString qualifiedName = Name(elemDecl.getFullName());
    if (uriId != 0)
      PushEnd(qualifiedName, Name(elemDecl.getBaseName()), UriText(uriId));
    else
      PushEnd(qualifiedName, CUnicodeString(), CUnicodeString());
  }
  if (m_depth > 0) --m_depth;
}

xercesc::InputSource* CXMLTextTokenizer::resolveEntity(xercesc::XMLResourceIdentifier*) {
  // Nothing outside the document is ever fetched.
  return new xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(kEmptyEntity), sizeof(kEmptyEntity) - 1,
                                        kEmptyEntityId, false);
}

void CXMLTextTokenizer::error(const unsigned int, const XMLCh* const, const ErrTypes type,
                              const XMLCh* const errorText, const XMLCh* const, const XMLCh* const,
                              const XMLFileLoc lineNum, const XMLFileLoc colNum) {
  if (type == ErrType_Warning) return;
  CString message = Narrow(errorText);
  char position[64];
  std::snprintf(position, sizeof(position), " (line %llu, column %llu)", static_cast<unsigned long long>(lineNum),
                static_cast<unsigned long long>(colNum));
  message += position;
  VESK_THROW(kSource, CXMLException, kScanError, message);
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
