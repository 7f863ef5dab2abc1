/// \file
/// The macro pair that declares and defines the plain exception classes: a
/// class that adds nothing to its base but its name, its descriptor and one
/// of the three constructor shapes of the tree. Every constructor begins
/// with the source file and line of the throw site:
/// - `None`: (file, line); description and message are null;
/// - `Description`: (file, line, description); the message is null;
/// - `DescriptionMessage`: (file, line, description, message), both optional.
#ifndef VESK_BASE_EXCEPTIONCLASS_H
#define VESK_BASE_EXCEPTIONCLASS_H

#include "vesk/base/Object.h"

// The parameter lists of the three shapes as declared, as defined and as
// passed on: implementation details of the two macros below.
#define VESK_EXCEPTION_DECLARED_None const char *sourceFile, unsigned int sourceLine
#define VESK_EXCEPTION_DECLARED_Description \
  const char *sourceFile, unsigned int sourceLine, const char *errorDescription = nullptr
#define VESK_EXCEPTION_DECLARED_DescriptionMessage                                         \
  const char *sourceFile, unsigned int sourceLine, const char *errorDescription = nullptr, \
                                                              const char *message = nullptr
#define VESK_EXCEPTION_DEFINED_None const char *sourceFile, unsigned int sourceLine
#define VESK_EXCEPTION_DEFINED_Description \
  const char *sourceFile, unsigned int sourceLine, const char *errorDescription
#define VESK_EXCEPTION_DEFINED_DescriptionMessage \
  const char *sourceFile, unsigned int sourceLine, const char *errorDescription, const char *message
#define VESK_EXCEPTION_PASSED_None sourceFile, sourceLine
#define VESK_EXCEPTION_PASSED_Description sourceFile, sourceLine, errorDescription, nullptr
#define VESK_EXCEPTION_PASSED_DescriptionMessage sourceFile, sourceLine, errorDescription, message

/// Declares exception class Name, derived from Base (qualified), with the
/// constructor shape Args (None, Description or DescriptionMessage). Write it
/// inside the class's namespace, in the class's own header.
#define VESK_DECLARE_EXCEPTION(Name, Base, Args)                             \
  class VESK_API Name : public Base {                                        \
    VESK_DECLARE_CLASS(Name);                                                \
    /** Records the throw site, description and message this class takes. */ \
    Name(VESK_EXCEPTION_DECLARED_##Args);                                    \
  }

/// Defines the descriptor (qualified name Namespace::Name, base name Base)
/// and the constructor of a class declared with VESK_DECLARE_EXCEPTION. Write
/// it at global scope.
#define VESK_IMPLEMENT_EXCEPTION(Namespace, Name, Base, Args)               \
  VESK_IMPLEMENT_CLASS(Namespace::Name, Name, #Namespace "::" #Name, #Base) \
  Namespace::Name::Name(VESK_EXCEPTION_DEFINED_##Args) : Base(VESK_EXCEPTION_PASSED_##Args) {}

#endif
