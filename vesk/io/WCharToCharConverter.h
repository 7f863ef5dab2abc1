/// \file
/// CWCharToCharConverter: turns 16-bit character units into the bytes of one
/// encoding. Converters are created by encoding name through the factories
/// registered with CWCharToCharConverterFactory.
#ifndef VESK_IO_WCHARTOCHARCONVERTER_H
#define VESK_IO_WCHARTOCHARCONVERTER_H

#include "vesk/base/Object.h"
#include "vesk/base/Ref.h"
#include "vesk/base/String.h"

namespace vesk {
namespace io {

/// An encoder from UTF-16 units to bytes. A converter may carry state from
/// one Convert call to the next (a surrogate half, for instance); Reset
/// forgets it. Converters are copyable and used by one thread at a time.
class VESK_API CWCharToCharConverter : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CWCharToCharConverter);

  /// Nothing to release but the name.
  ~CWCharToCharConverter() override;

  /// Encodes units[offset .. offset + length) into
  /// bytes[byteOffset .. byteOffset + byteLength). Returns the number of
  /// bytes written, or -1 when the output area is too small (bytes of the
  /// units that did fit may have been stored but are not counted).
  virtual int Convert(const unsigned short* units, unsigned int offset, unsigned int length,
                      char* bytes, unsigned int byteOffset, unsigned int byteLength) = 0;
  /// Forgets any state carried between calls; returns the idle state value.
  virtual unsigned short Reset() = 0;
  /// Writes the encoding's byte-order mark. In: *size is the room in bytes.
  /// Out: *size is the number of mark bytes written, the number needed when
  /// bytes is null, or 0 when the room is too small.
  virtual void GetByteOrderMark(char* bytes, unsigned int* size) = 0;

  /// The encoding name.
  const vesk::base::CString& GetEncoding() const { return m_encoding; }

  /// A new converter from the factory registered under name. Throws
  /// CIllegalArgumentException "Invalid encoding." for a null or empty
  /// name and CUnsupportedEncodingException when no factory has the name.
  static vesk::base::CRef<CWCharToCharConverter> GetConverter(const char* name);
  /// As above; an empty name is reported as an unsupported (empty) encoding.
  static vesk::base::CRef<CWCharToCharConverter> GetConverter(const vesk::base::CString& name);

 protected:
  ///@{
  /// Throws CIllegalArgumentException "Invalid encoding." for a null or
  /// empty name.
  explicit CWCharToCharConverter(const char* encoding);
  explicit CWCharToCharConverter(const vesk::base::CString& encoding);
  ///@}
  /// Copies the encoding name.
  CWCharToCharConverter(const CWCharToCharConverter& other);
  /// Copies the encoding name.
  CWCharToCharConverter& operator=(const CWCharToCharConverter& other);

 private:
  vesk::base::CString m_encoding;
};

}  // namespace io
}  // namespace vesk

#endif
