/// \file
/// IXMLEndElementToken: an end element.
#ifndef VESK_IO_IXMLENDELEMENTTOKEN_H
#define VESK_IO_IXMLENDELEMENTTOKEN_H

#include "vesk/io/IXMLElementToken.h"

namespace vesk {
namespace io {

/// An end element: the element names only.
class VESK_API IXMLEndElementToken : public virtual IXMLElementToken {
 public:
  /// Nothing to set up.
  IXMLEndElementToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLEndElementToken() override {}
};

}  // namespace io
}  // namespace vesk

#endif
