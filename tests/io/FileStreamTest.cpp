// File streams on real files in a scratch folder: the opening and closed-state
// rules of each class, the end-of-file behaviour that differs from the memory
// streams, the 16-bit file format, and failures of the host (a full device, a
// refused open, a file beyond 32-bit sizes) reported instead of lost.
#if !defined(_WIN32)
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestSupport.h"
#include "io/TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "IO/File.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/BufferedInputStream.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/FileInputStream.h"
#include "vesk/io/FileOutputStream.h"
#include "vesk/io/FileReader.h"
#include "vesk/io/FileWriter.h"
#include "vesk/io/NativeFileOutputStream.h"

namespace {

namespace fs = std::filesystem;
using namespace vesk::io;
using vesk::testing::W;
using vesk_test::ExpectThrow;
using vesk_test::U16;

class FileStreamTest : public ::testing::Test {
 protected:
  void SetUp() override { dir = vesk_test::MakeTempDir("vesk-files"); }
  void TearDown() override { fs::remove_all(dir); }

  std::string Path(const char* name) const { return (dir / name).string(); }
  IO::Location At(const char* name) const { return IO::Location(Path(name).c_str()); }
  // Names are UTF-8 (u8path: the standard library's narrow paths on Windows
  // are not).
  void Put(const char* name, const std::string& bytes) const {
    std::ofstream(dir / fs::u8path(name), std::ios::binary) << bytes;
  }
  std::string Get(const char* name) const {
    return vesk_test::FileBytes(dir / fs::u8path(name));
  }
  std::basic_string<unsigned short> Native(const char* name) const {
    return U16(Path(name).c_str());
  }

