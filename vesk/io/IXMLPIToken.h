/// \file
/// IXMLPIToken: a processing instruction.
#ifndef VESK_IO_IXMLPITOKEN_H
#define VESK_IO_IXMLPITOKEN_H

#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

/// A processing instruction.
class VESK_API IXMLPIToken : public virtual IXMLToken {
 public:
  /// Nothing to set up.
  IXMLPIToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLPIToken() override {}
  /// The target, the name after "<?".
  virtual const vesk::base::CUnicodeString& GetTarget() const = 0;
  /// The data after the target.
  virtual const vesk::base::CUnicodeString& GetData() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
