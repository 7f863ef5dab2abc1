/// \file
/// CXMLReader: the pull-reader base of the XML classes, with typed reads.
#ifndef VESK_IO_XMLREADER_H
#define VESK_IO_XMLREADER_H

#include "vesk/base/Object.h"
#include "vesk/base/Ref.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

class IXMLSerializable;

/// A pull reader of XML tokens. A concrete reader supplies the token stream
/// (the current token, ReadToken and the element-level moves); this class
/// builds the typed reads on it.
///
/// Typed reads of the current token's value (ReadBool ... ReadDouble) trim
/// white space first. ReadBool takes exactly "true" or "false". The integer
/// and floating-point reads take a whole decimal number within the type's
/// range and refuse empty text and trailing characters; ReadUInt64 alone is
/// lenient: it reads the leading number and ignores what follows ("42abc" is
/// 42). A refused text throws CXMLException "Invalid bool literal.",
/// "Invalid short literal.", "Invalid Int32 literal.", "Invalid UInt32
/// literal.", "Invalid Int64 literal.", "Invalid UInt64 literal.", "Invalid
/// float literal.", "Invalid double literal." or "Invalid binhex encoded
/// string literal."; when there is no current token the read throws
/// "Failed to read the value of current token as <type>." (an allocation
/// failure: CIOException "Memory full."). A failed read leaves the current
/// token where it was. All these exceptions carry the source
/// "vesk/io/XMLReader".
///
/// Names and texts are 16-bit, zero-terminated. The (local, ns) overloads
/// take the local name first and match local name and namespace URI; the
/// one-name overloads match the qualified name.
class VESK_API CXMLReader : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CXMLReader);

  /// Releases nothing of its own (a reader's state is its subclass's).
  ~CXMLReader() override;

  /// The current token; null before the first read and after the last.
  virtual const vesk::base::CRef<IXMLToken>& GetCurrentToken() const = 0;
  /// The kind of the current token; 0 when there is none.
  virtual XMLTokenType GetCurrentTokenType() const;
  /// The value of the current token (the text of a text, CDATA or comment
  /// token; empty for the others). Throws CNullReferenceException when there
  /// is no current token.
  virtual vesk::base::CUnicodeString GetCurrentTokenValue() const;

  ///@{
  /// The current token's value, trimmed and converted (see the class
  /// description for the accepted texts and the messages).
  virtual bool ReadBool() const;
  virtual short ReadShort() const;
  virtual int ReadLong() const;
  virtual unsigned int ReadUnsignedLong() const;
  virtual long long ReadInt64() const;
  virtual unsigned long long ReadUInt64() const;
  virtual float ReadFloat() const;
  virtual double ReadDouble() const;
  ///@}
  /// The value as it stands, untrimmed.
  virtual vesk::base::CUnicodeString ReadString() const;
  /// Decodes the binhex value into a new block that belongs to the caller
  /// (allocated as CBinaryData's parse results are); length receives its
  /// size.
  virtual void ReadBinHex(char*& data, unsigned int& length) const;
  /// Decodes the Base64 value (as CBinaryData::ParseBase64UnicodeString,
  /// length included) into a new block that belongs to the caller. A text
  /// that is not Base64 throws "Invalid base64 encoded string literal.".
  virtual void ReadBase64(char*& data, unsigned int& length) const;

  /// Makes the next token current; false (and no current token) at the end
  /// of the document.
  virtual bool ReadToken() = 0;
  /// Reads one token, which must be a start element with this local name
  /// and namespace URI.
  virtual void ReadStartElement(const unsigned short* localName, const unsigned short* namespaceURI) = 0;
  /// Reads one token, which must be a start element with this qualified name.
  virtual void ReadStartElement(const unsigned short* name) = 0;
  /// Reads one token, which must be a start element.
  virtual void ReadStartElement() = 0;

  ///@{
  /// Whether the current token, which must be a start element (else
  /// CXMLException "Attributes available only in start element nodes."),
  /// has the attribute; lookups follow CXMLAttributeList.
  virtual bool HasAttribute(const unsigned short* localName, const unsigned short* namespaceURI) const;
  virtual bool HasAttribute(const unsigned short* name) const;
  ///@}
  ///@{
  /// The value of the current start element's attribute (the first match;
  /// "No such attribute." when there is none).
  virtual vesk::base::CUnicodeString ReadAttribute(const unsigned short* localName,
                                                   const unsigned short* namespaceURI) const;
  virtual vesk::base::CUnicodeString ReadAttribute(const unsigned short* name) const;
  ///@}
  ///@{
  /// An attribute's value converted as the typed reads convert values.
  virtual bool ReadAttrBool(const unsigned short* localName, const unsigned short* namespaceURI) const;
  virtual bool ReadAttrBool(const unsigned short* name) const;
  virtual short ReadAttrShort(const unsigned short* localName, const unsigned short* namespaceURI) const;
  virtual short ReadAttrShort(const unsigned short* name) const;
  virtual int ReadAttrLong(const unsigned short* localName, const unsigned short* namespaceURI) const;
  virtual int ReadAttrLong(const unsigned short* name) const;
  virtual unsigned int ReadAttrUnsignedLong(const unsigned short* localName,
                                            const unsigned short* namespaceURI) const;
  virtual unsigned int ReadAttrUnsignedLong(const unsigned short* name) const;
  virtual float ReadAttrFloat(const unsigned short* localName, const unsigned short* namespaceURI) const;
  virtual float ReadAttrFloat(const unsigned short* name) const;
  virtual double ReadAttrDouble(const unsigned short* localName, const unsigned short* namespaceURI) const;
  virtual double ReadAttrDouble(const unsigned short* name) const;
  ///@}

  /// Reads one token, which must be an end element with this local name and
  /// namespace URI.
  virtual void ReadEndElement(const unsigned short* localName, const unsigned short* namespaceURI) = 0;
  /// Reads one token, which must be an end element with this qualified name.
  virtual void ReadEndElement(const unsigned short* name) = 0;
  /// Reads one token, which must be an end element.
  virtual void ReadEndElement() = 0;
  ///@{
  /// Reads the element's character data (a text or CDATA token) as the
  /// current token and stores or returns its text.
  virtual void ReadElementText(vesk::base::CUnicodeString& text) = 0;
  virtual vesk::base::CUnicodeString ReadElementText() = 0;
  ///@}
  /// True, with the text current, when the next token is character data;
  /// false, with that token kept for the next read, otherwise.
  virtual bool ReadElementTextIfAvailable() = 0;

  ///@{
  /// Reads one token, which must be a CDATA section, and stores or returns
  /// its text (else CXMLException "Failed to read the CDATA section."; at
  /// the end "End of stream reached.").
  virtual void ReadCDATA(vesk::base::CUnicodeString& text);
  virtual vesk::base::CUnicodeString ReadCDATA();
  ///@}

  ///@{
  /// One-call element reads: the start element, its text, the typed read of
  /// that text, the end element; the value is returned.
  virtual bool ReadElementBool(const unsigned short* localName, const unsigned short* namespaceURI);
  virtual bool ReadElementBool(const unsigned short* localName);
  virtual short ReadElementShort(const unsigned short* localName, const unsigned short* namespaceURI);
  virtual short ReadElementShort(const unsigned short* localName);
  virtual int ReadElementLong(const unsigned short* localName, const unsigned short* namespaceURI);
  virtual int ReadElementLong(const unsigned short* localName);
  virtual unsigned int ReadElementUnsignedLong(const unsigned short* localName,
                                               const unsigned short* namespaceURI);
  virtual unsigned int ReadElementUnsignedLong(const unsigned short* localName);
  virtual long long ReadElementInt64(const unsigned short* localName, const unsigned short* namespaceURI);
  virtual long long ReadElementInt64(const unsigned short* localName);
  virtual unsigned long long ReadElementUInt64(const unsigned short* localName,
                                               const unsigned short* namespaceURI);
  virtual unsigned long long ReadElementUInt64(const unsigned short* localName);
  virtual float ReadElementFloat(const unsigned short* localName, const unsigned short* namespaceURI);
  virtual float ReadElementFloat(const unsigned short* localName);
  virtual double ReadElementDouble(const unsigned short* localName, const unsigned short* namespaceURI);
  virtual double ReadElementDouble(const unsigned short* localName);
  ///@}
  ///@{
  /// The element's text, or "" for an element without text; any failure is
  /// reported as CXMLException "Failed to read element with string content.".
  virtual vesk::base::CUnicodeString ReadElementString(const unsigned short* localName,
                                                       const unsigned short* namespaceURI);
  virtual vesk::base::CUnicodeString ReadElementString(const unsigned short* localName);
  ///@}
  ///@{
  /// An element's binhex or Base64 text decoded into a new block that
  /// belongs to the caller, as ReadBinHex and ReadBase64 decode.
  virtual void ReadElementBinHex(const unsigned short* localName, const unsigned short* namespaceURI,
                                 char*& data, unsigned int& length);
  virtual void ReadElementBinHex(const unsigned short* localName, char*& data, unsigned int& length);
  virtual void ReadElementBase64(const unsigned short* localName, const unsigned short* namespaceURI,
                                 char*& data, unsigned int& length);
  virtual void ReadElementBase64(const unsigned short* localName, char*& data, unsigned int& length);
  ///@}

  /// Hands this reader to the object's ReadXML; adds no markup of its own.
  virtual void ReadObject(IXMLSerializable& object);

  /// Releases the token source; every later read throws CIOException
  /// "Reader closed.".
  virtual void Close() = 0;

 protected:
  /// For subclasses; the base holds no data.
  CXMLReader() {}

 private:
  CXMLReader(const CXMLReader&);
  CXMLReader& operator=(const CXMLReader&);
};

}  // namespace io
}  // namespace vesk

#endif
