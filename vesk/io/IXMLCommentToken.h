/// \file
/// IXMLCommentToken: a comment, without its "<!--" and "-->".
#ifndef VESK_IO_IXMLCOMMENTTOKEN_H
#define VESK_IO_IXMLCOMMENTTOKEN_H

#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

/// A comment, without its "<!--" and "-->".
class VESK_API IXMLCommentToken : public virtual IXMLToken {
 public:
  /// Nothing to set up.
  IXMLCommentToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLCommentToken() override {}
  /// The comment text.
  virtual const vesk::base::CUnicodeString& GetText() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
