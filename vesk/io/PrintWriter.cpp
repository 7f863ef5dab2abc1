#include "vesk/io/PrintWriter.h"

#include <cstdarg>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Format16.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using vesk::base::CString;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CPrintWriter, CPrintWriter, "vesk::io::CPrintWriter", "vesk::io::CWriter")

const unsigned int CPrintWriter::kFormatBufferSize;

namespace {

// The formats of the numeric prints, as 16-bit text. The historic formats
// were written for a 32-bit long: "%ld" of an int is "%d" here, and the two
// "%lu" prints (unsigned int and the 64-bit value) are "%u" of a 32-bit
// value, which is exactly the text they always printed.
const unsigned short kFormatD[] = {'%', 'd', 0};
const unsigned short kFormatU[] = {'%', 'u', 0};
const unsigned short kFormatHu[] = {'%', 'h', 'u', 0};
const unsigned short kFormatF[] = {'%', 'f', 0};
const unsigned short kFormatLf[] = {'%', 'l', 'f', 0};
const unsigned short kFormatC[] = {'%', 'c', 0};
const unsigned short kFormatLc[] = {'%', 'l', 'c', 0};

const unsigned short kTrue[] = {'t', 'r', 'u', 'e', 0};
const unsigned short kFalse[] = {'f', 'a', 'l', 's', 'e', 0};
const unsigned short kCrLf[] = {'\r', '\n', 0};

}  // namespace

CPrintWriter::CPrintWriter(CWriter* writer, bool autoFlush, const unsigned short* endOfLine)
    : m_writer(nullptr), m_autoFlush(autoFlush) {
  Init(writer, endOfLine);
}

CPrintWriter::CPrintWriter(const CRef<CWriter>& writer, bool autoFlush,
                           const unsigned short* endOfLine)
    : m_writer(nullptr), m_writerRef(writer), m_autoFlush(autoFlush) {
  Init(writer.Get(), endOfLine);
}

CPrintWriter::~CPrintWriter() {}

void CPrintWriter::Init(CWriter* writer, const unsigned short* endOfLine) {
  if (!writer) VESK_THROW("vesk/io/PrintWriter", CIllegalArgumentException, "Invalid writer.");
  m_formatBuffer[0] = 0;
  if (endOfLine) m_endOfLine = endOfLine;
  m_writer = writer;
}

void CPrintWriter::CheckOpen() const {
  if (!m_writer) VESK_THROW("vesk/io/PrintWriter", CIOException, "Writer closed.");
}

// --- forwarding -------------------------------------------------------------

void CPrintWriter::Write(const CUnicodeString& text, unsigned int offset, unsigned int length) {
  CheckOpen();
  m_writer->Write(text, offset, length);
}

void CPrintWriter::Write(const CUnicodeString& text) {
  CheckOpen();
  m_writer->Write(text);
}

void CPrintWriter::Write(const unsigned short* chars, unsigned int offset, unsigned int length) {
  CheckOpen();
  m_writer->Write(chars, offset, length);
}

void CPrintWriter::Write(const unsigned short* chars, unsigned int length) {
  CheckOpen();
  m_writer->Write(chars, length);
}

void CPrintWriter::Write(const unsigned short* chars) {
  CheckOpen();
  m_writer->Write(chars);
}

void CPrintWriter::Write(unsigned short ch) {
  CheckOpen();
  m_writer->Write(ch);
}

void CPrintWriter::Flush() {
  CheckOpen();
  m_writer->Flush();
}

void CPrintWriter::Close() {
  if (!m_writer) return;
  m_writer->Flush();
  InternalClose();
}

void CPrintWriter::InternalClose() {
  CWriter* writer = m_writer;
  m_writer = nullptr;  // closed even when the wrapped close fails
  writer->Close();
}

// --- printing ---------------------------------------------------------------

void CPrintWriter::PrintFormatted(const unsigned short* format, ...) {
  m_formatBuffer[0] = 0;
  std::va_list args;
  va_start(args, format);
  platform::Utf16VFormat(m_formatBuffer, kFormatBufferSize, format, args);
  va_end(args);
  Write(m_formatBuffer, 0, platform::Utf16Length(m_formatBuffer));
}

void CPrintWriter::Print(const char* text) {
  if (!text) return;
  m_scratchText = text;
  Write(m_scratchText);
}

void CPrintWriter::Print(const CUnicodeString& text) { Write(text); }

void CPrintWriter::Print(const CString& text) {
  m_scratchText = static_cast<const char*>(text);
  Write(m_scratchText);
}

void CPrintWriter::Print(const unsigned short* text) { Write(text); }

void CPrintWriter::Print(bool value) {
  const unsigned short* text = value ? kTrue : kFalse;
  unsigned int length = platform::Utf16Length(text);
  for (unsigned int i = 0; i <= length; ++i) m_formatBuffer[i] = text[i];
  Write(m_formatBuffer, 0, length);
}

void CPrintWriter::Print(short value) { PrintFormatted(kFormatD, static_cast<int>(value)); }

void CPrintWriter::Print(int value) { PrintFormatted(kFormatD, value); }

void CPrintWriter::Print(unsigned int value) { PrintFormatted(kFormatU, value); }

void CPrintWriter::Print(unsigned long long value) {
  PrintFormatted(kFormatU, static_cast<unsigned int>(value));
}

void CPrintWriter::Print(float value) { PrintFormatted(kFormatF, static_cast<double>(value)); }

void CPrintWriter::Print(double value) { PrintFormatted(kFormatLf, value); }

void CPrintWriter::Print(char value) { PrintFormatted(kFormatC, static_cast<int>(value)); }

void CPrintWriter::Print(unsigned short value) {
  PrintFormatted(kFormatLc, static_cast<int>(value));
}

void CPrintWriter::PrintUnsignedChar(unsigned char value) {
  PrintFormatted(kFormatD, static_cast<int>(value));
}

void CPrintWriter::PrintUnsignedShort(unsigned short value) {
  PrintFormatted(kFormatHu, static_cast<unsigned int>(value));
}

void CPrintWriter::PrintInt(int value) { PrintFormatted(kFormatD, value); }

void CPrintWriter::PrintUnsignedInt(unsigned int value) { PrintFormatted(kFormatU, value); }

// --- lines ------------------------------------------------------------------

void CPrintWriter::WriteNewLine() {
  CheckOpen();
  if (!m_endOfLine.IsEmpty()) {
    m_writer->Write(m_endOfLine);
  } else {
    m_writer->Write(kCrLf, 0, 2);
  }
  if (m_autoFlush) m_writer->Flush();
}

void CPrintWriter::Println() {
  CheckOpen();
  WriteNewLine();
}

void CPrintWriter::Println(bool value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(short value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(int value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(unsigned int value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(float value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(double value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(char value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(unsigned short value) {
  Print(value);
  WriteNewLine();
}

void CPrintWriter::Println(const CString& text) {
  Print(text);
  WriteNewLine();
}

void CPrintWriter::Println(const unsigned short* text) {
  Print(text);
  WriteNewLine();
}

void CPrintWriter::Println(const CUnicodeString& text) {
  Print(text);
  WriteNewLine();
}

void CPrintWriter::GetEndOfLine(CUnicodeString& out) const {
  if (m_endOfLine.IsEmpty()) {
    out = kCrLf;
  } else {
    out = m_endOfLine;
  }
}

}  // namespace io
}  // namespace vesk
