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
class VESK_API CDebugPrintStream : public CPrintStream {
  VESK_DECLARE_CLASS(CDebugPrintStream);

  /// Open until Close.
  CDebugPrintStream();
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
  void Print(char value) override;
  void Print(double value) override;
  void Print(float value) override;
  void Print(unsigned int value) override;
  void Print(int value) override;
  void Print(short value) override;
  void Print(bool value) override;

  /// Println of an empty text sends nothing at all (no lone line feed).
  void Println(const vesk::base::CString& text) override;
  void Println(const char* text) override;
  void Println(char value) override;
  void Println(double value) override;
  void Println(float value) override;
  void Println(unsigned int value) override;
  void Println(int value) override;
  void Println(short value) override;
  void Println(bool value) override;
  void Println() override;

  bool IsOpen() const { return m_open; }

 private:
  void CheckOpen() const;
  bool m_open;
};

}  // namespace io
}  // namespace vesk

#endif
