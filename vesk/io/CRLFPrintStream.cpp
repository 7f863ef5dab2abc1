#include "vesk/io/CRLFPrintStream.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;

VESK_IMPLEMENT_CLASS(CCRLFPrintStream, CCRLFPrintStream, "vesk::io::CCRLFPrintStream",
                     "vesk::io::CPrintStream")

// The arguments are checked here first so that a bad one is reported from
// this class's own source.
COutputStream* CCRLFPrintStream::Checked(COutputStream* stream) {
  if (!stream) {
    VESK_THROW("vesk/io/CRLFPrintStream", CIllegalArgumentException, "Invalid output stream.");
  }
  return stream;
}

const CRef<COutputStream>& CCRLFPrintStream::Checked(const CRef<COutputStream>& stream) {
  if (stream.IsNull()) {
    VESK_THROW("vesk/io/CRLFPrintStream", CIllegalArgumentException, "Invalid ooutput stream.");
  }
  return stream;
}

CCRLFPrintStream::CCRLFPrintStream(COutputStream* stream, bool autoFlush)
    : CPrintStream(Checked(stream), autoFlush) {
  LineSeparator() = "\r\n";
}

CCRLFPrintStream::CCRLFPrintStream(const CRef<COutputStream>& stream, bool autoFlush)
    : CPrintStream(Checked(stream), autoFlush) {
  LineSeparator() = "\r\n";
}

CCRLFPrintStream::~CCRLFPrintStream() {}

}  // namespace io
}  // namespace vesk
