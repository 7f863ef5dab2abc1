#include "vesk/io/DebugPrintStream.h"

#include <cstdint>
#include <cstring>

#include "vesk/io/IOException.h"
#include "vesk/platform/DebugSink.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CString;
using vesk::platform::DebugPrintf;

namespace {
const char* const kSource = "vesk/io/DebugPrintStream";

// The number a "%ld" given a double has always printed here: the low 32 bits
// of the double's IEEE bit pattern, as a signed value.
int LowBitsOf(double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return static_cast<int>(static_cast<std::uint32_t>(bits));
}
}  // namespace

VESK_IMPLEMENT_CLASS(CDebugPrintStream, CDebugPrintStream, "vesk::io::CDebugPrintStream",
                     "vesk::io::CPrintStream")

CDebugPrintStream::CDebugPrintStream() : m_open(true) {}

CDebugPrintStream::~CDebugPrintStream() {}

void CDebugPrintStream::CheckOpen() const {
  if (!m_open) VESK_THROW(kSource, CIOException, "Stream closed.");
}

void CDebugPrintStream::Write(const char*, unsigned int, unsigned int) {
  CheckOpen();
  VESK_THROW(kSource, CIOException, "Unsupported on class CDebugPrintStream.");
}

void CDebugPrintStream::Write(const char*, unsigned int) {
  CheckOpen();
  VESK_THROW(kSource, CIOException, "Unsupported on class CDebugPrintStream.");
}

void CDebugPrintStream::Write(char) {
  CheckOpen();
  VESK_THROW(kSource, CIOException, "Unsupported on class CDebugPrintStream.");
}

void CDebugPrintStream::Flush() { CheckOpen(); }

void CDebugPrintStream::Close() { m_open = false; }

void CDebugPrintStream::Print(const CString& text) {
  CheckOpen();
  if (!text.IsEmpty()) DebugPrintf("%s", static_cast<const char*>(text));
}

void CDebugPrintStream::Print(const char* text) {
  CheckOpen();
  if (text && *text) DebugPrintf("%s", text);
}

void CDebugPrintStream::Print(char value) {
  CheckOpen();
  DebugPrintf("%c", value);
}

void CDebugPrintStream::Print(double value) {
  CheckOpen();
  DebugPrintf("%d", LowBitsOf(value));
}

void CDebugPrintStream::Print(float value) {
  CheckOpen();
  DebugPrintf("%f", static_cast<double>(value));
}

void CDebugPrintStream::Print(unsigned int) {
  CheckOpen();
  // The format has no conversion: the two letters are the whole output.
  DebugPrintf("%s", "lu");
}

void CDebugPrintStream::Print(int value) {
  CheckOpen();
  DebugPrintf("%d", value);
}

void CDebugPrintStream::Print(short value) {
  CheckOpen();
  DebugPrintf("%d", value);
}

void CDebugPrintStream::Print(bool value) {
  CheckOpen();
  DebugPrintf("%s", value ? "true" : "false");
}

void CDebugPrintStream::Println(const CString& text) {
  CheckOpen();
  if (!text.IsEmpty()) DebugPrintf("%s\n", static_cast<const char*>(text));
}

void CDebugPrintStream::Println(const char* text) {
  CheckOpen();
  if (text && *text) DebugPrintf("%s\n", text);
}

void CDebugPrintStream::Println(char value) {
  CheckOpen();
  DebugPrintf("%c\n", value);
}

void CDebugPrintStream::Println(double value) {
  CheckOpen();
  DebugPrintf("%lf\n", value);
}

void CDebugPrintStream::Println(float value) {
  CheckOpen();
  DebugPrintf("%f\n", static_cast<double>(value));
}

void CDebugPrintStream::Println(unsigned int value) {
  CheckOpen();
  DebugPrintf("%u\n", value);
}

void CDebugPrintStream::Println(int value) {
  CheckOpen();
  DebugPrintf("%d\n", value);
}

void CDebugPrintStream::Println(short value) {
  CheckOpen();
  DebugPrintf("%d\n", value);
}

void CDebugPrintStream::Println(bool value) {
  CheckOpen();
  DebugPrintf("%s\n", value ? "true" : "false");
}

void CDebugPrintStream::Println() {
  CheckOpen();
  DebugPrintf("\n");
}

}  // namespace io
}  // namespace vesk
