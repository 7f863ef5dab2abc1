/// \file
/// CConcreteWCharToCharConverterFactory<C>: the factory of one converter class.
#ifndef VESK_IO_CONCRETEWCHARTOCHARCONVERTERFACTORY_H
#define VESK_IO_CONCRETEWCHARTOCHARCONVERTERFACTORY_H

#include "vesk/io/WCharToCharConverterFactory.h"

namespace vesk {
namespace io {

/// Registers the converter class C under encoding; CreateConverter makes a
/// new C with its default encoding name. Declare one as a static object to
/// make an encoding available for the life of its module:
///
///     static CConcreteWCharToCharConverterFactory<CMyConverter> s_factory("MY-NAME");
template <class C>
class CConcreteWCharToCharConverterFactory : public CWCharToCharConverterFactory {
 public:
  /// See CWCharToCharConverterFactory: encoding is kept, not copied.
  explicit CConcreteWCharToCharConverterFactory(const char* encoding)
      : CWCharToCharConverterFactory(encoding) {}

  /// A new C in a fresh handle; CMemoryException when memory runs out.
  vesk::base::CRef<CWCharToCharConverter> CreateConverter() override {
    return vesk::base::CRef<CWCharToCharConverter>(
        new ("vesk/io/WCharToCharConverterFactory", __LINE__) C());
  }
};

}  // namespace io
}  // namespace vesk

#endif
