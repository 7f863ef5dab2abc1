/// \file
/// CPrintStream: writes values as text over another output stream and ends
/// lines with a separator (the host's line end unless a subclass sets one).
#ifndef VESK_IO_PRINTSTREAM_H
#define VESK_IO_PRINTSTREAM_H

#include "vesk/base/Ref.h"
#include "vesk/base/String.h"
#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

/// A decorator that prints bool, integer, floating-point, character and text
/// values in their printf notations. The CRef constructor keeps the wrapped
/// stream alive; the pointer constructor borrows it. Closing closes the
/// wrapped stream; destruction neither closes nor flushes it.
class VESK_API CPrintStream : public COutputStream {
  VESK_DECLARE_CLASS(CPrintStream);

  /// Borrows stream. Throws CIllegalArgumentException for null.
  CPrintStream(COutputStream* stream, bool autoFlush);
  /// Shares stream. Throws CIllegalArgumentException for an empty handle.
  CPrintStream(const vesk::base::CRef<COutputStream>& stream, bool autoFlush);
  /// Neither flushes nor closes the wrapped stream.
  ~CPrintStream() override;

  /// Forwarded to the wrapped stream; "Stream closed." once closed.
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  void Write(const char* buffer, unsigned int length) override;
  void Write(char byte) override;
  void Flush() override;
  /// Flushes and closes the wrapped stream; silent when already closed.
  void Close() override;

  /// The string's bytes; nothing when empty.
  virtual void Print(const vesk::base::CString& text);
  /// The text's bytes up to its terminator; nothing for null.
  virtual void Print(const char* text);
  /// The byte itself (a NUL too).
  virtual void Print(char value);
  /// printf's "%g" form.
  virtual void Print(double value);
  /// printf's "%g" form of the value as a double.
  virtual void Print(float value);
  /// Decimal digits.
  virtual void Print(unsigned int value);
  /// Decimal, with '-' when negative.
  virtual void Print(int value);
  /// Decimal, with '-' when negative.
  virtual void Print(short value);
  /// "true" or "false".
  virtual void Print(bool value);

  ///@{
  /// Print(value) followed by the line separator; with auto-flush the
  /// wrapped stream is flushed after the separator.
  virtual void Println(const vesk::base::CString& text);
  virtual void Println(const char* text);
  virtual void Println(char value);
  virtual void Println(double value);
  virtual void Println(float value);
  virtual void Println(unsigned int value);
  virtual void Println(int value);
  virtual void Println(short value);
  virtual void Println(bool value);
  ///@}
  /// The line separator alone.
  virtual void Println();

 protected:
  /// For subclasses that attach the stream themselves: no stream (closed),
  /// no auto-flush.
  CPrintStream();

  /// The line separator; subclasses may replace it in their constructors.
  vesk::base::CString& LineSeparator() { return m_lineSeparator; }

 private:
  CPrintStream(const CPrintStream&);
  CPrintStream& operator=(const CPrintStream&);

  void WriteNewLine();
  /// Writes the first length bytes of the format buffer.
  void WriteFormatted(int length);

  COutputStream* m_stream;
  vesk::base::CRef<COutputStream> m_streamRef;
  bool m_autoFlush;
  // Large enough for any "%g" or "%u" text.
  char m_formatBuffer[256];
  vesk::base::CString m_lineSeparator;
};

}  // namespace io
}  // namespace vesk

#endif
