#include "vesk/io/FileInputStream.h"

#include "vesk/io/IOException.h"
#include "vesk/io/internal/FileStreams.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CFileInputStream, CFileInputStream, "vesk::io::CFileInputStream",
                     "vesk::io::CInputStream")

namespace {
const char kSource[] = "vesk/io/FileInputStream";
}

CFileInputStream::CFileInputStream(const IO::Location& location)
    : m_file(internal::OpenStreamFile(location, IO::File::kRead, IO::File::kModeRead, kSource,
                                      "An error occurred while trying to open file.")) {}

CFileInputStream::~CFileInputStream() { internal::DestroyStreamFile(m_file); }

void CFileInputStream::CheckOpen() const {
  if (!m_file->IsOpen()) VESK_THROW(kSource, CIOException, "Stream closed.");
}

unsigned int CFileInputStream::GetAvailable() const {
  CheckOpen();
  std::uint64_t remaining = 0;
  if (m_file->GetRemainingLength(&remaining) != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to get the number of available bytes of the underlying file.");
  }
  if (remaining > 0xFFFFFFFFu) VESK_THROW(kSource, CIOException, "64-bit file sizes not supported");
  return static_cast<unsigned int>(remaining);
}

int CFileInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen();
  if (!buffer) return Skip(length);
  if (length == 0) return 0;
  std::size_t read = 0;
  unsigned int status = m_file->ReadBin(buffer + offset, length, &read);
  // Reaching the end during the read is no failure: the count tells, and it
  // is 0 (not -1) at the end of the file.
  if (status != 0 && status != IO::File::kStatusEndOfData) {
    VESK_THROW(kSource, CIOException,
               "Failed to read the specified number of bytes from the underlying file.");
  }
  return static_cast<int>(read);
}

int CFileInputStream::Read(char* buffer, unsigned int length) {
  return CFileInputStream::Read(buffer, 0, length);
}

int CFileInputStream::Read() {
  CheckOpen();
  unsigned char byte = 0;
  unsigned int status = m_file->Read(&byte);
  if (status == IO::File::kStatusEndOfData) {
    VESK_THROW(kSource, CIOException, "End of stream reached.");
  }
  if (status != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to read the specified number of bytes from the underlying file.");
  }
  return static_cast<signed char>(byte);
}

int CFileInputStream::Skip(unsigned int count) {
  CheckOpen();
  return internal::SkipInFile(*m_file, count, 1, kSource);
}

void CFileInputStream::Reset() {
  CheckOpen();
  if (m_file->SetPosition(0) != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to set the position of file pointer in the underlying file.");
  }
}

void CFileInputStream::Close() {
  CheckOpen();
  if (m_file->Close() != 0) VESK_THROW(kSource, CIOException, "Failed to close the underlying file.");
}

}  // namespace io
}  // namespace vesk
