#include "vesk/io/internal/InputStreamInputSource.h"

namespace vesk {
namespace io {
namespace internal {

XMLSize_t CInputStreamBinInputStream::readBytes(XMLByte* const toFill, const XMLSize_t maxToRead) {
  // The scanner asks for its raw buffer's size (tens of KiB); a stream read
  // takes a 32-bit count.
  unsigned int length = maxToRead > 0x40000000u ? 0x40000000u : static_cast<unsigned int>(maxToRead);
  if (length == 0) return 0;
  int count = m_stream->Read(reinterpret_cast<char*>(toFill), 0, length);
  if (count <= 0) return 0;
  // A stream that claims more than it was asked for would overrun the
  // scanner's buffer; take no more than the request.
  XMLSize_t delivered = static_cast<unsigned int>(count) > length ? length : static_cast<XMLSize_t>(count);
  m_position += delivered;
  return delivered;
}

xercesc::BinInputStream* CInputStreamInputSource::makeStream() const {
  return new CInputStreamBinInputStream(m_stream);
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