  fs::path dir;
};

TEST_F(FileStreamTest, BytesRoundTripAndEndOfFileRules) {
  {
    CFileOutputStream out(At("b"), false);
    out.Write('\xFF');
    out.Write("0123456789abcdefghijklmnopqrstuvwxyz", 1, 9);
    out.Write("ABCDEFGHIJKLMNOPQRSTUVWXYZ!!!!", 30);
    out.Write(static_cast<const char*>(nullptr), 5);  // nothing
  }  // the destructor closes: what was written is in the file
  ASSERT_EQ(Get("b"), "\xFF" "123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ!!!!");

  CFileInputStream in(At("b"));
  EXPECT_EQ(in.GetAvailable(), 40u);
  EXPECT_EQ(in.Read(), -1);  // sign-extended like the memory streams
  char buffer[64] = {};
  EXPECT_EQ(in.Read(buffer, 2, 4), 4);
  EXPECT_EQ(std::string(buffer + 2, 4), "1234");
  EXPECT_EQ(in.Read(nullptr, 5), 5);  // no buffer: skips
  EXPECT_EQ(in.Read(buffer, 0), 0);
  EXPECT_EQ(in.Skip(100), 30);  // only what is left
  EXPECT_EQ(in.GetAvailable(), 0u);
  EXPECT_EQ(in.Read(buffer, 10), 0);  // 0 at the end, not -1
  ExpectThrow<CIOException>([&] { in.Read(); }, "End of stream reached.",
                            "vesk/io/FileInputStream");
  in.Reset();
  EXPECT_EQ(in.Read(buffer, 64), 40);
  EXPECT_EQ(in.Skip(0), 0);
}

TEST_F(FileStreamTest, AppendAddsAndWriteReplaces) {
  Put("a", "old-content");
  { CFileOutputStream(At("a"), true).Write("+new", 4); }
  EXPECT_EQ(Get("a"), "old-content+new");
  { CFileOutputStream(At("a"), false).Write("x", 1); }
  EXPECT_EQ(Get("a"), "x");
  { CFileWriter(At("a")).Write(W(u"y")); }  // a writer never appends
  EXPECT_EQ(Get("a"), std::string("y\0", 2));
}

TEST_F(FileStreamTest, UnitsAreTwoLittleEndianBytesWithoutMark) {
  {
    CFileWriter out(At("u"));
    out.Write(static_cast<unsigned short>(0x20AC));
    out.Write(W(u"a\U0001F600"));
    out.Write(vesk::base::CUnicodeString(W(u"xyz")), 1, 100);  // clamped to "yz"
    out.Write(vesk::base::CUnicodeString(W(u"xyz")), 3, 1);    // past the end: nothing
    out.Write(W(u"0123"), 2, 1);
    out.Write(W(u""));
  }
  const std::string expected("\xAC\x20" "a\0" "\x3D\xD8\x00\xDE" "y\0z\0" "2\0", 14);
  ASSERT_EQ(Get("u"), expected);

  CFileReader in(At("u"));
  EXPECT_EQ(in.Read(), 0x20AC);
  unsigned short units[8] = {};
  EXPECT_EQ(in.Read(units, 1, 3), 3);
  EXPECT_EQ(units[1], u'a');
  EXPECT_EQ(units[3], 0xDE00);
  EXPECT_EQ(in.Skip(100), 3);
  ExpectThrow<CIOException>([&] { in.Read(); }, "End of stream reached.", "vesk/io/FileReader");
  in.Reset();
  EXPECT_EQ(in.Read(nullptr, 2), 2);  // no buffer: skips
  // An array read that runs into the end fails, unlike the byte stream's.
  ExpectThrow<CIOException>([&] { in.Read(units, 8); },
                            "Failed to read the specified number of wide chars from the "
                            "underlying file.");
}

TEST_F(FileStreamTest, ReaderNeedsAnEvenLength) {
  Put("odd", "12345");
  ExpectThrow<CIOException>([&] { CFileReader r(At("odd")); },
                            "Invalid unicode file: the file length must be even.",
                            "vesk/io/FileReader");
}

TEST_F(FileStreamTest, OpeningFailures) {
  const std::string missing = Path("no/such");
  const IO::Location nowhere(missing.c_str()), empty(static_cast<const char*>(nullptr));
  struct Row {
    std::function<void(const IO::Location&)> open;
    const char* failed;
    const char* source;
  } rows[] = {
      {[](const IO::Location& l) { CFileInputStream s(l); },
       "An error occurred while trying to open file.", "vesk/io/FileInputStream"},
      {[](const IO::Location& l) { CFileReader s(l); }, "Failed to open the underlying file.",
       "vesk/io/FileReader"},
      {[](const IO::Location& l) { CFileOutputStream s(l, false); },
       "Failed to open the underlying file.", "vesk/io/FileOutputStream"},
      {[](const IO::Location& l) { CFileOutputStream s(l, true); },
       "Failed to open the underlying file.", "vesk/io/FileOutputStream"},
      {[](const IO::Location& l) { CFileWriter s(l); }, "Failed to open the underlying file.",
       "vesk/io/FileWriter"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.source);
    ExpectThrow<CIOException>([&] { row.open(nowhere); }, row.failed, row.source);
    try {  // an unusable location throws without a message
      row.open(empty);
      ADD_FAILURE();
    } catch (const CIOException& e) {
      EXPECT_EQ(e.GetErrorDescription(), nullptr);
      EXPECT_STREQ(e.GetSourceFile(), row.source);
    }
  }
#if defined(_WIN32)
  // A file another handle holds without sharing it.
  Put("held", "x");
  void* held = vesk_test::HoldFile(Path("held").c_str());
  ASSERT_NE(held, nullptr);
  const IO::Location refused(Path("held").c_str());
#else
  // Files the host refuses even to its administrator.
  const IO::Location refused("/sys/kernel/notes");
#endif
  for (int i = 2; i < 5; ++i) ExpectThrow<CIOException>([&] { rows[i].open(refused); }, "Access denied.");
  ExpectThrow<CIOException>([&] { CNativeFileOutputStream s(U16(refused.GetPath()).c_str(), false); },
                            "Access denied.", "vesk/io/NativeFileOutputStreamIW");
#if defined(_WIN32)
  ExpectThrow<CIOException>([&] { rows[0].open(refused); }, "Access denied.");
  vesk_test::ReleaseFile(held);
#else
  if (geteuid() != 0) {
    Put("locked", "x");
    chmod(Path("locked").c_str(), 0);
    ExpectThrow<CIOException>([&] { rows[0].open(At("locked")); }, "Access denied.");
  }
#endif
}

TEST_F(FileStreamTest, EveryOperationOfAClosedStreamThrows) {
  Put("c", "abcd");
  CFileInputStream in(At("c"));
  CFileReader reader(At("c"));
  CFileOutputStream out(At("o"), false);
  CFileWriter writer(At("w"));
  in.Close();
  reader.Close();
  out.Close();
  writer.Close();
  char b[4];
  unsigned short u[4];
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { in.GetAvailable(); }, [&] { in.Read(); }, [&] { in.Read(b, 4); },
       [&] { in.Read(b, 1, 2); }, [&] { in.Read(nullptr, 2); }, [&] { in.Skip(1); },
       [&] { in.Reset(); }, [&] { in.Close(); }, [&] { out.Write('x'); }, [&] { out.Write(b, 4); },
       [&] { out.Write(nullptr, 4); }, [&] { out.Write(b, 1, 2); }, [&] { out.Flush(); },
       [&] { out.Close(); }},
      "Stream closed.");
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { reader.Read(); }, [&] { reader.Read(u, 4); }, [&] { reader.Read(u, 1, 2); },
       [&] { reader.Skip(1); }, [&] { reader.Reset(); }, [&] { reader.Close(); }},
      "Reader closed.");
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { writer.Write(u'x'); }, [&] { writer.Write(u, 4); }, [&] { writer.Write(u, 1, 2); },
       [&] { writer.Write(W(u"")); }, [&] { writer.Write(vesk::base::CUnicodeString()); },
       [&] { writer.Flush(); }, [&] { writer.Close(); }},
      "Writer closed.");
}

