/// \file
/// CXMLTextWriter: writes XML text to a byte stream as it goes.
#ifndef VESK_IO_XMLTEXTWRITER_H
#define VESK_IO_XMLTEXTWRITER_H

#include "IO/Location.h"
#include "vesk/base/Ref.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/OutputStream.h"
#include "vesk/io/XMLTextTabulator.h"
#include "vesk/io/XMLWriter.h"

namespace vesk {
namespace io {

class CBufferedWriter;
class COutputStreamWriter;
class CPrintWriter;

namespace internal {
class CXMLTextLine;
class CXMLTextWriterContextStack;
}  // namespace internal

/// A forward-only XML writer: each call prints its markup at once through
/// an output stream writer (UTF-16 to the encoding), a buffered writer of
/// the given size and a print writer with the given end of line; the
/// document is never held. Names are checked against the XML 1.0 character
/// classes, text and the values of the two- and three-argument
/// WriteAttribute are escaped ("&amp;", "&lt;", "&gt;", "&apos;",
/// "&quot;"), and open elements with their namespace scopes are tracked.
///
/// Output rules callers rely on:
/// - every start tag ends its line: ">" and the end of line are printed as
///   soon as something other than an attribute or namespace declaration
///   follows; an element ended at once is written "<a/>";
/// - the tabulator's text precedes only WriteStartElement(local), the
///   one-name WriteElementString forms and the end tags of WriteEndElement;
/// - comments are "<!-- text-->" (a blank after the opening delimiter only);
/// - the four-argument WriteAttribute writes its value unescaped and its
///   prefix unchecked against the declarations in scope;
/// - WriteWhitespace, WriteCDATA, comments, processing instructions and
///   namespace URIs are written as given, unchecked and unescaped;
/// - Close ends only the innermost open element; WriteEndDocument ends all;
/// - typed element and attribute values: char, short and the 32-bit types
///   in decimal, 64-bit types in full, float "%g", double "%g" (six
///   significant digits) except the one-name WriteElementDouble, which
///   prints 15 ("0.333333333333333");
/// - typed content writes print what the print writer's matching Print
///   prints ("%f" for float and double; WriteUInt64 prints the low 32 bits
///   of its value, as the print writer does).
///
/// Characters beyond the BMP in escaped text and attribute values are
/// written as character references ("&#x1F600;"): the encoder turns a
/// surrogate pair that reaches it in one piece into "?". Names must lie in
/// the BMP for the same reason.
///
/// Failures: a closed writer throws CIOException "Writer closed."; rule
/// violations throw CXMLException (source "vesk/io/XMLTextWriter") with the
/// messages given below; a failed allocation while assembling output throws
/// CIOException "Memory full.". A failing call leaves the writer as it was,
/// except that a pending start tag may have been closed already.
class VESK_API CXMLTextWriter : public CXMLWriter {
  VESK_DECLARE_CLASS(CXMLTextWriter);

  /// Units of the buffer typed values are formatted into.
  static const unsigned int kNumberBufferSize = 256;

  /// Writes to out (borrowed: the caller keeps it alive). encoding names the
  /// converter ("UTF-8"); null or empty throws CXMLException "Invalid
  /// encoding specification.", an unknown one CUnsupportedEncodingException.
  /// bufferSize is the buffered writer's (0 throws "Invalid buffer size.").
  /// tabulator is borrowed and may be null; a null endOfLine means CR LF;
  /// writeByteOrderMark goes to the output stream writer.
  CXMLTextWriter(COutputStream* out, const char* encoding, unsigned int bufferSize,
                 CXMLTextTabulator* tabulator, const unsigned short* endOfLine,
                 bool writeByteOrderMark);
  /// As above, sharing out (the writer keeps it alive).
  CXMLTextWriter(const vesk::base::CRef<COutputStream>& out, const char* encoding,
                 unsigned int bufferSize, CXMLTextTabulator* tabulator,
                 const unsigned short* endOfLine, bool writeByteOrderMark);
  /// As above, on a file output stream opened at location (created, or
  /// emptied when it exists). The encoding is checked before the file is
  /// opened; a file that cannot be opened throws the file stream's
  /// CIOException ("Access denied.", "Failed to open the underlying file.").
  CXMLTextWriter(const IO::Location& location, const char* encoding, unsigned int bufferSize,
                 CXMLTextTabulator* tabulator, const unsigned short* endOfLine,
                 bool writeByteOrderMark);
  /// Destruction neither flushes nor closes: Close first.
  ~CXMLTextWriter() override;

