#include "vesk/io/FileWriter.h"

#include "vesk/base/UnicodeString.h"
#include "vesk/io/IOException.h"
#include "vesk/io/internal/FileStreams.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CFileWriter, CFileWriter, "vesk::io::CFileWriter", "vesk::io::CWriter")

namespace {
const char kSource[] = "vesk/io/FileWriter";
}

CFileWriter::CFileWriter(const IO::Location& location)
    : m_file(internal::OpenStreamFile(location, IO::File::kWrite, IO::File::kModeWrite, kSource,
                                      "Failed to open the underlying file.")) {}

CFileWriter::~CFileWriter() {
  if (m_file->IsOpen()) {
    try {
      Close();
    } catch (const CIOException&) {
    }
  }
  internal::DestroyStreamFile(m_file);
}

void CFileWriter::CheckOpen() const {
  if (!m_file->IsOpen()) VESK_THROW(kSource, CIOException, "Writer closed.");
}

void CFileWriter::InternalWrite(const unsigned short* chars, unsigned int offset,
                                unsigned int length) {
  if (m_file->WriteBin(chars + offset, static_cast<std::size_t>(length) * 2) != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to write the specified number of wide chars to the underlying file.");
  }
}

void CFileWriter::Write(const vesk::base::CUnicodeString& text, unsigned int offset,
                        unsigned int length) {
  CheckOpen();
  unsigned int size = text.GetLength();
  if (offset >= size) return;
  if (length > size - offset) length = size - offset;
  InternalWrite(text, offset, length);
}

void CFileWriter::Write(const vesk::base::CUnicodeString& text) {
  CheckOpen();
  if (!text.IsEmpty()) InternalWrite(text, 0, text.GetLength());
}

void CFileWriter::Write(const unsigned short* chars, unsigned int offset, unsigned int length) {
  CheckOpen();
  if (chars) InternalWrite(chars, offset, length);
}

void CFileWriter::Write(const unsigned short* chars, unsigned int length) {
  CheckOpen();
  if (chars) InternalWrite(chars, 0, length);
}

void CFileWriter::Write(const unsigned short* chars) {
  CheckOpen();
  unsigned int length = platform::Utf16Length(chars);
  if (length != 0) InternalWrite(chars, 0, length);
}

void CFileWriter::Write(unsigned short ch) {
  CheckOpen();
  if ((*m_file << ch).GetOutputStatus() != 0) {
    VESK_THROW(kSource, CIOException, "Failed to write the specified wide char to the underlying file.");
  }
}

void CFileWriter::Flush() {
  CheckOpen();
  if (m_file->Flush() != 0) VESK_THROW(kSource, CIOException, "Failed to flush the underlying file.");
}

void CFileWriter::Close() {
  CheckOpen();
  if (m_file->Close() != 0) VESK_THROW(kSource, CIOException, "Failed to close the underlying file.");
}

}  // namespace io
}  // namespace vesk
