/// \file
/// CSocketImplFactory: makes the implementations behind sockets.
#ifndef VESK_NET_SOCKETIMPLFACTORY_H
#define VESK_NET_SOCKETIMPLFACTORY_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"
#include "vesk/net/SocketImpl.h"

namespace vesk {
namespace net {

/// Creates a new, not yet created (closed) socket implementation per call.
class VESK_API CSocketImplFactory : public vesk::base::CBase {
 public:
  /// Virtual: factories are deleted through the base.
  virtual ~CSocketImplFactory();
  /// A new implementation; throws CMemoryException when there is no memory.
  virtual vesk::base::CRef<CSocketImpl> CreateSocketImpl() = 0;

 protected:
  /// Only implementations are built.
  CSocketImplFactory() {}

 private:
  CSocketImplFactory(const CSocketImplFactory&);
  CSocketImplFactory& operator=(const CSocketImplFactory&);
};

}  // namespace net
}  // namespace vesk

#endif
