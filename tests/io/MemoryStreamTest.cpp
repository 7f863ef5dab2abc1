#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/IOException.h"
#include "vesk/io/MemoryInputStream.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/platform/Memory.h"

using vesk::base::CIllegalArgumentException;
using namespace vesk::io;
namespace platform = vesk::platform;

namespace {

using vesk::testing::ExpectThrowIfAllocationFails;
using vesk_test::ExpectError;

TEST(InputContractTest, DefaultReadSignExtendsAndSkipReturnsWhatWasNotSkipped) {
  vesk_test::CTestInputStream bytes(std::string("\xFF\x7F\x80", 3));
  CInputStream& contract = bytes;
  for (int expected : {-1, 127, -128, 65535}) EXPECT_EQ(contract.Read(), expected);
  EXPECT_EQ(CInputStream::EOS, 65535);

  vesk_test::CTestInputStream in("abc");
  EXPECT_EQ(in.Skip(0), 0);
  EXPECT_EQ(in.Skip(2), 0);
  EXPECT_EQ(in.Read(), 'c');
  in.Reset();
  EXPECT_EQ(in.Skip(5), 2);  // 3 skipped, 2 not
  EXPECT_EQ(in.Read(), CInputStream::EOS);
}

TEST(ReaderContractTest, DefaultReadZeroExtendsAndSkipIsInverted) {
  vesk_test::CTestReader in(std::basic_string<unsigned short>{0xFFFF, 0x8000, 'z'});
  CReader& contract = in;
  EXPECT_EQ(contract.Read(), 0xFFFF);  // a unit, not the end
  EXPECT_EQ(contract.Read(), 0x8000);
  EXPECT_EQ(contract.Skip(4), 3);
  EXPECT_EQ(contract.Read(), CReader::EOS);
  EXPECT_EQ(CReader::EOS, 0xFFFFF);
}

TEST(OutputContractTest, DefaultArrayWritesGoByteByByte) {
  // A sink that implements only the single-byte write.
  struct CByteSink : COutputStream {
    std::string data;
    void Write(char byte) override { data.push_back(byte); }
    void Flush() override {}
    void Close() override {}
  } sink;
  COutputStream& out = sink;
  out.Write("hello", 1, 3);
  out.Write("!?", 1);
  out.Write(static_cast<const char*>(nullptr), 4);
  out.Write(static_cast<const char*>(nullptr), 0, 4);
  EXPECT_EQ(sink.data, "ell!");
  // A range whose end wraps past 2^32 writes nothing.
  out.Write("abc", 2, 0xFFFFFFFFu);
  EXPECT_EQ(sink.data, "ell!");
}

TEST(MemoryInputStreamTest, ReadsBytesAndReportsTheEnd) {
  const char data[] = {'a', static_cast<char>(0xFF), 'c', 'd', 'e', 'f'};
  CMemoryInputStream in(data, sizeof data, false);
  EXPECT_EQ(in.GetAvailable(), 6u);
  EXPECT_EQ(in.Read(), 'a');
  EXPECT_EQ(in.Read(), -1);  // 0xFF sign-extended, not the end
  char buffer[8] = {};
  EXPECT_EQ(in.Read(buffer, 1, 2), 2);
  EXPECT_EQ(std::string(buffer + 1, 2), "cd");
  // A null buffer discards: 2 bytes left of the 10 asked for.
  EXPECT_EQ(in.Read(nullptr, 10), 2);
  EXPECT_EQ(in.Read(buffer, 4), -1);
  EXPECT_EQ(in.Read(buffer, 0), 0);
  EXPECT_EQ(in.Read(nullptr, 0), 0);
  EXPECT_EQ(in.Read(), CInputStream::EOS);
  EXPECT_EQ(in.Skip(5), 0);
  in.Reset();
  EXPECT_EQ(in.Skip(5), 5);  // the memory stream counts what it skipped
  EXPECT_EQ(in.Skip(5), 1);
}

TEST(MemoryInputStreamTest, ZeroLengthBlockIsValidAndNullIsNot) {
  CMemoryInputStream empty("", 0, false);
  EXPECT_EQ(empty.Read(), CInputStream::EOS);
  char c;
  EXPECT_EQ(empty.Read(&c, 1), -1);
  vesk_test::ExpectThrow<CIllegalArgumentException>(
      [] { CMemoryInputStream bad(nullptr, 0, false); }, "Invalid source buffer.",
      "vesk/io/MemoryInputStream");
}

TEST(MemoryInputStreamTest, ClosedStreamRefusesEverythingAndOwnedBlocksAreFreed) {
  long live = platform::LiveAllocations();
  char* block = static_cast<char*>(platform::Alloc(4));
  std::memcpy(block, "wxyz", 4);
  CMemoryInputStream in(block, 4, true);
  in.Close();
  EXPECT_EQ(platform::LiveAllocations(), live);
  char buffer[4];
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { in.Read(); }, [&] { in.Read(buffer, 4); }, [&] { in.Read(nullptr, 0, 4); },
       [&] { in.Skip(1); }, [&] { in.GetAvailable(); }, [&] { in.Reset(); }, [&] { in.Close(); }},
      "Stream closed.");
  // The destructor too frees an owned block, and only that.
  {
    CMemoryInputStream owned(static_cast<char*>(platform::Alloc(16)), 16, true);
    EXPECT_EQ(platform::LiveAllocations(), live + 1);
  }
  EXPECT_EQ(platform::LiveAllocations(), live);
  char* borrowed = static_cast<char*>(platform::Alloc(16));
  { CMemoryInputStream lent(borrowed, 16, false); }
  EXPECT_EQ(platform::LiveAllocations(), live + 1);
  platform::Free(borrowed);
}

