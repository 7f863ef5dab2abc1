/// \file
/// IO::Location: where a file of the file layer lives. Installed: the file
/// streams and the XML reader and writer take one in their constructors.
#ifndef VESK_IO_LAYER_LOCATION_H
#define VESK_IO_LAYER_LOCATION_H

#include "vesk/base/Export.h"

namespace IO {

/// A file path. The path is kept as UTF-8 text, the host's file-name form on
/// POSIX; a UTF-16 path is converted on construction (a lone surrogate
/// becomes '?'). A null path is kept as the empty path, which no file can be
/// opened at. Copies are independent.
class VESK_API Location {
 public:
  /// A location from a UTF-8 path (null: the empty path).
  explicit Location(const char* utf8Path);
  /// A location from a zero-terminated UTF-16 path (null: the empty path).
  explicit Location(const unsigned short* utf16Path);
  /// Copies the path. Throws vesk::base::CMemoryException when no memory is left.
  Location(const Location& other);
  /// Replaces the path by a copy of other's.
  Location& operator=(const Location& other);
  /// Frees the path.
  ~Location();

  /// The path as zero-terminated UTF-8; never null.
  const char* GetPath() const { return m_path; }
  /// Whether the path is empty.
  bool IsEmpty() const { return m_path[0] == '\0'; }

 private:
  char* m_path;
};

}  // namespace IO

#endif
