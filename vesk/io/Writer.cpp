#include "vesk/io/Writer.h"

#include "vesk/base/UnicodeString.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CWriter, CWriter, "vesk::io::CWriter", "vesk::base::CObject")

CWriter::~CWriter() {}

void CWriter::Write(const CUnicodeString& text, unsigned int offset, unsigned int length) {
  unsigned int textLength = text.GetLength();
  if (textLength == 0 || offset >= textLength) return;
  if (length > textLength - offset) length = textLength - offset;
  Write(static_cast<const unsigned short*>(text), offset, length);
}

void CWriter::Write(const CUnicodeString& text) {
  if (text.IsEmpty()) return;
  Write(text, 0, text.GetLength());
}

void CWriter::Write(const unsigned short* chars, unsigned int length) {
  if (!chars) return;
  Write(chars, 0, length);
}

void CWriter::Write(const unsigned short* chars) {
  if (!chars) return;
  Write(chars, 0, platform::Utf16Length(chars));
}

void CWriter::Write(unsigned short ch) { Write(&ch, 0, 1); }

}  // namespace io
}  // namespace vesk
