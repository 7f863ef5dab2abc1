#include "vesk/net/SocketImplFactory.h"

namespace vesk {
namespace net {

CSocketImplFactory::~CSocketImplFactory() {}

}  // namespace net
}  // namespace vesk
