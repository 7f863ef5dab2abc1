/// \file
/// CDebugPrintStream: a print stream whose text goes to the host's debug
/// output (standard error on POSIX) instead of to a wrapped stream.
#ifndef VESK_IO_DEBUGPRINTSTREAM_H
#define VESK_IO_DEBUGPRINTSTREAM_H

#include "vesk/io/PrintStream.h"

namespace vesk {
namespace io {

/// Prints values to the debug output, one formatted piece per call. Raw bytes
/// cannot be written. Two prints are kept as they always behaved, since
/// existing logs are read with them: Print(unsigned int) prints the letters
/// "lu", and Print(double) prints the low 32 bits of the double's bit
/// pattern as a signed integer. Their Println forms print the value.
/// After Close every write and print throws CIOException "Stream closed.".
class VESK_API CDebugPrintStream : public CPrintStream {
  VESK_DECLARE_CLASS(CDebugPrintStream);

  /// Open until Close.
  CDebugPrintStream();
  /// Nothing to release.
  ~CDebugPrintStream() override;

  /// Always throw CIOException: "Unsupported on class CDebugPrintStream."
  /// while open, "Stream closed." after Close.
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  void Write(const char* buffer, unsigned int length) override;
  void Write(char byte) override;
  /// Nothing to flush; "Stream closed." after Close.
  void Flush() override;
  /// Closes for good; never throws and may be repeated.
  void Close() override;

  void Print(const vesk::base::CString& text) override;
  void Print(const char* text) override;
  /// The character ("%c").
  void Print(char value) override;
  /// The low 32 bits of the double's bit pattern as a signed decimal (see the
  /// class note).
  void Print(double value) override;
  /// printf's "%f" form (six decimals).
  void Print(float value) override;
  /// The letters "lu", whatever the value (see the class note).
  void Print(unsigned int value) override;
  /// Decimal, with '-' when negative.
  void Print(int value) override;
  /// Decimal, with '-' when negative.
  void Print(short value) override;
  void Print(bool value) override;

  /// Println of an empty text sends nothing at all (no lone line feed).
  void Println(const vesk::base::CString& text) override;
  /// The text and a line feed; nothing at all for null or "".
  void Println(const char* text) override;
  /// The character and a line feed.
  void Println(char value) override;
  /// printf's "%f" form and a line feed.
  void Println(double value) override;
  /// printf's "%f" form and a line feed.
  void Println(float value) override;
  /// Decimal digits and a line feed.
  void Println(unsigned int value) override;
  /// Decimal and a line feed.
  void Println(int value) override;
  /// Decimal and a line feed.
  void Println(short value) override;
  /// "true" or "false" and a line feed.
  void Println(bool value) override;
  /// A line feed alone.
  void Println() override;

  /// False once Close has been called.
  bool IsOpen() const { return m_open; }

 private:
  void CheckOpen() const;
  bool m_open;
};

}  // namespace io
}  // namespace vesk

#endif
