/// \file
/// The Xerces-C input source over a CInputStream: the scanner pulls the
/// document's bytes through the stream's array reads, so a document is never
/// held whole in memory. The scanner detects the encoding itself.
#ifndef VESK_IO_INTERNAL_INPUTSTREAMINPUTSOURCE_H
#define VESK_IO_INTERNAL_INPUTSTREAMINPUTSOURCE_H

#include <xercesc/sax/InputSource.hpp>
#include <xercesc/util/BinInputStream.hpp>

#include "vesk/base/Ref.h"
#include "vesk/io/InputStream.h"

namespace vesk {
namespace io {
namespace internal {

/// The byte stream the scanner reads: Read(buffer, 0, length) of the wrapped
/// stream; the position is the count of bytes delivered so far. An end
/// (-1) or an empty read ends the document; exceptions of the stream pass
/// through the scanner to the caller.
class CInputStreamBinInputStream : public xercesc::BinInputStream {
 public:
  explicit CInputStreamBinInputStream(CInputStream* stream) : m_stream(stream), m_position(0) {}

  XMLFilePos curPos() const override { return m_position; }
  XMLSize_t readBytes(XMLByte* const toFill, const XMLSize_t maxToRead) override;
  const XMLCh* getContentType() const override { return nullptr; }

 private:
  CInputStream* m_stream;
  XMLFilePos m_position;
};

/// The input source of the document: hands the scanner a new
/// CInputStreamBinInputStream over the stream. A stream given by CRef is
/// kept alive by the source; a plain pointer is borrowed.
class CInputStreamInputSource : public xercesc::InputSource {
 public:
  CInputStreamInputSource(CInputStream* stream, const vesk::base::CRef<CInputStream>& owner)
      : m_stream(stream), m_owner(owner) {}

  xercesc::BinInputStream* makeStream() const override;

 private:
  CInputStream* m_stream;
  vesk::base::CRef<CInputStream> m_owner;
};

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
