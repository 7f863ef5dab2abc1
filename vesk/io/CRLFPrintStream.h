/// \file
/// CCRLFPrintStream: a print stream whose lines always end in CR LF.
#ifndef VESK_IO_CRLFPRINTSTREAM_H
#define VESK_IO_CRLFPRINTSTREAM_H

#include "vesk/io/PrintStream.h"

namespace vesk {
namespace io {

/// A CPrintStream with the line separator fixed to CR LF on every host.
class VESK_API CCRLFPrintStream : public CPrintStream {
  VESK_DECLARE_CLASS(CCRLFPrintStream);

  /// Borrows stream. Throws CIllegalArgumentException for null.
  CCRLFPrintStream(COutputStream* stream, bool autoFlush);
  /// Shares stream. Throws CIllegalArgumentException for an empty handle.
  CCRLFPrintStream(const vesk::base::CRef<COutputStream>& stream, bool autoFlush);
  /// Neither flushes nor closes the wrapped stream.
  ~CCRLFPrintStream() override;

 private:
  static COutputStream* Checked(COutputStream* stream);
  static const vesk::base::CRef<COutputStream>& Checked(
      const vesk::base::CRef<COutputStream>& stream);
};

}  // namespace io
}  // namespace vesk

#endif