  /// The encoding name given at construction.
  const vesk::base::CString& GetEncoding() const { return m_encoding; }
  /// The print writer's end of line; "Writer closed." when closed.
  void GetEndOfLine(vesk::base::CUnicodeString& out) const;

  // Every operation throws "Writer closed." when closed, then CXMLException
  // "Document hasn't been started yet." before WriteStartDocument (except
  // WriteStartDocument, Flush and Close).

  /// Prints the XML declaration with the encoding name. May be called again
  /// and prints the declaration again.
  void WriteStartDocument() override;
  /// Ends every open element ("Document root hasn't been written yet."
  /// before the first start element).
  void WriteEndDocument() override;
  /// "<![CDATA[" text "]]>"; needs the root written.
  void WriteCDATA(const unsigned short* text) override;
  /// "<!-- " text "-->"; allowed before the root; null gives an empty comment.
  void WriteComment(const unsigned short* text) override;
  /// "<?" target " " data "?>"; "Invalid processing instruction target." /
  /// "Invalid processing instruction data." for null or empty ones, checked
  /// before anything else.
  void WriteProcessingInstruction(const unsigned short* target,
                                  const unsigned short* data) override;
  /// "&" name ";" with no line break; "Invalid entity name." when empty;
  /// needs the root written.
  void WriteEntityRef(const unsigned short* name) override;
  /// The text as given; needs the root written; does not close a pending
  /// start tag (whitespace then lands inside the tag).
  void WriteWhitespace(const unsigned short* text) override;
  /// Tabulator text, "<" and the name. Local names must be non-empty
  /// ("Invalid local name."), without ":" ("Local name must be unqualified
  /// name.") and XML names ("Invalid character error.").
  void WriteStartElement(const unsigned short* localName) override;
  /// The element in namespaceURI (non-empty, else "Invalid namespace URI."):
  /// unprefixed when it is the default namespace in scope, with the prefix
  /// bound to it when there is one, else unprefixed with xmlns="...". No
  /// tabulator text.
  void WriteStartElement(const unsigned short* localName,
                         const unsigned short* namespaceURI) override;
  /// prefix:local, with xmlns:prefix="..." unless prefix is already bound
  /// to namespaceURI in scope. No tabulator text.
  void WriteStartElement(const unsigned short* prefix, const unsigned short* localName,
                         const unsigned short* namespaceURI) override;
  /// "/>" when the start tag is still open, else tabulator text and the end
  /// tag. "There is no start elements to close in the current context."
  /// when no element is open.
  void WriteEndElement() override;
  /// Always a separate end tag, without tabulator text.
  void WriteFullEndElement() override;

  ///@{
  /// Start tag, escaped text and end tag, with the name rules of
  /// WriteStartElement; only the one-name form is preceded by the tabulator's
  /// text.
  void WriteElementString(const unsigned short* localName, const unsigned short* namespaceURI,
                          const unsigned short* text) override;
  void WriteElementString(const unsigned short* localName, const unsigned short* text) override;
  ///@}

  /// Needs an open start tag ("Attributes must be written at start
  /// element."); the value must be XML characters ("Invalid character
  /// error."). The four-argument form needs a non-empty prefix ("Invalid
  /// prefix.") and writes the value unescaped; the three-argument form uses
  /// the prefix bound to namespaceURI ("Undeclared namespace." when none).
  void WriteAttribute(const unsigned short* prefix, const unsigned short* localName,
                      const unsigned short* namespaceURI, const unsigned short* value) override;
  void WriteAttribute(const unsigned short* localName, const unsigned short* namespaceURI,
                      const unsigned short* value) override;
  void WriteAttribute(const unsigned short* localName, const unsigned short* value) override;
  /// xmlns="..."; "This start element already contains default namespace
  /// declaration." for a second one on the same tag.
  void WriteAttrDefaultNamespaceDeclaration(const unsigned short* namespaceURI) override;
  /// xmlns:prefix="..."; "Invalid prefix." (empty), "Invalid character
  /// error.", "Invalid namespace URI." (empty). Declaring the same prefix
  /// twice on one tag throws "This start element already declares the
  /// prefix.".
  void WriteAttrNamespaceDeclaration(const unsigned short* prefix,
                                     const unsigned short* namespaceURI) override;

