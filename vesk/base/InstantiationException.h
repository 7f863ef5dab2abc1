/// \file
/// vesk::base::CInstantiationException
#ifndef VESK_BASE_INSTANTIATIONEXCEPTION_H
#define VESK_BASE_INSTANTIATIONEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/String.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CInstantiationException (base vesk::base::CException).
class VESK_API CInstantiationException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CInstantiationException);

  /// Records the throw site, description and message as CException does, and
  /// a copy of className (null or "" leaves it empty; a failed copy leaves it
  /// empty too).
  CInstantiationException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
      const char* message, const char* className);
  /// The class name given at the throw site (empty when none).
  const CString& GetClassName() const { return m_className; }

 private:
  CString m_className;
};

}  // namespace base
}  // namespace vesk

#endif
