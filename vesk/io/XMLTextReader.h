/// \file
/// CXMLTextReader: reads XML text from a stream or a file as tokens.
#ifndef VESK_IO_XMLTEXTREADER_H
#define VESK_IO_XMLTEXTREADER_H

#include "IO/Location.h"
#include "vesk/io/InputStream.h"
#include "vesk/io/XMLReader.h"

namespace vesk {
namespace io {

namespace internal {
class CXMLTextTokenizer;
}

/// A pull reader over XML text. The document is scanned progressively as
/// tokens are asked for, so it is never held whole in memory; the encoding
/// is detected from the bytes (byte-order mark, XML declaration).
///
/// Tokens: start and end elements (an empty-element tag gives both, in that
/// order), the character data inside the root element (a text token per run
/// of text, a CDATA token per section; white space outside the root makes
/// none), comments and processing instructions anywhere. Elements carry
/// their namespace URI and local name.
///
/// Nothing outside the document is ever read: an external DTD or entity is
/// never fetched. Entity references are limited to the five predefined
/// entities and character references; a reference to an entity declared in
/// the DTD is refused.
///
/// Failures: a malformed document throws CXMLException at the token where
/// it is detected, with the scanner's text and position as message (from
/// the constructor: "Failed to create XML text tokenizer.", from a read:
/// "Failed to get the next token of xml text tokenizer."); a failure of the
/// stream is rethrown as CIOException with the same descriptions. Reads on a
/// closed reader throw CIOException "Reader closed.". The element reads
/// throw CXMLException "Invalid local name." (empty name, checked first),
/// "End of stream reached.", "Failed to read the specified start element."
/// and "Failed to read the end element.". Source "vesk/io/XMLTextReader".
class VESK_API CXMLTextReader : public CXMLReader {
  VESK_DECLARE_CLASS(CXMLTextReader);

  /// Reads from stream, which the caller keeps alive while the reader is
  /// open.
  explicit CXMLTextReader(CInputStream* stream);
  /// Reads from stream and keeps it alive.
  explicit CXMLTextReader(const vesk::base::CRef<CInputStream>& stream);
  /// Reads the file at location. Opening failures throw CIOException "An
  /// error occured while trying to open file." or "Access denied." (a
  /// location that names no file: "Failed to create file for reading the
  /// specified xml file.").
  explicit CXMLTextReader(const IO::Location& location);
  /// Releases the tokenizer; the stream is neither closed nor read further.
  ~CXMLTextReader() override;

  const vesk::base::CRef<IXMLToken>& GetCurrentToken() const override;
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
  /// Releases the tokenizer (and a file the reader opened). Closing twice
  /// does nothing.
  void Close() override;

 private:
  void Open(CInputStream* stream, const vesk::base::CRef<CInputStream>& owner);
  void CheckOpen() const;

  internal::CXMLTextTokenizer* m_tokenizer;
  vesk::base::CRef<CInputStream> m_file;
  vesk::base::CRef<IXMLToken> m_currentToken;
  vesk::base::CRef<IXMLToken> m_pendingToken;
  bool m_pending;
};

}  // namespace io
}  // namespace vesk

#endif
