/// \file
/// IXMLTextToken: character data, entities expanded.
#ifndef VESK_IO_IXMLTEXTTOKEN_H
#define VESK_IO_IXMLTEXTTOKEN_H

#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

/// Character data, entities expanded.
class VESK_API IXMLTextToken : public virtual IXMLToken {
 public:
  /// Nothing to set up.
  IXMLTextToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLTextToken() override {}
  /// The text.
  virtual const vesk::base::CUnicodeString& GetText() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
