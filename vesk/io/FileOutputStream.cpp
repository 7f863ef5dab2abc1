#include "vesk/io/FileOutputStream.h"

#include "vesk/io/IOException.h"
#include "vesk/io/internal/FileStreams.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CFileOutputStream, CFileOutputStream, "vesk::io::CFileOutputStream",
                     "vesk::io::COutputStream")

namespace {
const char kSource[] = "vesk/io/FileOutputStream";
}

CFileOutputStream::CFileOutputStream(const IO::Location& location, bool append)
    : m_file(internal::OpenStreamFile(location, IO::File::kWrite,
                                      append ? IO::File::kModeAppend : IO::File::kModeWrite,
                                      kSource, "Failed to open the underlying file.")) {}

CFileOutputStream::~CFileOutputStream() {
  if (m_file->IsOpen()) {
    try {
      Close();
    } catch (const CIOException&) {
    }
  }
  internal::DestroyStreamFile(m_file);
}

void CFileOutputStream::CheckOpen() const {
  if (!m_file->IsOpen()) VESK_THROW(kSource, CIOException, "Stream closed.");
}

void CFileOutputStream::InternalWrite(const char* buffer, unsigned int offset,
                                      unsigned int length) {
  if (m_file->WriteBin(buffer + offset, length) != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to write the specified number of bytes to the underlying file.");
  }
}

void CFileOutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen();
  if (buffer) InternalWrite(buffer, offset, length);
}

void CFileOutputStream::Write(const char* buffer, unsigned int length) {
  CheckOpen();
  if (buffer) InternalWrite(buffer, 0, length);
}

void CFileOutputStream::Write(char byte) {
  CheckOpen();
  if ((*m_file << byte).GetOutputStatus() != 0) {
    VESK_THROW(kSource, CIOException, "Failed to write the specified byte the the underlying file.");
  }
}

void CFileOutputStream::Flush() {
  CheckOpen();
  if (m_file->Flush() != 0) VESK_THROW(kSource, CIOException, "Failed to flush the underlying file.");
}

void CFileOutputStream::Close() {
  CheckOpen();
  if (m_file->Close() != 0) VESK_THROW(kSource, CIOException, "Failed to close the underlying file.");
}

}  // namespace io
}  // namespace vesk