TEST_F(FileStreamTest, Utf16PathLandsUnderItsUtf8Name) {
  const std::u16string name = u"caf\u00E9-\u65E5\u672C-\U0001F600.txt";
  const std::string utf8 = "caf\xC3\xA9-\xE6\x97\xA5\xE6\x9C\xAC-\xF0\x9F\x98\x80.txt";
  const std::u16string full = dir.u16string() + u"/" + name;
  { CFileOutputStream(IO::Location(W(full.c_str())), false).Write("hi", 2); }
  EXPECT_EQ(Get(utf8.c_str()), "hi");
  { CNativeFileOutputStream(W(full.c_str()), true).Write("!", 1); }
  EXPECT_EQ(Get(utf8.c_str()), "hi!");
  const std::u16string lone = dir.u16string() + u"/a\xD800" u"b";
  EXPECT_STREQ(IO::Location(W(lone.c_str())).GetPath(), (dir.string() + "/a?b").c_str());
}

TEST_F(FileStreamTest, SizesBeyond32BitsAreRefused) {
  Put("sparse", "");
  fs::resize_file(Path("sparse"), (5ULL << 30) + 6);  // sparse where the host can
  CFileInputStream in(At("sparse"));
  ExpectThrow<CIOException>([&] { in.GetAvailable(); }, "64-bit file sizes not supported");
  EXPECT_EQ(in.Skip(0xFFFFFFFFu), -1);  // the whole count, as an int
  EXPECT_EQ(in.GetAvailable(), (1u << 30) + 7);
}

TEST_F(FileStreamTest, AFullDeviceFailsLoudly) {
#if defined(_WIN32)
  GTEST_SKIP() << "Windows has no device that is always full";
#endif
  const IO::Location full("/dev/full");
  {
    CFileOutputStream out(full, false);
    out.Write("abc", 3);  // buffered
    ExpectThrow<CIOException>([&] { out.Flush(); }, "Failed to flush the underlying file.");
    std::string block(IO::File::kBufferSize + 1, 'x');
    ExpectThrow<CIOException>([&] { out.Write(block.data(), 1, IO::File::kBufferSize); },
                              "Failed to write the specified number of bytes to the underlying "
                              "file.");
    ExpectThrow<CIOException>([&] { for (;;) out.Write('x'); },
                              "Failed to write the specified byte the the underlying file.");
    out.Write('y');
    ExpectThrow<CIOException>([&] { out.Close(); }, "Failed to close the underlying file.");
    ExpectThrow<CIOException>([&] { out.Close(); }, "Stream closed.");
  }
  {
    CFileWriter out(full);
    ExpectThrow<CIOException>([&] { for (;;) out.Write(u'x'); },
                              "Failed to write the specified wide char to the underlying file.");
    std::basic_string<unsigned short> units(IO::File::kBufferSize, u'x');
    ExpectThrow<CIOException>([&] { out.Write(units.c_str()); },
                              "Failed to write the specified number of wide chars to the "
                              "underlying file.");
    out.Write(u'z');
  }  // the destructor swallows the failed close
  CNativeFileOutputStream native(W(u"/dev/full"), false);
  ExpectThrow<CIOException>([&] { native.Write('x'); },
                            "Failed to write the specified byte the the underlying file.");
  ExpectThrow<CIOException>([&] { native.Write("abc", 3); },
                            "Failed to write the specified byte the the underlying file.");
}

