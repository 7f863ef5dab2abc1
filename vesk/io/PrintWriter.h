/// \file
/// CPrintWriter: prints values as 16-bit text to another writer.
#ifndef VESK_IO_PRINTWRITER_H
#define VESK_IO_PRINTWRITER_H

#include "vesk/base/Ref.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/Writer.h"

namespace vesk {
namespace io {

/// A writer decorator that formats numbers, truth values and narrow text as
/// 16-bit text and ends lines with its end-of-line text (CR LF unless one is
/// given). With auto-flush the wrapped writer is flushed after every line
/// end, never after a plain Print. The CRef constructor keeps the wrapped
/// writer alive; the pointer constructor borrows it. Closing flushes and
/// closes the wrapped writer; destruction does neither.
///
/// Numbers are printed as the C formats below print them: short and int in
/// decimal, unsigned int in unsigned decimal, float and double with six
/// decimals ("1.500000"), char and unsigned short as the character itself.
/// Print(unsigned long long) prints only the low 32 bits of its value, as it
/// always has.
class VESK_API CPrintWriter : public CWriter {
  VESK_DECLARE_CLASS(CPrintWriter);

  /// Units in the buffer every number is formatted into.
  static const unsigned int kFormatBufferSize = 256;

  /// Borrows writer. Throws CIllegalArgumentException "Invalid writer." for
  /// null. A non-null endOfLine is copied; null or empty means CR LF.
  explicit CPrintWriter(CWriter* writer, bool autoFlush = false,
                        const unsigned short* endOfLine = nullptr);
  /// Shares writer (an empty handle throws "Invalid writer."); otherwise as
  /// above.
  explicit CPrintWriter(const vesk::base::CRef<CWriter>& writer, bool autoFlush = false,
                        const unsigned short* endOfLine = nullptr);
  /// Neither flushes nor closes the wrapped writer.
  ~CPrintWriter() override;

  // Every write and Flush throws CIOException "Writer closed." after Close
  // and otherwise hands the call to the wrapped writer.
  void Write(const vesk::base::CUnicodeString& text, unsigned int offset,
             unsigned int length) override;
  void Write(const vesk::base::CUnicodeString& text) override;
  void Write(const unsigned short* chars, unsigned int offset, unsigned int length) override;
  void Write(const unsigned short* chars, unsigned int length) override;
  void Write(const unsigned short* chars) override;
  void Write(unsigned short ch) override;
  void Flush() override;
  /// Flushes and closes the wrapped writer; the print writer is closed even
  /// when the wrapped close fails. Closing again is silent.
  void Close() override;

  /// Narrow (UTF-8) text; nothing for null.
  void Print(const char* text);
  /// The string's units: Write(text).
  void Print(const vesk::base::CUnicodeString& text);
  /// Narrow (UTF-8) text; nothing for an empty string.
  void Print(const vesk::base::CString& text);
  /// A zero-terminated 16-bit text: Write(text).
  void Print(const unsigned short* text);
  /// "true" or "false".
  void Print(bool value);
  /// Decimal, with '-' when negative.
  void Print(short value);
  /// Decimal, with '-' when negative.
  void Print(int value);
  /// Decimal digits.
  void Print(unsigned int value);
  /// The low 32 bits of value, unsigned.
  void Print(unsigned long long value);
  /// Six decimals: 1.5f prints "1.500000".
  void Print(float value);
  /// Six decimals.
  void Print(double value);
  /// The character (the byte widened as a signed value).
  void Print(char value);
  /// The unit as a character.
  void Print(unsigned short value);
  /// The value in decimal.
  void PrintUnsignedChar(unsigned char value);
  /// The value in decimal.
  void PrintUnsignedShort(unsigned short value);
  /// The value in decimal.
  void PrintInt(int value);
  /// The value in decimal.
  void PrintUnsignedInt(unsigned int value);

  /// Writes the end of line; CIOException "Writer closed." after Close.
  void Println();
  ///@{
  /// Print(value) followed by the end of line.
  void Println(bool value);
  void Println(short value);
  void Println(int value);
  void Println(unsigned int value);
  void Println(float value);
  void Println(double value);
  void Println(char value);
  void Println(unsigned short value);
  void Println(const vesk::base::CString& text);
  void Println(const unsigned short* text);
  void Println(const vesk::base::CUnicodeString& text);
  ///@}

  /// Stores the end-of-line text in out: the one given at construction, or
  /// CR LF.
  void GetEndOfLine(vesk::base::CUnicodeString& out) const;

 protected:
  /// Closes the wrapped writer; the print writer is closed even when that
  /// throws.
  void InternalClose();

 private:
  CPrintWriter(const CPrintWriter&);
  CPrintWriter& operator=(const CPrintWriter&);

  void Init(CWriter* writer, const unsigned short* endOfLine);
  void CheckOpen() const;
  void WriteNewLine();
  /// Formats one value into m_formatBuffer and writes it.
  void PrintFormatted(const unsigned short* format, ...);

  CWriter* m_writer;
  vesk::base::CRef<CWriter> m_writerRef;
  bool m_autoFlush;
  unsigned short m_formatBuffer[kFormatBufferSize];
  vesk::base::CUnicodeString m_scratchText;
  vesk::base::CUnicodeString m_endOfLine;
};

}  // namespace io
}  // namespace vesk

#endif
