/// \file
/// The resource-string loader: texts of the library's string resources
/// (messages and formats that are kept out of the code, so a localised
/// build replaces them without touching it).
#ifndef VESK_LOADSTRING_H
#define VESK_LOADSTRING_H

#include "vesk/base/Export.h"
#include "vesk/base/String.h"

namespace vesk {

/// Replaces text by the library's resource string id and returns true; when
/// the library has no string of that id, empties text and returns false.
/// Named so as not to meet the host's LoadString macro on Windows.
/// Allocation failures throw CMemoryException.
VESK_API bool LoadResourceString(unsigned int id, vesk::base::CString& text);

}  // namespace vesk

#endif