TEST_F(FileStreamTest, NativeStreamOverwritesInPlace) {
  Put("n", "0123456789");
  {
    CNativeFileOutputStream out(Native("n").c_str(), false);
    out.Write('a');
    out.Write("xbcx", 1, 2);
    out.Flush();
    EXPECT_EQ(Get("n"), "abc3456789");  // unbuffered: there at once
    out.Close();
    out.Close();  // a second close does nothing
    ExpectThrow<CIOException>([&] { out.Write('x'); }, "Stream closed.",
                              "vesk/io/NativeFileOutputStream");
    ExpectThrow<CIOException>([&] { out.Flush(); }, "Stream closed.");
  }
  EXPECT_EQ(Get("n"), "abc3456789");
  { CNativeFileOutputStream(Native("n").c_str(), true).Write("!", 1); }
  EXPECT_EQ(Get("n"), "abc3456789!");
  { CNativeFileOutputStream(Native("new").c_str(), false).Write("x", 1); }
  EXPECT_EQ(Get("new"), "x");
  for (const unsigned short* bad : {static_cast<const unsigned short*>(nullptr), W(u"")})
    ExpectThrow<vesk::base::CIllegalArgumentException>(
        [&] { CNativeFileOutputStream s(bad, false); }, "Invalid file path.",
        "vesk/io/NativeFileOutputStream");
  ExpectThrow<CIOException>([&] { CNativeFileOutputStream s(Native("no/such").c_str(), false); },
                            "Failed to open the specified file.");
}

TEST_F(FileStreamTest, ByteAtATimeThroughBufferedDecorators) {
  std::string data;
  for (int i = 0; i < 300000; ++i) data.push_back(static_cast<char>(i * 7));
  {
    CFileOutputStream file(At("big"), false);
    CBufferedOutputStream out(&file, 4096);
    for (char c : data) out.Write(c);
    out.Close();
  }
  ASSERT_EQ(Get("big"), data);
  CFileInputStream file(At("big"));
  CBufferedInputStream in(&file, 4096);
  std::string back;
  for (int c; (c = in.Read()) != CInputStream::EOS;) back.push_back(static_cast<char>(c));
  EXPECT_EQ(back, data);
}

TEST_F(FileStreamTest, AllocationFailuresLeaveNothingBehind) {
  Put("f", "abcd");
  const std::string path = Path("f");
  // Every allocation of the constructors in turn (the reads after them
  // succeed: without a block buffer the file goes straight to the host).
  EXPECT_GT(vesk::testing::FailEachAllocationInTurn([&] {
              IO::Location location(path.c_str());
              CFileInputStream in(location);
              CFileReader reader(location);
              CFileOutputStream out(IO::Location(U16(vesk_test::NullDevice()).c_str()), true);
              CFileWriter writer(IO::Location(vesk_test::NullDevice()));
              CNativeFileOutputStream native(U16(vesk_test::NullDevice()).c_str(), false);
            }),
            8);
  // No memory at all once open: everything still arrives, unbuffered.
  {
    CFileOutputStream out(At("g"), false);
    vesk::testing::FaultGuard guard;
    vesk::platform::FailAllocationAt(1, true);
    for (char c : std::string("unbuffered")) out.Write(c);
    out.Write("!?", 1);
    out.Close();
  }
  EXPECT_EQ(Get("g"), "unbuffered!");
  CFileInputStream in(At("g"));
  vesk::testing::FaultGuard guard;
  vesk::platform::FailAllocationAt(1, true);
  char b[4] = {};
  EXPECT_EQ(in.Read(), 'u');
  EXPECT_EQ(in.Read(b, 3), 3);
  EXPECT_EQ(in.Skip(100), 7);
}

}  // namespace
