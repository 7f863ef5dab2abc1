/// \file
/// COutputStream: the contract of a sink of bytes.
#ifndef VESK_IO_OUTPUTSTREAM_H
#define VESK_IO_OUTPUTSTREAM_H

#include "vesk/base/Object.h"

namespace vesk {
namespace io {

/// A sink of bytes. Implementations supply Write(char), Flush and Close; the
/// array writes default to one Write(char) per byte.
class VESK_API COutputStream : public vesk::base::CObject {
  VESK_DECLARE_CLASS(COutputStream);

  /// Virtual: streams are deleted through the contract. Flushes and closes
  /// nothing.
  ~COutputStream() override;

  /// Writes buffer[offset .. offset + length). Default: nothing for a null
  /// buffer, else Write(char) per byte; a range whose end wraps past 2^32
  /// writes nothing.
  virtual void Write(const char* buffer, unsigned int offset, unsigned int length);
  /// Default: nothing for a null buffer, else Write(buffer, 0, length).
  virtual void Write(const char* buffer, unsigned int length);
  /// Writes one byte.
  virtual void Write(char byte) = 0;
  /// Pushes buffered bytes on to their destination.
  virtual void Flush() = 0;
  /// Releases the sink; later writes fail.
  virtual void Close() = 0;

 protected:
  /// Only implementations are built.
  COutputStream() {}
};

}  // namespace io
}  // namespace vesk

#endif
