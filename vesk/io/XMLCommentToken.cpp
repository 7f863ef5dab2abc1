#include "vesk/io/XMLCommentToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLCommentToken, CXMLCommentToken, "vesk::io::CXMLCommentToken",
                     "vesk::io::CXMLToken")

CXMLCommentToken::~CXMLCommentToken() {}

}  // namespace io
}  // namespace vesk
