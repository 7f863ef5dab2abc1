/// \file
/// ISerializable: objects that write themselves to a data stream and read
/// themselves back.
#ifndef VESK_IO_ISERIALIZABLE_H
#define VESK_IO_ISERIALIZABLE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace io {

class CDataInputStream;
class CDataOutputStream;

/// An object whose state travels through the data streams. The streams add
/// no header, tag or length: the object's bytes are exactly what WriteTo
/// writes, and ReadFrom must read them back in the same order.
class VESK_API ISerializable {
 public:
  /// Restores the object's state from in.
  virtual void ReadFrom(CDataInputStream& in) = 0;
  /// Writes the object's state to out.
  virtual void WriteTo(CDataOutputStream& out) const = 0;

 protected:
  /// Only implementations are built.
  ISerializable() {}
  /// Copies nothing: the interface has no data.
  ISerializable(const ISerializable&) {}
  /// Assigns nothing: the interface has no data.
  ISerializable& operator=(const ISerializable&) { return *this; }
  /// Protected: objects are not deleted through the interface.
  virtual ~ISerializable() {}
};

}  // namespace io
}  // namespace vesk

#endif
