/// \file
/// CXMLPushbackReader: an XML reader that takes tokens back.
#ifndef VESK_IO_XMLPUSHBACKREADER_H
#define VESK_IO_XMLPUSHBACKREADER_H

#include "vesk/io/XMLReader.h"

namespace vesk {
namespace io {

/// Wraps another reader and lets its user give tokens back. Given-back
/// tokens come back last-in first-out before the wrapped reader is read
/// again; the buffer holds as many tokens as its size. The typed Unread
/// operations make a whole element (start, text, end: three slots) and give
/// it back so that the next three reads return it in document order.
///
/// Failures: "Invalid XML reader." and "Invalid pushback buffer size." at
/// construction, "There is no valid token." (UnreadToken without a current
/// token), "Invalid local name." and "Invalid element text." (checked before
/// the closed test) as CXMLException; "Pushback buffer is full." and
/// "Reader closed." as CIOException. Source "vesk/io/XMLPushbackReader".
/// The element reads fail as the text reader's do, from this source.
class VESK_API CXMLPushbackReader : public CXMLReader {
  VESK_DECLARE_CLASS(CXMLPushbackReader);

  /// Wraps reader (kept alive) with room for size given-back tokens.
  CXMLPushbackReader(const vesk::base::CRef<CXMLReader>& reader, unsigned int size);
  /// Releases the given-back tokens and the wrapped reader (without
  /// closing it).
  ~CXMLPushbackReader() override;

  const vesk::base::CRef<IXMLToken>& GetCurrentToken() const override;
  /// The most recently given-back token, else the wrapped reader's next.
  bool ReadToken() override;
  void ReadStartElement(const unsigned short* localName, const unsigned short* namespaceURI) override;
  void ReadStartElement(const unsigned short* name) override;
  void ReadStartElement() override;
  void ReadEndElement(const unsigned short* localName, const unsigned short* namespaceURI) override;
  void ReadEndElement(const unsigned short* name) override;
  void ReadEndElement() override;
  ///@{
  /// The element's text; an element without text reads as "" (the token
  /// after it stays for the next read).
  void ReadElementText(vesk::base::CUnicodeString& text) override;
  vesk::base::CUnicodeString ReadElementText() override;
  ///@}
  bool ReadElementTextIfAvailable() override;
  /// Closes the wrapped reader and drops the given-back tokens.
  void Close() override;

  /// Gives the current token back.
  void UnreadToken();
  /// Gives token back.
  void UnreadToken(const vesk::base::CRef<IXMLToken>& token);
  ///@{
  /// Gives back a start element made here (no attributes).
  void UnreadStartElement(const unsigned short* localName);
  void UnreadStartElement(const unsigned short* localName, const unsigned short* namespaceURI);
  ///@}
  ///@{
  /// Gives back an end element made here.
  void UnreadEndElement(const unsigned short* localName);
  void UnreadEndElement(const unsigned short* localName, const unsigned short* namespaceURI);
  ///@}
  /// Gives back a text token with this text (not empty).
  void UnreadElementText(const unsigned short* text);

  ///@{
  /// Gives back a whole element with this text ("true"/"false", "%hd",
  /// "%ld", "%g" formats for the typed ones); uses three slots (two for an
  /// empty string, which has no text token).
  void UnreadElementString(const unsigned short* localName, const unsigned short* text);
  void UnreadElementString(const unsigned short* localName, const unsigned short* namespaceURI,
                           const unsigned short* text);
  void UnreadElementBool(const unsigned short* localName, bool value);
  void UnreadElementBool(const unsigned short* localName, const unsigned short* namespaceURI, bool value);
  void UnreadElementShort(const unsigned short* localName, short value);
  void UnreadElementShort(const unsigned short* localName, const unsigned short* namespaceURI, short value);
  void UnreadElementLong(const unsigned short* localName, int value);
  void UnreadElementLong(const unsigned short* localName, const unsigned short* namespaceURI, int value);
  void UnreadElementFloat(const unsigned short* localName, float value);
  void UnreadElementFloat(const unsigned short* localName, const unsigned short* namespaceURI, float value);
  void UnreadElementDouble(const unsigned short* localName, double value);
  void UnreadElementDouble(const unsigned short* localName, const unsigned short* namespaceURI, double value);
  ///@}

 private:
  void CheckOpen() const;
  void Push(const vesk::base::CRef<IXMLToken>& token);
  void UnreadElement(const unsigned short* localName, const unsigned short* namespaceURI,
                     const unsigned short* text);

  vesk::base::CRef<CXMLReader> m_reader;
  vesk::base::CRef<IXMLToken> m_currentToken;
  vesk::base::CRef<IXMLToken>* m_buffer;
  unsigned int m_size;
  unsigned int m_position;
};

}  // namespace io
}  // namespace vesk

#endif
