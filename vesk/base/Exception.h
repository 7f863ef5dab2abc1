/// \file
/// CException: root of the library's exception tree. An exception carries
/// its throw site (source file and line), a fixed description chosen there,
/// and an optional message it owns. Thrown by value, caught by reference.
#ifndef VESK_BASE_EXCEPTION_H
#define VESK_BASE_EXCEPTION_H

#include "vesk/base/Object.h"

namespace vesk {
namespace io {
class CPrintStream;
}
namespace base {

class CString;

/// Root of the exception tree. An exception carries its throw site (source
/// file and line), a fixed description chosen there and an optional message
/// it owns. Every throw passes its own source file and line.
class VESK_API CException : public CObject {
  VESK_DECLARE_CLASS(CException);

  /// Stores file, line and description as given (not copied) and copies the
  /// message (see SetMessage).
  CException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
             const char* message = nullptr);
  /// Shares file and description, copies the message.
  CException(const CException& other);
  /// Takes file, line and description from other and copies its message; the
  /// old message is freed.
  CException& operator=(const CException& other);
  /// Frees the message.
  ~CException() override;

  /// The source path of the throw site, as the library names it (e.g.
  /// "vesk/base/String").
  const char* GetSourceFile() const { return m_sourceFile; }
  /// The line of the throw site.
  unsigned int GetSourceLine() const { return m_sourceLine; }
  /// The fixed description chosen at the throw site, or null.
  const char* GetErrorDescription() const { return m_errorDescription; }
  /// The message, or null when there is none.
  const char* GetMessage() const { return m_message; }

  /// Replaces the message with a copy of text; null or "" clears it. Returns
  /// false (and keeps no message) when the copy cannot be allocated; never
  /// throws.
  bool SetMessage(const char* text);

  /// Writes the exception report (class, location, description, message).
  virtual void Print(vesk::io::CPrintStream& out) const;

 protected:
  /// Assigns text to a string member of a subclass; null or "" leaves it
  /// empty, and a failed allocation leaves it empty instead of throwing.
  static void AssignOptionalText(CString& target, const char* text);

 private:
  const char* m_sourceFile;
  unsigned int m_sourceLine;
  const char* m_errorDescription;
  char* m_message;
};

}  // namespace base
}  // namespace vesk

#endif
