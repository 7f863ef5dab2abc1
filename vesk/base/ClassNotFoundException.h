/// \file
/// vesk::base::CClassNotFoundException
#ifndef VESK_BASE_CLASSNOTFOUNDEXCEPTION_H
#define VESK_BASE_CLASSNOTFOUNDEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/String.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CClassNotFoundException (base vesk::base::CException).
class VESK_API CClassNotFoundException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CClassNotFoundException);

  /// Records the throw site, description and message as CException does, and
  /// a copy of className (null or "" leaves it empty; a failed copy leaves it
  /// empty too).
  CClassNotFoundException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
      const char* message, const char* className);
  /// The class name given at the throw site (empty when none).
  const CString& GetClassName() const { return m_className; }

 private:
  CString m_className;
};

}  // namespace base
}  // namespace vesk

#endif
