#include "vesk/io/PrintStream.h"

#include <cstdio>
#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/LineEnd.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using vesk::base::CString;

VESK_IMPLEMENT_CLASS(CPrintStream, CPrintStream, "vesk::io::CPrintStream",
                     "vesk::io::COutputStream")

CPrintStream::CPrintStream()
    : m_stream(nullptr), m_autoFlush(false), m_lineSeparator(platform::kLineEnd) {
  m_formatBuffer[0] = '\0';
}

CPrintStream::CPrintStream(COutputStream* stream, bool autoFlush)
    : m_stream(stream), m_autoFlush(autoFlush) {
  if (!stream)
    VESK_THROW("vesk/io/PrintStream", CIllegalArgumentException, "Invalid output stream.");
  m_formatBuffer[0] = '\0';
  m_lineSeparator = platform::kLineEnd;
}

CPrintStream::CPrintStream(const CRef<COutputStream>& stream, bool autoFlush)
    : m_stream(stream.Get()), m_streamRef(stream), m_autoFlush(autoFlush) {
  // The handle form has its own message.
  if (!m_stream) {
    VESK_THROW("vesk/io/PrintStream", CIllegalArgumentException, "Invalid ooutput stream.");
  }
  m_formatBuffer[0] = '\0';
  m_lineSeparator = platform::kLineEnd;
}

CPrintStream::~CPrintStream() {}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/PrintStream", CIOException, "Stream closed.");
}

}  // namespace

void CPrintStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen(m_stream);
  m_stream->Write(buffer, offset, length);
}

void CPrintStream::Write(const char* buffer, unsigned int length) {
  CheckOpen(m_stream);
  m_stream->Write(buffer, length);
}

void CPrintStream::Write(char byte) {
  CheckOpen(m_stream);
  m_stream->Write(byte);
}

void CPrintStream::Flush() {
  CheckOpen(m_stream);
  m_stream->Flush();
}

void CPrintStream::Close() {
  if (!m_stream) return;
  m_stream->Flush();
  COutputStream* stream = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  stream->Close();
}

void CPrintStream::WriteNewLine() {
  CheckOpen(m_stream);
  m_stream->Write(static_cast<const char*>(m_lineSeparator), m_lineSeparator.GetLength());
  if (m_autoFlush) m_stream->Flush();
}

void CPrintStream::WriteFormatted(int length) {
  if (length < 0) return;
  if (static_cast<unsigned int>(length) >= sizeof(m_formatBuffer)) {
    length = static_cast<int>(sizeof(m_formatBuffer) - 1);
  }
  Write(m_formatBuffer, static_cast<unsigned int>(length));
}

void CPrintStream::Print(const CString& text) {
  if (text.IsEmpty()) return;
  Write(static_cast<const char*>(text), text.GetLength());
}

void CPrintStream::Print(const char* text) {
  if (!text) return;
  Write(text, static_cast<unsigned int>(std::strlen(text)));
}

void CPrintStream::Print(char value) {
  // The count comes from the formatter, so a NUL character is written too.
  WriteFormatted(std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%c", value));
}

void CPrintStream::Print(double value) {
  WriteFormatted(std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%g", value));
}

void CPrintStream::Print(float value) {
  WriteFormatted(
      std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%g", static_cast<double>(value)));
}

void CPrintStream::Print(unsigned int value) {
  WriteFormatted(std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%u", value));
}

void CPrintStream::Print(int value) {
  WriteFormatted(std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%d", value));
}

void CPrintStream::Print(short value) {
  WriteFormatted(std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%hd", value));
}

void CPrintStream::Print(bool value) {
  WriteFormatted(
      std::snprintf(m_formatBuffer, sizeof(m_formatBuffer), "%s", value ? "true" : "false"));
}

void CPrintStream::Println(const CString& text) {
  Print(text);
  WriteNewLine();
}

void CPrintStream::Println(const char* text) {
  Print(text);
  WriteNewLine();
}

void CPrintStream::Println(char value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println(double value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println(float value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println(unsigned int value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println(int value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println(short value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println(bool value) {
  Print(value);
  WriteNewLine();
}

void CPrintStream::Println() { WriteNewLine(); }

}  // namespace io
}  // namespace vesk
