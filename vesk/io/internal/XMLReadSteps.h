/// \file
/// The element-level reads shared by the text reader and the push-back
/// reader: both read one token through their own ReadToken and check it the
/// same way; only the throw-site source differs.
#ifndef VESK_IO_INTERNAL_XMLREADSTEPS_H
#define VESK_IO_INTERNAL_XMLREADSTEPS_H

#include "vesk/base/Ref.h"
#include "vesk/io/IXMLToken.h"
#include "vesk/io/XMLReader.h"

namespace vesk {
namespace io {
namespace internal {

/// How an element read names the element it expects.
enum ElementMatch {
  kAnyElement,        ///< any name
  kQualifiedName,     ///< the qualified name equals name
  kLocalAndNamespace  ///< the local name equals name and the namespace URI equals ns
};

/// Whether token is an element token whose names match.
bool IsElementNameEqualsWith(const IXMLToken& token, ElementMatch match, const unsigned short* name,
                             const unsigned short* ns);

/// Checks the name (null or empty: "Invalid local name.") unless any element
/// will do, reads one token through reader.ReadToken() and checks that it is
/// an element of kind with a matching name: no token throws "End of stream
/// reached.", another token or name throws mismatch. All CXMLException from
/// source.
void ReadElementToken(CXMLReader& reader, const char* source, XMLTokenType kind, ElementMatch match,
                      const unsigned short* name, const unsigned short* ns, const char* mismatch);

/// ReadElementToken for a start element ("Failed to read the specified
/// start element.") and an end element ("Failed to read the end element.").
void ReadStartElementToken(CXMLReader& reader, const char* source, ElementMatch match, const unsigned short* name,
                           const unsigned short* ns);
void ReadEndElementToken(CXMLReader& reader, const char* source, ElementMatch match, const unsigned short* name,
                         const unsigned short* ns);

/// Whether the token is character data (text or CDATA).
bool IsCharacterData(const vesk::base::CRef<IXMLToken>& token);

/// The stand-in current token of an element read that found no text: an
/// empty text token.
vesk::base::CRef<IXMLToken> EmptyText();

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
