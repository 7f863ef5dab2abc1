// A first VESK program: start the library, build some text, keep an
// exception object in a shared handle, throw it and report it, stop.
#include <cstdio>

#include <vesk/Library.h>
#include <vesk/base/Exception.h>
#include <vesk/base/IllegalStateException.h>
#include <vesk/base/Ref.h>
#include <vesk/base/String.h>

using vesk::base::CException;
using vesk::base::CIllegalStateException;
using vesk::base::CRef;
using vesk::base::CString;

int main() {
  // Every client brackets its use of the library; the calls nest.
  vesk::Initialize();

  CString greeting("Hello");
  greeting += ", VESK";
  CString copy = greeting;  // shares the buffer until one of them changes
  copy += "!";
  std::printf("%s (%u characters)\n", static_cast<const char*>(copy), copy.GetLength());

  // A handle owns the object; copies share it, and the last one deletes it.
  CRef<CIllegalStateException> failure(new CIllegalStateException(
      "examples/hello", __LINE__, "Nothing to greet.", "The example throws this on purpose."));
  CRef<CException> asException = failure;
  std::printf("kept a %s\n", asException->GetClass()->GetQualifiedName());

  // Exceptions are thrown by value and caught by reference.
  bool caught = false;
  try {
    throw *failure;
  } catch (const CException& e) {
    caught = true;
    std::printf("caught %s\n", e.GetClass()->GetQualifiedName());
    std::printf("  description: %s\n", e.GetErrorDescription());
    std::printf("  message:     %s\n", e.GetMessage() ? e.GetMessage() : "(none)");
    std::printf("  location:    %s:%u\n", e.GetSourceFile(), e.GetSourceLine());
  }

  vesk::Terminate();
  return caught ? 0 : 1;
}
