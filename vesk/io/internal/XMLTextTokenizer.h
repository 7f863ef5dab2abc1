/// \file
/// CXMLTextTokenizer: turns the callbacks of Xerces-C's progressive
/// well-formedness scanner into XML tokens, queued until the reader takes
/// them.
#ifndef VESK_IO_INTERNAL_XMLTEXTTOKENIZER_H
#define VESK_IO_INTERNAL_XMLTEXTTOKENIZER_H

#include <xercesc/framework/XMLDocumentHandler.hpp>
#include <xercesc/framework/XMLEntityHandler.hpp>
#include <xercesc/framework/XMLErrorReporter.hpp>
#include <xercesc/framework/XMLPScanToken.hpp>

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IXMLToken.h"
#include "vesk/io/XMLEndElementToken.h"
#include "vesk/io/XMLStartElementToken.h"
#include "vesk/io/XMLTextToken.h"
#include "vesk/io/internal/InputStreamInputSource.h"
#include "vesk/util/Queue.h"

XERCES_CPP_NAMESPACE_BEGIN
class GrammarResolver;
class XMLElementDecl;
class XMLScanner;
class XMLValidator;
XERCES_CPP_NAMESPACE_END

namespace vesk {
namespace io {
namespace internal {

/// Scans a document progressively: the constructor builds the scanner and
/// takes the first step (the prolog); NextToken takes further steps until a
/// token is queued. Every failure of the scanner (a malformed document, an
/// encoding error) is thrown as CXMLException with the scanner's own text
/// and its line and column as message; after a failure every further call
/// throws it again.
///
/// Nothing outside the document is ever read: the scanner skips the DTD,
/// and any external entity it might still ask for is answered with an
/// in-memory XML declaration. Entity references are limited to the five
/// predefined entities and character references; a reference to an entity
/// declared in the DTD (which the scanner does not expand) is refused, so
/// no text is silently dropped and no expansion can grow without bound.
class CXMLTextTokenizer : public vesk::base::CBase,
                          public xercesc::XMLDocumentHandler,
                          public xercesc::XMLEntityHandler,
                          public xercesc::XMLErrorReporter {
 public:
  /// Reads from stream (kept alive through owner when that is set).
  CXMLTextTokenizer(CInputStream* stream, const vesk::base::CRef<CInputStream>& owner);
  ~CXMLTextTokenizer() override;

  /// Sets token to the next token, or empties it at the end of the
  /// document; on a failure token is left as it was.
  void NextToken(vesk::base::CRef<IXMLToken>& token);

  // XMLDocumentHandler
  void docCharacters(const XMLCh* const chars, const XMLSize_t length, const bool cdataSection) override;
  void docComment(const XMLCh* const comment) override;
  void docPI(const XMLCh* const target, const XMLCh* const data) override;
  void endDocument() override {}
  void endElement(const xercesc::XMLElementDecl& elemDecl, const unsigned int uriId, const bool isRoot,
                  const XMLCh* const prefixName) override;
  void endEntityReference(const xercesc::XMLEntityDecl&) override {}
  void ignorableWhitespace(const XMLCh* const, const XMLSize_t, const bool) override {}
  void resetDocument() override {}
  void startDocument() override {}
  void startElement(const xercesc::XMLElementDecl& elemDecl, const unsigned int uriId,
                    const XMLCh* const prefixName, const xercesc::RefVectorOf<xercesc::XMLAttr>& attrList,
                    const XMLSize_t attrCount, const bool isEmpty, const bool isRoot) override;
  void startEntityReference(const xercesc::XMLEntityDecl&) override {}
  void XMLDecl(const XMLCh* const, const XMLCh* const, const XMLCh* const, const XMLCh* const) override {}

  // XMLEntityHandler
  void endInputSource(const xercesc::InputSource&) override {}
  bool expandSystemId(const XMLCh* const, xercesc::XMLBuffer&) override { return false; }
  void resetEntities() override {}
  xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* resourceIdentifier) override;
  void startInputSource(const xercesc::InputSource&) override {}