  /// Escaped text; every unit must be an XML character ("Invalid character
  /// error.", checked before a pending start tag is closed). Null or empty
  /// text prints nothing.
  void WriteString(const unsigned short* text) override;

  void Flush() override;
  /// Ends the innermost open element (only that one), then closes the
  /// chain down to the stream. Every later call, Close included, throws
  /// "Writer closed.".
  void Close() override;

  // --- typed elements and attributes (values unescaped, see above) --------
  ///@{
  /// A whole element holding the value's text, unescaped: bool "true" or
  /// "false", char as a signed number, the other integer types in decimal
  /// (64-bit ones in full), float "%g". As with WriteElementString, only the
  /// one-name forms are preceded by the tabulator's text.
  void WriteElementBool(const unsigned short* localName, const unsigned short* namespaceURI,
                        bool value) override;
  void WriteElementBool(const unsigned short* localName, bool value) override;
  virtual void WriteElementChar(const unsigned short* localName, const unsigned short* namespaceURI,
                                char value);
  virtual void WriteElementChar(const unsigned short* localName, char value);
  virtual void WriteElementUnsignedChar(const unsigned short* localName,
                                        const unsigned short* namespaceURI, unsigned char value);
  virtual void WriteElementUnsignedChar(const unsigned short* localName, unsigned char value);
  void WriteElementShort(const unsigned short* localName, const unsigned short* namespaceURI,
                         short value) override;
  void WriteElementShort(const unsigned short* localName, short value) override;
  virtual void WriteElementUnsignedShort(const unsigned short* localName,
                                         const unsigned short* namespaceURI, unsigned short value);
  virtual void WriteElementUnsignedShort(const unsigned short* localName, unsigned short value);
  void WriteElementLong(const unsigned short* localName, const unsigned short* namespaceURI,
                        int value) override;
  void WriteElementLong(const unsigned short* localName, int value) override;
  virtual void WriteElementInt(const unsigned short* localName, const unsigned short* namespaceURI,
                               int value);
  virtual void WriteElementInt(const unsigned short* localName, int value);
  virtual void WriteElementInt32(const unsigned short* localName,
                                 const unsigned short* namespaceURI, int value);
  virtual void WriteElementInt32(const unsigned short* localName, int value);
  void WriteElementUnsignedLong(const unsigned short* localName, const unsigned short* namespaceURI,
                                unsigned int value) override;
  void WriteElementUnsignedLong(const unsigned short* localName, unsigned int value) override;
  virtual void WriteElementUnsignedInt(const unsigned short* localName,
                                       const unsigned short* namespaceURI, unsigned int value);
  virtual void WriteElementUnsignedInt(const unsigned short* localName, unsigned int value);
  virtual void WriteElementUInt32(const unsigned short* localName,
                                  const unsigned short* namespaceURI, unsigned int value);
  virtual void WriteElementUInt32(const unsigned short* localName, unsigned int value);
  virtual void WriteElementInt64(const unsigned short* localName,
                                 const unsigned short* namespaceURI, long long value);
  virtual void WriteElementInt64(const unsigned short* localName, long long value);
  virtual void WriteElementUnsignedInt64(const unsigned short* localName,
                                         const unsigned short* namespaceURI,
                                         unsigned long long value);
  virtual void WriteElementUnsignedInt64(const unsigned short* localName, unsigned long long value);
  void WriteElementFloat(const unsigned short* localName, const unsigned short* namespaceURI,
                         float value) override;
  void WriteElementFloat(const unsigned short* localName, float value) override;
  ///@}
  /// Six significant digits ("%g").
  void WriteElementDouble(const unsigned short* localName, const unsigned short* namespaceURI,
                          double value) override;
  /// Fifteen significant digits ("%.15g").
  void WriteElementDouble(const unsigned short* localName, double value) override;

