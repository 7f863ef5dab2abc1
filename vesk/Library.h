/// \file
/// Library start and stop. A client calls vesk::Initialize before using the
/// library and vesk::Terminate at the end; the calls nest. Both are meant to
/// be called from one thread (the counter is not locked).
#ifndef VESK_LIBRARY_H
#define VESK_LIBRARY_H

#include "vesk/base/Export.h"

namespace vesk {

/// Counts one more user and returns the new count; the first call starts the
/// file layer. The count saturates at 0x7FFFFFFF (the call then changes
/// nothing and returns 0x7FFFFFFF).
VESK_API int Initialize();
/// Counts one user less and returns the new count; the call that reaches 0
/// ends the file layer. Without a matching Initialize it returns 0.
VESK_API int Terminate();

}  // namespace vesk

#endif
