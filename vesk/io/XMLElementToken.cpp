#include "vesk/io/XMLElementToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLElementToken, CXMLElementToken, "vesk::io::CXMLElementToken",
                     "vesk::io::CXMLToken")

CXMLElementToken::~CXMLElementToken() {}

}  // namespace io
}  // namespace vesk
