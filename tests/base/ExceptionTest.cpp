#include <cerrno>
#include <cstring>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/ClassCastException.h"
#include "vesk/base/ClassNotFoundException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/IllegalComparisonException.h"
#include "vesk/base/IllegalStateException.h"
#include "vesk/base/InstantiationException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/base/NumberFormatException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/base/TimeoutException.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/io/AccessDeniedException.h"
#include "vesk/io/CharConversionException.h"
#include "vesk/io/IOException.h"
#include "vesk/io/InterruptedIOException.h"
#include "vesk/io/UnknownCharacterException.h"
#include "vesk/io/UnsupportedEncodingException.h"
#include "vesk/io/XMLException.h"
#include "vesk/net/SocketException.h"
#include "vesk/net/UnknownHostException.h"
#include "vesk/platform/Memory.h"
#include "vesk/util/EmptyQueueException.h"
#include "vesk/util/EmptyStackException.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/regex/RegExParseException.h"

using namespace vesk::base;

namespace {

struct Descriptor {
  const CClass* cls;
  const char* name;
  const char* base;
  bool derived;  // the C++ class derives from the base its descriptor names
};

// Namespace, class and qualified base of each row.
#define VESK_ROW(NS, N, B) \
  { &NS::N::m_class##N, #NS "::" #N, #B, std::is_base_of<B, NS::N>::value }
const Descriptor kTree[] = {
    VESK_ROW(vesk::base, CException, vesk::base::CObject),
    VESK_ROW(vesk::base, CArrayIndexOutOfBoundsException, vesk::base::CException),
    VESK_ROW(vesk::base, CClassCastException, vesk::base::CException),
    VESK_ROW(vesk::base, CClassNotFoundException, vesk::base::CException),
    VESK_ROW(vesk::base, CIllegalArgumentException, vesk::base::CException),
    VESK_ROW(vesk::base, CIllegalComparisonException, vesk::base::CException),
    VESK_ROW(vesk::base, CIllegalStateException, vesk::base::CException),
    VESK_ROW(vesk::base, CInstantiationException, vesk::base::CException),
    VESK_ROW(vesk::base, CMemoryException, vesk::base::CException),
    VESK_ROW(vesk::base, CNullReferenceException, vesk::base::CException),
    VESK_ROW(vesk::base, CNumberFormatException, vesk::base::CException),
    VESK_ROW(vesk::base, CSynchronizationException, vesk::base::CException),
    VESK_ROW(vesk::base, CTimeoutException, vesk::base::CSynchronizationException),
    VESK_ROW(vesk::base::win, CWinSystemErrorException, vesk::base::CException),
    VESK_ROW(vesk::io, CIOException, vesk::base::CException),
    VESK_ROW(vesk::io, CAccessDeniedException, vesk::io::CIOException),
    VESK_ROW(vesk::io, CCharConversionException, vesk::io::CIOException),
    VESK_ROW(vesk::io, CInterruptedIOException, vesk::io::CIOException),
    VESK_ROW(vesk::io, CUnknownCharacterException, vesk::io::CCharConversionException),
    VESK_ROW(vesk::io, CUnsupportedEncodingException, vesk::io::CIOException),
    VESK_ROW(vesk::io, CXMLException, vesk::io::CIOException),
    VESK_ROW(vesk::net, CSocketException, vesk::io::CIOException),
    VESK_ROW(vesk::net, CUnknownHostException, vesk::io::CIOException),
    VESK_ROW(vesk::util, CEmptyQueueException, vesk::base::CException),
    VESK_ROW(vesk::util, CEmptyStackException, vesk::base::CException),
    VESK_ROW(vesk::util, CNoSuchElementException, vesk::base::CMemoryException),
    VESK_ROW(vesk::util::regex, CRegExParseException, vesk::base::CException),
};
#undef VESK_ROW

}  // namespace

TEST(ExceptionTest, EveryClassOfTheTreeIsRegisteredWithItsBase) {
  for (const Descriptor& d : kTree) {
    SCOPED_TRACE(d.name);
    EXPECT_STREQ(d.name, d.cls->GetQualifiedName());
    EXPECT_STREQ(d.base, d.cls->GetQualifiedBaseClassName1());
    EXPECT_TRUE(d.derived);
    EXPECT_EQ(d.cls, CClass::FindClass(d.name));
    ASSERT_NE(nullptr, d.cls->GetBaseClass1());
    EXPECT_TRUE(d.cls->IsInstanceOf(&CException::m_classCException));
  }
}

TEST(ExceptionTest, SetMessageRules) {
  CException e("f", 1, nullptr, "a message long enough to span several words");
  EXPECT_TRUE(e.SetMessage(e.GetMessage() + 2));  // its own message
  EXPECT_STREQ("message long enough to span several words", e.GetMessage());
  EXPECT_TRUE(e.SetMessage(""));
  EXPECT_EQ(nullptr, e.GetMessage());
  EXPECT_TRUE(e.SetMessage("second"));
  EXPECT_STREQ("second", e.GetMessage());
  EXPECT_TRUE(e.SetMessage(nullptr));
  EXPECT_EQ(nullptr, e.GetMessage());

  // A copy that cannot be allocated drops the message and never throws.
  e.SetMessage("third");
  long live = vesk::platform::LiveAllocations();
  vesk::platform::FailAllocationAt(1);
  EXPECT_FALSE(e.SetMessage("fourth"));
  vesk::platform::FailAllocationAt(0);
  EXPECT_EQ(nullptr, e.GetMessage());
  EXPECT_EQ(live - 1, vesk::platform::LiveAllocations());  // "third" was freed
}

TEST(ExceptionTest, OwnsItsMessageAndCopiesShareSiteAndDescription) {
  const char* file = "vesk/io/Here";
  const char* description = "Described.";
  std::string message = "kept";
  CException* first = new CException(file, 3, description, message.c_str());
  message = "changed";
  EXPECT_EQ(&CException::m_classCException, first->GetClass());
  CException copy(*first);
  CException assigned("x", 9);
  assigned = *first;
  delete first;
  EXPECT_EQ(file, copy.GetSourceFile());
  EXPECT_EQ(description, copy.GetErrorDescription());
  EXPECT_STREQ("kept", copy.GetMessage());
  EXPECT_STREQ("kept", assigned.GetMessage());
  EXPECT_EQ(3u, assigned.GetSourceLine());
  copy = copy;
  EXPECT_STREQ("kept", copy.GetMessage());
}

TEST(ExceptionTest, ClassesThatTakeFewerArgumentsPassNulls) {
  CIllegalArgumentException a("f", 1, "Invalid key.");
  EXPECT_STREQ("Invalid key.", a.GetErrorDescription());
  EXPECT_EQ(nullptr, a.GetMessage());
  CMemoryException m("f", 2);
  EXPECT_EQ(nullptr, m.GetErrorDescription());
  EXPECT_EQ(nullptr, m.GetMessage());
  vesk::io::CUnknownCharacterException u("f", 3, 0xD800);
  EXPECT_EQ(0xD800, u.GetCharacter());
  EXPECT_EQ(nullptr, u.GetErrorDescription());
  vesk::net::CUnknownHostException h("f", 4, "no.such.host");
  EXPECT_STREQ("Unknown host name.", h.GetErrorDescription());
  EXPECT_STREQ("no.such.host", h.GetHostName());
  EXPECT_EQ(nullptr, h.GetMessage());
  vesk::io::CUnsupportedEncodingException enc("f", 5, "EBCDIC");
  EXPECT_STREQ("EBCDIC", static_cast<const char*>(enc.GetEncoding()));
  EXPECT_EQ(nullptr, enc.GetErrorDescription());
  vesk::io::CUnsupportedEncodingException none("f", 6, nullptr);
  EXPECT_TRUE(none.GetEncoding().IsEmpty());
}

TEST(ExceptionTest, NameThatCannotBeCopiedIsDroppedNotThrown) {
  std::string name(2000, 'n');  // long enough to bypass the string pools' reserve
  long live = vesk::platform::LiveAllocations();
  vesk::platform::FailAllocationAt(1, true);
  EXPECT_NO_THROW({
    CClassNotFoundException e("f", 1, "d", nullptr, name.c_str());
    EXPECT_TRUE(e.GetClassName().IsEmpty());
  });
  vesk::platform::FailAllocationAt(0);
  EXPECT_EQ(live, vesk::platform::LiveAllocations());
}

TEST(ExceptionTest, SystemErrorCarriesTheHostText) {
  vesk::base::win::CWinSystemErrorException zero("f", 1, "Failed.", 0);
  EXPECT_EQ(0ul, zero.GetErrorCode());
  EXPECT_EQ(nullptr, zero.GetMessage());

  // errno and strerror on POSIX, GetLastError and FormatMessageA on Windows;
  // the text ends with the host's line end either way.
  const unsigned long code = vesk_test::FileNotFoundCode();
  vesk::base::win::CWinSystemErrorException e("f", 1, "Failed.", code);
  EXPECT_EQ(code, e.GetErrorCode());
  ASSERT_NE(nullptr, e.GetMessage());
#if defined(_WIN32)
  std::string expected = vesk_test::SystemMessage(code);
  EXPECT_EQ("\r\n", expected.substr(expected.size() - 2));
#else
  std::string expected = vesk_test::SystemMessage(code) + "\n";
#endif
  EXPECT_EQ(expected, e.GetMessage());
}