  ///@{
  /// An attribute of the open start tag holding the value's text, unescaped:
  /// bool "true" or "false", char as a signed number, the other integer types
  /// in decimal (64-bit ones in full), float and double "%g". The rules of
  /// WriteAttribute apply.
  void WriteAttrBool(const unsigned short* localName, const unsigned short* namespaceURI,
                     bool value) override;
  void WriteAttrBool(const unsigned short* localName, bool value) override;
  virtual void WriteAttrChar(const unsigned short* localName, const unsigned short* namespaceURI,
                             char value);
  virtual void WriteAttrChar(const unsigned short* localName, char value);
  virtual void WriteAttrUnsignedChar(const unsigned short* localName,
                                     const unsigned short* namespaceURI, unsigned char value);
  virtual void WriteAttrUnsignedChar(const unsigned short* localName, unsigned char value);
  void WriteAttrShort(const unsigned short* localName, const unsigned short* namespaceURI,
                      short value) override;
  void WriteAttrShort(const unsigned short* localName, short value) override;
  virtual void WriteAttrUnsignedShort(const unsigned short* localName,
                                      const unsigned short* namespaceURI, unsigned short value);
  virtual void WriteAttrUnsignedShort(const unsigned short* localName, unsigned short value);
  void WriteAttrLong(const unsigned short* localName, const unsigned short* namespaceURI,
                     int value) override;
  void WriteAttrLong(const unsigned short* localName, int value) override;
  virtual void WriteAttrInt(const unsigned short* localName, const unsigned short* namespaceURI,
                            int value);
  virtual void WriteAttrInt(const unsigned short* localName, int value);
  virtual void WriteAttrInt32(const unsigned short* localName, const unsigned short* namespaceURI,
                              int value);
  virtual void WriteAttrInt32(const unsigned short* localName, int value);
  void WriteAttrUnsignedLong(const unsigned short* localName, const unsigned short* namespaceURI,
                             unsigned int value) override;
  void WriteAttrUnsignedLong(const unsigned short* localName, unsigned int value) override;
  virtual void WriteAttrUnsignedInt(const unsigned short* localName,
                                    const unsigned short* namespaceURI, unsigned int value);
  virtual void WriteAttrUnsignedInt(const unsigned short* localName, unsigned int value);
  virtual void WriteAttrUInt32(const unsigned short* localName, const unsigned short* namespaceURI,
                               unsigned int value);
  virtual void WriteAttrUInt32(const unsigned short* localName, unsigned int value);
  virtual void WriteAttrInt64(const unsigned short* localName, const unsigned short* namespaceURI,
                              long long value);
  virtual void WriteAttrInt64(const unsigned short* localName, long long value);
  virtual void WriteAttrUnsignedInt64(const unsigned short* localName,
                                      const unsigned short* namespaceURI, unsigned long long value);
  virtual void WriteAttrUnsignedInt64(const unsigned short* localName, unsigned long long value);
  void WriteAttrFloat(const unsigned short* localName, const unsigned short* namespaceURI,
                      float value) override;
  void WriteAttrFloat(const unsigned short* localName, float value) override;
  void WriteAttrDouble(const unsigned short* localName, const unsigned short* namespaceURI,
                       double value) override;
  void WriteAttrDouble(const unsigned short* localName, double value) override;
  ///@}

  // --- typed content -------------------------------------------------------
  ///@{
  /// The value as content, as the print writer's matching Print (or
  /// PrintUnsignedChar, PrintUnsignedShort, PrintInt, PrintUnsignedInt)
  /// prints it: "true" or "false", decimal integers, "%f" for float and
  /// double.
  void WriteBool(bool value) override;
  /// The character itself, escaped and checked as by WriteString.
  virtual void WriteChar(char value);
  virtual void WriteUnsignedChar(unsigned char value);
  void WriteShort(short value) override;
  virtual void WriteUnsignedShort(unsigned short value);
  virtual void WriteInt(int value);
  virtual void WriteUnsignedInt(unsigned int value);
  void WriteLong(int value) override;
  void WriteUnsignedLong(unsigned int value) override;
  virtual void WriteInt32(int value);
  virtual void WriteUInt32(unsigned int value);
  /// The low 32 bits of value, as the print writer prints it.
  virtual void WriteUInt64(unsigned long long value);
  void WriteFloat(float value) override;
  void WriteDouble(double value) override;
  ///@}

