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

  CXMLWriter() {}
  ~CXMLWriter() override;

  virtual void WriteStartDocument() = 0;
  virtual void WriteEndDocument() = 0;
  virtual void WriteCDATA(const unsigned short* text) = 0;
  virtual void WriteComment(const unsigned short* text) = 0;
  virtual void WriteProcessingInstruction(const unsigned short* target,
                                          const unsigned short* data) = 0;
  virtual void WriteEntityRef(const unsigned short* name) = 0;
  virtual void WriteWhitespace(const unsigned short* text) = 0;
  virtual void WriteStartElement(const unsigned short* localName) = 0;
  virtual void WriteStartElement(const unsigned short* localName,
                                 const unsigned short* namespaceURI) = 0;
  virtual void WriteStartElement(const unsigned short* prefix, const unsigned short* localName,
                                 const unsigned short* namespaceURI) = 0;
  virtual void WriteEndElement() = 0;
  virtual void WriteFullEndElement() = 0;

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

  virtual void WriteElementString(const unsigned short* localName,
                                  const unsigned short* namespaceURI,
                                  const unsigned short* text) = 0;
  virtual void WriteElementString(const unsigned short* localName, const unsigned short* text) = 0;

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

  virtual void WriteAttribute(const unsigned short* prefix, const unsigned short* localName,
                              const unsigned short* namespaceURI, const unsigned short* value) = 0;
  virtual void WriteAttribute(const unsigned short* localName, const unsigned short* namespaceURI,
                              const unsigned short* value) = 0;
  virtual void WriteAttribute(const unsigned short* localName, const unsigned short* value) = 0;
  virtual void WriteAttrDefaultNamespaceDeclaration(const unsigned short* namespaceURI) = 0;
  virtual void WriteAttrNamespaceDeclaration(const unsigned short* prefix,
                                             const unsigned short* namespaceURI) = 0;

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

  virtual void WriteBool(bool value);
  virtual void WriteShort(short value);
  virtual void WriteLong(int value);
  virtual void WriteUnsignedLong(unsigned int value);
  virtual void WriteFloat(float value);
  virtual void WriteDouble(double value);

  virtual void WriteString(const unsigned short* text) = 0;

  /// The Base64 or binhex text of the bytes as content.
  virtual void WriteBase64(const char* data, unsigned int offset, unsigned int length);
  virtual void WriteBinHex(const char* data, unsigned int offset, unsigned int length);

  /// Lets object write itself: calls object.WriteXML(*this) and adds nothing.
  virtual void WriteObject(const IXMLSerializable& object);

  virtual void Flush() = 0;
  virtual void Close() = 0;

 private:
  CXMLWriter(const CXMLWriter&);
  CXMLWriter& operator=(const CXMLWriter&);
};

}  // namespace io
}  // namespace vesk

#endif
