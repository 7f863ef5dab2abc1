/// \file
/// The implementation object of CNativeFileOutputStream: its only state is
/// the host's file handle, kNoHandle once closed.
#ifndef VESK_IO_INTERNAL_NATIVEFILEOUTPUTSTREAMIW_H
#define VESK_IO_INTERNAL_NATIVEFILEOUTPUTSTREAMIW_H

#include "IO/FileHandle.h"
#include "vesk/base/Base.h"

namespace vesk {
namespace io {
namespace internal {

class CNativeFileOutputStreamIW : public vesk::base::CBase {
 public:
  /// Opens path (UTF-16) for writing: created when missing, never emptied;
  /// with append, positioned at the end. Throws CIOException "Access
  /// denied.", "Failed to open the specified file." or "Failed to move the
  /// file pointer to the end of the file.".
  CNativeFileOutputStreamIW(const unsigned short* path, bool append);
  ~CNativeFileOutputStreamIW() { Close(); }

  bool IsOpen() const { return m_handle != IO::host::kNoHandle; }
  /// Writes all length bytes at once; a failure or a short write throws
  /// CIOException "Failed to write the specified byte the the underlying
  /// file.".
  void Write(const char* data, unsigned int length);
  /// Forces written bytes to the device; throws CIOException "Failed to
  /// flush the buffers of the underlying file.".
  void Flush();
  /// Closes the handle when valid and marks it invalid.
  void Close() noexcept;

 private:
  CNativeFileOutputStreamIW(const CNativeFileOutputStreamIW&);
  CNativeFileOutputStreamIW& operator=(const CNativeFileOutputStreamIW&);

  IO::host::Handle m_handle;
};

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
