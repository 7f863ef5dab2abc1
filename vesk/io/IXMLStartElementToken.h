/// \file
/// IXMLStartElementToken: a start element with its attributes.
#ifndef VESK_IO_IXMLSTARTELEMENTTOKEN_H
#define VESK_IO_IXMLSTARTELEMENTTOKEN_H

#include "vesk/io/IXMLElementToken.h"
#include "vesk/io/XMLAttributeList.h"

namespace vesk {
namespace io {

/// A start element: the element names and its attributes in document order.
class VESK_API IXMLStartElementToken : public virtual IXMLElementToken {
 public:
  /// Nothing to set up.
  IXMLStartElementToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLStartElementToken() override {}
  /// The attributes, with their counts, lookups and index access.
  virtual const CXMLAttributeList& GetAttributes() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
