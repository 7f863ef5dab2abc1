/// \file
/// The small file layer the library's file streams stand on. Internal: not
/// installed. This first part holds the layer's start and stop.
#ifndef VESK_IO_LAYER_IO_H
#define VESK_IO_LAYER_IO_H

#include "vesk/base/Export.h"

namespace IO {

/// Starts the file layer. useThreads: callers may use it from several
/// threads; applicationName: a UTF-16 name for diagnostics (may be null).
/// Returns the nesting depth after the call.
VESK_API int Init(bool useThreads, const unsigned short* applicationName);
/// Ends one Init; returns the nesting depth after the call (0 when it was
/// not started).
VESK_API int End();
/// Current nesting depth (0: not started). For tests.
VESK_API int InitDepth();

}  // namespace IO

#endif
