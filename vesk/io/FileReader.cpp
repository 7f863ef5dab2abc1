#include "vesk/io/FileReader.h"

#include "vesk/io/IOException.h"
#include "vesk/io/internal/FileStreams.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CFileReader, CFileReader, "vesk::io::CFileReader", "vesk::io::CReader")

namespace {

const char kSource[] = "vesk/io/FileReader";

// Opens the file and checks that it holds whole units.
IO::File* OpenUnitFile(const IO::Location& location) {
  IO::File* file = internal::OpenStreamFile(location, IO::File::kRead, IO::File::kModeRead,
                                            kSource, "Failed to open the underlying file.");
  std::uint64_t length = 0;
  const char* problem = nullptr;
  if (file->GetDataLength(&length) != 0) {
    problem = "Failed to get the length of the underlying file.";
  } else if (length % 2 != 0) {
    problem = "Invalid unicode file: the file length must be even.";
  }
  if (problem) {
    internal::DestroyStreamFile(file);
    VESK_THROW(kSource, CIOException, problem);
  }
  return file;
}

}  // namespace

CFileReader::CFileReader(const IO::Location& location) : m_file(OpenUnitFile(location)) {}

CFileReader::~CFileReader() { internal::DestroyStreamFile(m_file); }

void CFileReader::CheckOpen() const {
  if (!m_file->IsOpen()) VESK_THROW(kSource, CIOException, "Reader closed.");
}

int CFileReader::Read(unsigned short* buffer, unsigned int offset, unsigned int length) {
  CheckOpen();
  if (!buffer) return Skip(length);
  if (length == 0) return 0;
  std::size_t read = 0;
  // Every short read is a failure here, reaching the end included: the
  // reader's array reads expect the units asked for.
  if (m_file->ReadBin(buffer + offset, static_cast<std::size_t>(length) * 2, &read) != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to read the specified number of wide chars from the underlying file.");
  }
  return static_cast<int>(read / 2);
}

int CFileReader::Read(unsigned short* buffer, unsigned int length) {
  return CFileReader::Read(buffer, 0, length);
}

int CFileReader::Read() {
  CheckOpen();
  unsigned short unit = 0;
  unsigned int status = m_file->Read(&unit);
  if (status == IO::File::kStatusEndOfData) {
    VESK_THROW(kSource, CIOException, "End of stream reached.");
  }
  if (status != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to read the specified number of wide chars from the underlying file.");
  }
  return unit;
}

int CFileReader::Skip(unsigned int count) {
  CheckOpen();
  return internal::SkipInFile(*m_file, count, 2, kSource);
}

void CFileReader::Reset() {
  CheckOpen();
  if (m_file->SetPosition(0) != 0) {
    VESK_THROW(kSource, CIOException,
               "Failed to set the position of file pointer in the underlying file.");
  }
}

void CFileReader::Close() {
  CheckOpen();
  if (m_file->Close() != 0) VESK_THROW(kSource, CIOException, "Failed to close the underlying file.");
}

}  // namespace io
}  // namespace vesk
