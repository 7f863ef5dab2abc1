/// \file
/// CXMLWriter: the abstract XML writer with its typed writes.
#ifndef VESK_IO_XMLWRITER_H
#define VESK_IO_XMLWRITER_H

#include "vesk/base/Object.h"

namespace vesk {
namespace io {

class IXMLSerializable;

/// The interface of the XML writers. A concrete writer implements the
/// structural operations and the string writes; every typed write has a
/// default here that formats the value and hands the text on:
/// WriteElement...(local[, ns], v) to WriteElementString, WriteAttr...(local[,
/// ns], v) to WriteAttribute, Write...(v) to WriteString. The default texts:
/// bool "true" / "false", short and long in decimal, unsigned long in
/// unsigned decimal, float and double in fixed notation with six decimals
/// ("2.500000"). Writers may override them with formats of their own (the
/// text writer does).
///
/// Names and texts are zero-terminated UTF-16; binary data is bytes from
/// data + offset, length of them.
class VESK_API CXMLWriter : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CXMLWriter);

  /// Only implementations are built.
  CXMLWriter() {}
  /// Virtual: writers are deleted through the interface. Flushes and closes
  /// nothing.
  ~CXMLWriter() override;

  /// Starts the document (the XML declaration).
  virtual void WriteStartDocument() = 0;
  /// Ends every element still open.
  virtual void WriteEndDocument() = 0;
  /// A CDATA section holding text.
  virtual void WriteCDATA(const unsigned short* text) = 0;
  /// A comment holding text.
  virtual void WriteComment(const unsigned short* text) = 0;
  /// A processing instruction with its target and data.
  virtual void WriteProcessingInstruction(const unsigned short* target,
                                          const unsigned short* data) = 0;
  /// An entity reference: "&" name ";".
  virtual void WriteEntityRef(const unsigned short* name) = 0;
  /// White space, written as given.
  virtual void WriteWhitespace(const unsigned short* text) = 0;
  ///@{
  /// Opens an element: with no namespace, in namespaceURI, or with an
  /// explicit prefix bound to namespaceURI.
  virtual void WriteStartElement(const unsigned short* localName) = 0;
  virtual void WriteStartElement(const unsigned short* localName,
                                 const unsigned short* namespaceURI) = 0;
  virtual void WriteStartElement(const unsigned short* prefix, const unsigned short* localName,
                                 const unsigned short* namespaceURI) = 0;
  ///@}
  /// Ends the innermost open element, as an empty element when it has no
  /// content yet.
  virtual void WriteEndElement() = 0;
  /// Ends the innermost open element with a separate end tag, even when it is
  /// empty.
  virtual void WriteFullEndElement() = 0;

  ///@{
  /// A whole element holding the value's text, in namespaceURI or with no
  /// namespace. Default: the formats of the class note, through
  /// WriteElementString.
  virtual void WriteElementBool(const unsigned short* localName, const unsigned short* namespaceURI,
                                bool value);
  virtual void WriteElementBool(const unsigned short* localName, bool value);
  virtual void WriteElementShort(const unsigned short* localName,
                                 const unsigned short* namespaceURI, short value);
  virtual void WriteElementShort(const unsigned short* localName, short value);
  virtual void WriteElementLong(const unsigned short* localName, const unsigned short* namespaceURI,
                                int value);
  virtual void WriteElementLong(const unsigned short* localName, int value);
  virtual void WriteElementUnsignedLong(const unsigned short* localName,
                                        const unsigned short* namespaceURI, unsigned int value);
  virtual void WriteElementUnsignedLong(const unsigned short* localName, unsigned int value);
  virtual void WriteElementFloat(const unsigned short* localName,
                                 const unsigned short* namespaceURI, float value);
  virtual void WriteElementFloat(const unsigned short* localName, float value);
  virtual void WriteElementDouble(const unsigned short* localName,
                                  const unsigned short* namespaceURI, double value);
  virtual void WriteElementDouble(const unsigned short* localName, double value);
  ///@}

  ///@{
  /// A whole element (start tag, text, end tag) holding text, in namespaceURI
  /// or with no namespace.
  virtual void WriteElementString(const unsigned short* localName,
                                  const unsigned short* namespaceURI,
                                  const unsigned short* text) = 0;
  virtual void WriteElementString(const unsigned short* localName, const unsigned short* text) = 0;
  ///@}