  // XMLErrorReporter
  void error(const unsigned int errCode, const XMLCh* const errDomain, const ErrTypes type,
             const XMLCh* const errorText, const XMLCh* const systemId, const XMLCh* const publicId,
             const XMLFileLoc lineNum, const XMLFileLoc colNum) override;
  void resetErrors() override {}

 private:
  CXMLTextTokenizer(const CXMLTextTokenizer&);
  CXMLTextTokenizer& operator=(const CXMLTextTokenizer&);

  void Step();
  void Fail(const char* message);
  void Enqueue(IXMLToken* token);
  template <class T>
  void Push(const vesk::base::CRef<T>& token);
  void DropTokens();
  void AppendText(const unsigned short* chars, unsigned int count);
  void FlushText();
  vesk::base::CUnicodeString Name(const XMLCh* text);
  const vesk::base::CUnicodeString& UriText(unsigned int uriId);
  void ForgetNames(vesk::base::CUnicodeString* names);
  const vesk::base::CUnicodeString& Refill(vesk::base::CUnicodeString& slot, const XMLCh* text);
  static void SetNames(CXMLElementToken& token, const vesk::base::CUnicodeString& qualifiedName,
                       const vesk::base::CUnicodeString& localName, const vesk::base::CUnicodeString& namespaceURI);
  void PushEnd(const vesk::base::CUnicodeString& qualifiedName, const vesk::base::CUnicodeString& localName,
               const vesk::base::CUnicodeString& namespaceURI);
  void Destroy();

  CInputStreamInputSource m_source;
  xercesc::GrammarResolver* m_grammarResolver;
  xercesc::XMLValidator* m_validator;
  xercesc::XMLScanner* m_scanner;
  xercesc::XMLPScanToken m_scanToken;
  // The oldest token not yet taken, while the queue is empty: most steps
  // make a single token, which then goes to the reader without the queue.
  vesk::base::CRef<IXMLToken> m_front;
  vesk::util::CQueue<vesk::base::CRef<IXMLToken> > m_queue;
  unsigned int m_depth;
  // Character data arrives in pieces (split at every entity reference);
  // the pieces of one run become one text token.
  unsigned short* m_textBuffer;
  unsigned int m_textLength;
  unsigned int m_textCapacity;
  // Recent names (elements, namespace URIs), shared by the tokens.
  static const unsigned int kNameSlots = 64;
  static const unsigned int kMaxInternedName = 256;
  vesk::base::CUnicodeString m_names[kNameSlots];
  // The names of the first attributes by position, the namespace URIs by
  // their scanner id, the strings of the last attribute values and text: a
  // string nobody else holds any more is filled again in place.
  static const unsigned int kAttributeSlots = 8;
  vesk::base::CUnicodeString m_attributeNames[kAttributeSlots][2];
  vesk::base::CUnicodeString m_values[kAttributeSlots];
  vesk::base::CUnicodeString m_text;
  static const unsigned int kNameDepths = 64;
  vesk::base::CUnicodeString m_elementNames[kNameDepths][3];
  // The scanner's declaration of the element whose names each depth holds.
  const xercesc::XMLElementDecl* m_elementDecls[kNameDepths];
  static const unsigned int kUriSlots = 8;
  vesk::base::CUnicodeString m_uris[kUriSlots];
  unsigned int m_uriIds[kUriSlots];
  // The last token of each kind an element makes, filled again for the
  // next one when nobody else holds it any more.
  vesk::base::CRef<CXMLStartElementToken> m_spareStart;
  vesk::base::CRef<CXMLEndElementToken> m_spareEnd;
  vesk::base::CRef<CXMLTextToken> m_spareText;
  bool m_ended;
  bool m_failed;
  vesk::base::CString m_failure;
};

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