TEST(MemoryOutputStreamTest, GrowsToTheRoundedNeedOnly) {
  unsigned long before = platform::AllocationCount();
  CMemoryOutputStream out(0, 0);
  EXPECT_EQ(platform::AllocationCount(), before);
  EXPECT_EQ(out.GetBuffer(), nullptr);
  // 64 one-byte writes fit the first 64-byte block.
  for (int i = 0; i < 64; ++i) out.Write(static_cast<char>(i));
  EXPECT_EQ(platform::AllocationCount(), before + 1);
  out.Write('x');  // byte 65: one more block of 128
  EXPECT_EQ(platform::AllocationCount(), before + 2);
  EXPECT_TRUE(out.EnsureBufferCapacity(128));
  EXPECT_EQ(platform::AllocationCount(), before + 2);
  ASSERT_EQ(out.GetBufferSize(), 65u);
  for (int i = 0; i < 64; ++i) ASSERT_EQ(out.GetBuffer()[i], static_cast<char>(i));

  CMemoryOutputStream steps(10, 3);  // not a power of two: rounded to 12
  unsigned long mark = platform::AllocationCount();
  steps.Write("0123456789ab", 12);
  EXPECT_EQ(platform::AllocationCount(), mark);
  steps.Write('c');
  EXPECT_EQ(platform::AllocationCount(), mark + 1);
}

TEST(MemoryOutputStreamTest, DetachResetAndClose) {
  CMemoryOutputStream out;
  out.Write("abcdef", 1, 3);
  out.Write(static_cast<const char*>(nullptr), 3);  // nothing
  EXPECT_EQ(vesk_test::Contents(out), "bcd");
  char* block = out.DetachBuffer();
  EXPECT_EQ(std::string(block, 3), "bcd");
  platform::Free(block);
  EXPECT_EQ(out.GetBuffer(), nullptr);
  out.Write("xy", 2);  // a new block
  EXPECT_EQ(vesk_test::Contents(out), "xy");
  out.Reset();
  out.Write('z');
  out.Close();
  out.Close();  // repeatable
  EXPECT_EQ(vesk_test::Contents(out), "z");
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { out.Write('a'); }, [&] { out.Write("a", 1); }, [&] { out.Flush(); }}, "Stream closed.");
  out.Reset();
  EXPECT_EQ(out.GetBufferSize(), 0u);
}

TEST(MemoryOutputStreamTest, AllocationFailures) {
  long live = platform::LiveAllocations();
  ExpectThrowIfAllocationFails([] { CMemoryOutputStream(16, 16); });
  ExpectThrowIfAllocationFails([] { CMemoryOutputStream(); });
  EXPECT_EQ(platform::LiveAllocations(), live);

  CMemoryOutputStream out(4, 4);
  out.Write("abcd", 4);
  ExpectThrowIfAllocationFails<CIOException>([&] { out.Write('e'); }, "Memory full.");
  ExpectThrowIfAllocationFails<CIOException>([&] { out.Write("ef", 2); }, "Memory full.");
  // The old block and its bytes survive the failures.
  out.Write('e');
  EXPECT_EQ(vesk_test::Contents(out), "abcde");
  // A total that would wrap past 4 GB is refused rather than wrapped.
  ExpectError([&] { out.Write("x", 0, 0xFFFFFFFFu); }, "Memory full.");
  EXPECT_FALSE(out.EnsureBufferCapacity(0xFFFFFFFFu));
}

}  // namespace