  ///@{
  /// The element with the binhex (two upper-case hex digits a byte) or
  /// Base64 text of the bytes as its content.
  virtual void WriteElementBinHex(const unsigned short* localName,
                                  const unsigned short* namespaceURI, const char* data,
                                  unsigned int offset, unsigned int length);
  virtual void WriteElementBinHex(const unsigned short* localName, const char* data,
                                  unsigned int offset, unsigned int length);
  virtual void WriteElementBase64(const unsigned short* localName,
                                  const unsigned short* namespaceURI, const char* data,
                                  unsigned int offset, unsigned int length);
  virtual void WriteElementBase64(const unsigned short* localName, const char* data,
                                  unsigned int offset, unsigned int length);
  ///@}

  ///@{
  /// An attribute of the open start tag: with an explicit prefix, in
  /// namespaceURI, or with no namespace.
  virtual void WriteAttribute(const unsigned short* prefix, const unsigned short* localName,
                              const unsigned short* namespaceURI, const unsigned short* value) = 0;
  virtual void WriteAttribute(const unsigned short* localName, const unsigned short* namespaceURI,
                              const unsigned short* value) = 0;
  virtual void WriteAttribute(const unsigned short* localName, const unsigned short* value) = 0;
  ///@}
  /// Declares namespaceURI as the default namespace on the open start tag
  /// (xmlns="...").
  virtual void WriteAttrDefaultNamespaceDeclaration(const unsigned short* namespaceURI) = 0;
  /// Binds prefix to namespaceURI on the open start tag (xmlns:prefix="...").
  virtual void WriteAttrNamespaceDeclaration(const unsigned short* prefix,
                                             const unsigned short* namespaceURI) = 0;

  ///@{
  /// An attribute holding the value's text, in namespaceURI or with no
  /// namespace. Default: the formats of the class note, through
  /// WriteAttribute.
  virtual void WriteAttrBool(const unsigned short* localName, const unsigned short* namespaceURI,
                             bool value);
  virtual void WriteAttrBool(const unsigned short* localName, bool value);
  virtual void WriteAttrShort(const unsigned short* localName, const unsigned short* namespaceURI,
                              short value);
  virtual void WriteAttrShort(const unsigned short* localName, short value);
  virtual void WriteAttrLong(const unsigned short* localName, const unsigned short* namespaceURI,
                             int value);
  virtual void WriteAttrLong(const unsigned short* localName, int value);
  virtual void WriteAttrUnsignedLong(const unsigned short* localName,
                                     const unsigned short* namespaceURI, unsigned int value);
  virtual void WriteAttrUnsignedLong(const unsigned short* localName, unsigned int value);
  virtual void WriteAttrFloat(const unsigned short* localName, const unsigned short* namespaceURI,
                              float value);
  virtual void WriteAttrFloat(const unsigned short* localName, float value);
  virtual void WriteAttrDouble(const unsigned short* localName, const unsigned short* namespaceURI,
                               double value);
  virtual void WriteAttrDouble(const unsigned short* localName, double value);
  ///@}

  ///@{
  /// The value's text as content. Default: the formats of the class note,
  /// through WriteString.
  virtual void WriteBool(bool value);
  virtual void WriteShort(short value);
  virtual void WriteLong(int value);
  virtual void WriteUnsignedLong(unsigned int value);
  virtual void WriteFloat(float value);
  virtual void WriteDouble(double value);
  ///@}

  /// Text content, escaped.
  virtual void WriteString(const unsigned short* text) = 0;

  ///@{
  /// The Base64 or binhex text of the bytes as content.
  virtual void WriteBase64(const char* data, unsigned int offset, unsigned int length);
  virtual void WriteBinHex(const char* data, unsigned int offset, unsigned int length);
  ///@}

  /// Lets object write itself: calls object.WriteXML(*this) and adds nothing.
  virtual void WriteObject(const IXMLSerializable& object);

  /// Passes what is buffered on to the destination.
  virtual void Flush() = 0;
  /// Closes the writer and its destination; later calls fail.
  virtual void Close() = 0;

 private:
  CXMLWriter(const CXMLWriter&);
  CXMLWriter& operator=(const CXMLWriter&);
};

}  // namespace io
}  // namespace vesk

#endif
