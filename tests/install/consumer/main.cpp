// Uses the installed library the way a client does: the umbrella header, the
// start/stop pair, a string, a shared handle, and an exception thrown inside
// the library and caught here by reference (its type information must cross
// the library boundary intact).
#include <cstdio>
#include <cstring>

#include <vesk/vesk.h>

using vesk::base::CClass;
using vesk::base::CException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CMemoryException;
using vesk::base::CObject;
using vesk::base::CRef;
using vesk::base::CString;

namespace {

int failures = 0;

void Expect(bool condition, const char* what) {
  if (!condition) {
    std::printf("consumer: FAILED: %s\n", what);
    ++failures;
  }
}

// A factory that reports no memory: CreateNewInstance turns that into a
// CMemoryException thrown from inside libvesk.
CObject* NoMemory() { return nullptr; }

CClass consumerClass("consumer::CThing", "vesk::base::CObject", nullptr, nullptr, 8, &NoMemory);

}  // namespace

int main() {
  Expect(vesk::Initialize() >= 1, "Initialize counts its caller");

  CString text("install");
  text += "ed";
  CString shared = text;
  Expect(std::strcmp(shared, "installed") == 0, "CString concatenation");
  Expect(text.GetLength() == 9, "CString length");

  {
    CRef<CException> first(new CIllegalArgumentException("consumer/main", __LINE__, "Bad."));
    CRef<CObject> second = first;
    Expect(second->IsInstanceOf(&CException::m_classCException), "CRef conversion keeps the class");
    Expect(std::strcmp(first->GetErrorDescription(), "Bad.") == 0, "CRef reaches its object");
  }

  Expect(CClass::FindClass("consumer::CThing") == &consumerClass, "client class is registered");
  bool caught = false;
  try {
    consumerClass.CreateNewInstance();
  } catch (const CMemoryException& e) {
    caught = true;
    Expect(e.GetMessage() == nullptr, "CMemoryException has no message");
    Expect(e.GetClass() == &CMemoryException::m_classCMemoryException, "caught object's class");
    Expect(std::strcmp(e.GetSourceFile(), "vesk/base/Class") == 0, "throw site inside the library");
  } catch (const CException&) {
    Expect(false, "library threw another CException");
  }
  Expect(caught, "CMemoryException caught by reference");

  Expect(vesk::Terminate() == 0, "Terminate undoes Initialize");
  if (failures == 0) std::printf("consumer: ok\n");
  return failures == 0 ? 0 : 1;
}
