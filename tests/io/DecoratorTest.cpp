// What every decorator shares: the CRef constructor keeps the wrapped stream
// alive, the pointer constructor borrows it, Close closes it, destruction
// neither closes nor flushes it, and a failed construction leaks nothing.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/Base64OutputStream.h"
#include "vesk/io/BufferedInputStream.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/BufferedReader.h"
#include "vesk/io/BufferedWriter.h"
#include "vesk/io/CRLFPrintStream.h"
#include "vesk/io/DataInputStream.h"
#include "vesk/io/DataOutputStream.h"
#include "vesk/io/JavaDataInputStream.h"
#include "vesk/io/JavaDataOutputStream.h"
#include "vesk/io/OutputStreamWriter.h"
#include "vesk/io/PrintStream.h"
#include "vesk/io/PrintWriter.h"
#include "vesk/io/PushbackInputStream.h"
#include "vesk/io/PushbackReader.h"
#include "vesk/platform/LineEnd.h"
#include "vesk/platform/Memory.h"

using vesk::base::CRef;
using namespace vesk::io;
using vesk_test::Tally;
namespace io = vesk::io;
namespace platform = vesk::platform;

namespace {

COutputStream* NewSink(Tally* t) { return new vesk_test::CTestOutputStream(t); }
CInputStream* NewSource(Tally* t) { return new vesk_test::CTestInputStream("data", 0, t); }
CReader* NewReader(Tally* t) { return new vesk_test::CTestReader(vesk_test::U16("data"), 0, t); }
CWriter* NewWriter(Tally* t) { return new vesk_test::CTestWriter(t); }

template <class D, class Base, class... Args>
void ExpectOwnership(const char* name, Base* (*make)(Tally*), Args... args) {
  SCOPED_TRACE(name);
  long live = platform::LiveAllocations();
  {
    Tally t;
    {
      CRef<Base> handle(make(&t));
      D decorator(handle, args...);
      EXPECT_EQ(handle.GetRefCount(), 2u);
      handle = vesk::null;
      EXPECT_EQ(t.destroyed, 0) << "the decorator must keep the stream alive";
    }
    EXPECT_EQ(t.destroyed, 1) << "the decorator must release its handle";
    EXPECT_EQ(t.closed, 0);
    EXPECT_EQ(t.flushed, 0);
  }
  {
    Tally t;
    Base* raw = make(&t);
    { D decorator(raw, args...); }
    EXPECT_EQ(t.destroyed, 0) << "a borrowed stream must survive the decorator";
    EXPECT_EQ(t.closed, 0);
    EXPECT_EQ(t.flushed, 0);
    {
      D decorator(raw, args...);
      decorator.Close();
      EXPECT_EQ(t.closed, 1);
    }
    delete raw;
  }
  EXPECT_EQ(platform::LiveAllocations(), live);
}

TEST(DecoratorTest, OwnershipFollowsTheConstructor) {
  ExpectOwnership<io::CPrintStream>("CPrintStream", NewSink, true);
  ExpectOwnership<io::CCRLFPrintStream>("CCRLFPrintStream", NewSink, true);
  ExpectOwnership<io::CBase64OutputStream>("CBase64OutputStream", NewSink, 76u);
  ExpectOwnership<io::CBufferedOutputStream>("CBufferedOutputStream", NewSink, 16u);
  ExpectOwnership<io::CBufferedInputStream>("CBufferedInputStream", NewSource, 16u);
  ExpectOwnership<io::CPushbackInputStream>("CPushbackInputStream", NewSource, 16u);
  ExpectOwnership<io::CBufferedReader>("CBufferedReader", NewReader, 16u);
  ExpectOwnership<io::CPushbackReader>("CPushbackReader", NewReader, 16u);
  ExpectOwnership<io::CBufferedWriter>("CBufferedWriter", NewWriter, 16u);
  ExpectOwnership<io::CPrintWriter>("CPrintWriter", NewWriter);
  ExpectOwnership<io::COutputStreamWriter>("COutputStreamWriter", NewSink, "UTF-8", false);
  ExpectOwnership<io::CDataOutputStream>("CDataOutputStream", NewSink);
  ExpectOwnership<io::CJavaDataOutputStream>("CJavaDataOutputStream", NewSink);
  ExpectOwnership<io::CDataInputStream>("CDataInputStream", NewSource);
  ExpectOwnership<io::CJavaDataInputStream>("CJavaDataInputStream", NewSource);
}

TEST(DecoratorTest, DestructionDropsUnflushedBytes) {
  vesk_test::CTestOutputStream sink;
  {
    io::CBufferedOutputStream out(&sink, 8);
    out.Write("abc", 3);
  }
  {
    io::CBase64OutputStream out(&sink, 0);
    out.Write("ab", 2);
  }
  EXPECT_EQ(sink.data, "");
  EXPECT_TRUE(sink.flushedAt.empty());
}

template <class D, class Base>
void ExpectCleanAllocationFailure(Base* (*make)(Tally*)) {
  Tally t;
  CRef<Base> handle(make(&t));
  long live = platform::LiveAllocations();
  vesk::testing::ExpectThrowIfAllocationFails([&] { D(handle, 8); });
  vesk::testing::ExpectThrowIfAllocationFails([&] { D(handle.Get(), 8); });
  EXPECT_EQ(handle.GetRefCount(), 1u);
  EXPECT_EQ(platform::LiveAllocations(), live);
  EXPECT_EQ(t.destroyed, 0);
}

TEST(DecoratorTest, BufferAllocationFailureThrowsAndLeaksNothing) {
  ExpectCleanAllocationFailure<io::CBufferedOutputStream>(NewSink);
  ExpectCleanAllocationFailure<io::CBufferedInputStream>(NewSource);
  ExpectCleanAllocationFailure<io::CPushbackInputStream>(NewSource);
  ExpectCleanAllocationFailure<io::CBufferedReader>(NewReader);
  ExpectCleanAllocationFailure<io::CPushbackReader>(NewReader);
  ExpectCleanAllocationFailure<io::CBufferedWriter>(NewWriter);
}

// Reads and writes of every shape on open and closed decorators: nothing may
// crash or leak (the suite also runs under AddressSanitizer).
TEST(DecoratorTest, MalformedUseNeverCrashes) {
  long live = platform::LiveAllocations();
  {
    vesk_test::CTestInputStream source(std::string(100, 'x'));
    io::CBufferedInputStream buffered(&source, 4);
    io::CPushbackInputStream pushback(&buffered, 2);
    char b[8];
    for (unsigned int length : {0u, 1u, 3u, 4u, 5u, 64u}) {
      pushback.Read(nullptr, length);
      pushback.Read(nullptr, 3, length);
      pushback.Read(b, 0);
      pushback.Read(b, 7, 1);
      pushback.Unread(nullptr, 0, 1);
      EXPECT_THROW(pushback.Unread("abc", 3), CIOException);
    }
    pushback.Close();
    EXPECT_THROW(buffered.Read(), CIOException);  // closed through the chain
    EXPECT_THROW(pushback.Read(b, 8), CIOException);
  }
  {
    vesk_test::CTestOutputStream sink;
    io::CBufferedOutputStream buffered(&sink, 4);
    io::CPrintStream print(&buffered, false);
    print.Write(static_cast<const char*>(nullptr), 0, 10);
    print.Write("", 0);
    print.Print(static_cast<const char*>(nullptr));
    print.Println("line");
    print.Close();
    EXPECT_EQ(sink.data, std::string("line") + platform::kLineEnd);
    EXPECT_THROW(buffered.Write('x'), CIOException);
    buffered.Close();
  }
  EXPECT_EQ(platform::LiveAllocations(), live);
}

}  // namespace
