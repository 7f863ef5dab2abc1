/// \file
/// IXMLSerializable: objects that write themselves as XML and read themselves
/// back.
#ifndef VESK_IO_IXMLSERIALIZABLE_H
#define VESK_IO_IXMLSERIALIZABLE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace io {

class CXMLReader;
class CXMLWriter;

/// An object with an XML form. The writer's WriteObject and the reader's
/// ReadObject call these and add no markup of their own: the object writes
/// and reads its own elements.
class VESK_API IXMLSerializable {
 public:
  /// Nothing to set up.
  IXMLSerializable() {}
  /// Virtual: objects may be deleted through the interface.
  virtual ~IXMLSerializable() {}
  /// Reads the object from reader.
  virtual void ReadXML(CXMLReader& reader) = 0;
  /// Writes the object to writer.
  virtual void WriteXML(CXMLWriter& writer) const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