  ///@{
  /// The typed content write of the value's type: WriteBool, WriteChar,
  /// WriteUnsignedChar, WriteShort, WriteUnsignedShort, WriteInt,
  /// WriteUnsignedInt, WriteUInt64, WriteFloat or WriteDouble.
  void Write(bool value) { WriteBool(value); }
  void Write(char value) { WriteChar(value); }
  void Write(unsigned char value) { WriteUnsignedChar(value); }
  void Write(short value) { WriteShort(value); }
  void Write(unsigned short value) { WriteUnsignedShort(value); }
  void Write(int value) { WriteInt(value); }
  void Write(unsigned int value) { WriteUnsignedInt(value); }
  void Write(unsigned long long value) { WriteUInt64(value); }
  void Write(float value) { WriteFloat(value); }
  void Write(double value) { WriteDouble(value); }
  ///@}

 private:
  CXMLTextWriter(const CXMLTextWriter&);
  CXMLTextWriter& operator=(const CXMLTextWriter&);

  void Init(COutputStream* out, const char* encoding, unsigned int bufferSize,
            const unsigned short* endOfLine, bool writeByteOrderMark);
  void CheckOpen() const;
  void CheckStarted() const;
  void CheckRootWritten() const;
  void CheckStartElementOpen() const;
  void CheckLocalName(const unsigned short* localName) const;
  void CheckPrefix(const unsigned short* prefix) const;
  void CheckNamespace(const unsigned short* namespaceURI) const;
  /// Starts a line, closing a pending start tag in it when asked to.
  void BeginLine(bool closeStartTag);
  void AppendTab();
  void AppendEndOfLine();
  void AppendEscaped(const unsigned short* text);
  void AppendDeclaration(const unsigned short* prefix, const unsigned short* namespaceURI);
  /// [prefix ":"] localName.
  void AppendQualifiedName(const unsigned short* prefix, const unsigned short* localName);
  /// Begins a line with a start tag's "<" and name; returns where the name
  /// starts in the line and its length.
  unsigned int BeginStartTag(const unsigned short* prefix, const unsigned short* localName,
                             bool indent, unsigned int& nameLength);
  /// Prints the line; a pending start tag closed in it is closed then.
  void PrintLine();
  /// The prefix an element in namespaceURI takes (null: unprefixed), and
  /// whether it must declare namespaceURI as its default.
  const vesk::base::CUnicodeString* ResolveNamespace(const unsigned short* namespaceURI,
                                                     bool& declareDefault) const;
  void StartElement(const unsigned short* prefix, const unsigned short* localName,
                    bool hasNamespace, const unsigned short* namespaceURI, bool indent);
  void Element(const unsigned short* localName, bool hasNamespace,
               const unsigned short* namespaceURI, const unsigned short* text, bool indent,
               bool escape);
  void Attribute(const unsigned short* localName, bool hasNamespace,
                 const unsigned short* namespaceURI, const unsigned short* value, bool escape);
  void AttributeLine(const unsigned short* prefix, const unsigned short* localName,
                     const unsigned short* value, bool escape);
  void EndElement(bool full);
  /// The print writer, after the closed and started checks and closing a
  /// pending start tag on a line of its own.
  CPrintWriter& Content();
  /// Formats a value into the number buffer.
  const unsigned short* Number(const unsigned short* format, ...);
  void CloseChain();

  vesk::base::CString m_encoding;
  COutputStream* m_stream = nullptr;
  vesk::base::CRef<COutputStream> m_streamRef;
  vesk::base::CRef<COutputStreamWriter> m_streamWriter;
  vesk::base::CRef<CBufferedWriter> m_bufferedWriter;
  vesk::base::CRef<CPrintWriter> m_printWriter;
  CXMLTextTabulator* m_tabulator;
  internal::CXMLTextLine* m_line = nullptr;
  unsigned short m_numberBuffer[kNumberBufferSize];
  bool m_documentStarted = false;
  bool m_rootWritten = false;
  bool m_startElementOpen = false;
  /// Whether the line being assembled closes the pending start tag.
  bool m_lineClosesStartTag = false;
  internal::CXMLTextWriterContextStack* m_contexts = nullptr;
  vesk::base::CUnicodeString m_endOfLine;
};

}  // namespace io
}  // namespace vesk

#endif
