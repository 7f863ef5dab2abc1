#include "vesk/io/internal/XMLReadSteps.h"

#include "vesk/io/IXMLElementToken.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLTextToken.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {
namespace internal {

using vesk::base::CRef;
using vesk::base::CUnicodeString;

bool IsElementNameEqualsWith(const IXMLToken& token, ElementMatch match, const unsigned short* name,
                             const unsigned short* ns) {
  const IXMLElementToken* element = dynamic_cast<const IXMLElementToken*>(&token);
  if (!element) return false;
  switch (match) {
    case kAnyElement:
      return true;
    case kQualifiedName:
      return element->GetQualifiedName() == name;
    case kLocalAndNamespace:
      // A token made without namespace information has an empty local name
      // and matches no (local, ns) read.
      return !element->GetLocalName().IsEmpty() && element->GetLocalName() == name &&
             element->GetNamespaceURI() == ns;
  }
  return false;
}

void ReadElementToken(CXMLReader& reader, const char* source, XMLTokenType kind, ElementMatch match,
                      const unsigned short* name, const unsigned short* ns, const char* mismatch) {
  if (match != kAnyElement && (!name || !*name)) VESK_THROW(source, CXMLException, "Invalid local name.");
  if (!reader.ReadToken()) VESK_THROW(source, CXMLException, "End of stream reached.");
  const CRef<IXMLToken>& token = reader.GetCurrentToken();
  if (token->GetType() != kind || !IsElementNameEqualsWith(*token, match, name, ns))
    VESK_THROW(source, CXMLException, mismatch);
}

void ReadStartElementToken(CXMLReader& reader, const char* source, ElementMatch match, const unsigned short* name,
                           const unsigned short* ns) {
  ReadElementToken(reader, source, XMLStartElement, match, name, ns, "Failed to read the specified start element.");
}

void ReadEndElementToken(CXMLReader& reader, const char* source, ElementMatch match, const unsigned short* name,
                         const unsigned short* ns) {
  ReadElementToken(reader, source, XMLEndElement, match, name, ns, "Failed to read the end element.");
}

bool IsCharacterData(const CRef<IXMLToken>& token) {
  if (token.IsNull()) return false;
  XMLTokenType type = token->GetType();
  return type == XMLText || type == XMLCDATA;
}

CRef<IXMLToken> EmptyText() {
  CRef<IXMLToken> token(new CXMLTextToken(CUnicodeString()));
  return token;
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
