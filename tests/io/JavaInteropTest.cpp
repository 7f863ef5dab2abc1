// Checks the compatible data streams against the JDK's java.io.DataInputStream
// and java.io.DataOutputStream on this machine. Skipped where no JDK is
// installed.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestStreams.h"
#include "vesk/io/JavaDataInputStream.h"
#include "vesk/io/JavaDataOutputStream.h"
#include "vesk/io/MemoryInputStream.h"
#include "vesk/io/MemoryOutputStream.h"

using vesk::base::CUnicodeString;
using namespace vesk::io;

namespace {

using vesk_test::FromU16;
using vesk_test::ToU16;

// The values of tests/io/VeskInterop.java, the JDK side: "read" prints what
// it reads one value a line (strings as hex code units), "write" writes the
// same sequence, "bytes" writes the values whose encodings differ on purpose.
const int kInts[] = {0, 1, -1, 16909060, -2147483647 - 1, 2147483647};
const short kShorts[] = {0, -2, -32768, 32767};
const char kBytes[] = {0, 1, -1, -128, 127};

std::vector<std::u16string> Strings() {
  return {u"", u"hello", u"h\u00e9", u"\u20ac\u4e2d\u0800\u07ff\u007f\uffff",
          std::u16string(21845, u'\u20ac')};
}

std::string Units(const std::u16string& s) {
  std::string out = "s:";
  char hex[8];
  for (char16_t c : s) {
    std::snprintf(hex, sizeof hex, "%04X", static_cast<unsigned>(c));
    out += hex;
  }
  return out;
}

class JavaInterop : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (vesk_test::NoPeerReason()) return;
    if (std::system("javac -version >/dev/null 2>&1") != 0 ||
        std::system("java -version >/dev/null 2>&1") != 0) {
      return;
    }
    s_dir = vesk_test::MakeTempDir("vesk_java").string();
    int status;
    s_compileLog =
        vesk_test::CommandOutput("javac -d " + s_dir + " " VESK_JAVA_INTEROP_SOURCE " 2>&1", &status);
    s_ready = status == 0;
  }
  static void TearDownTestSuite() {
    if (!s_dir.empty()) std::filesystem::remove_all(s_dir);
  }
  void SetUp() override {
    if (vesk_test::NoPeerReason()) GTEST_SKIP() << vesk_test::NoPeerReason();
    if (s_dir.empty()) GTEST_SKIP() << "no JDK (java, javac) installed; JDK interop not checked";
    ASSERT_TRUE(s_ready) << "javac failed:\n" << s_compileLog;
  }
  static std::string Java(const std::string& mode, const std::string& file, int* status) {
    return vesk_test::CommandOutput("java -cp " + s_dir + " VeskInterop " + mode + " " + file + " 2>&1", status);
  }

  static std::string s_dir;
  static std::string s_compileLog;
  static bool s_ready;
};

std::string JavaInterop::s_dir;
std::string JavaInterop::s_compileLog;
bool JavaInterop::s_ready = false;

TEST_F(JavaInterop, JdkReadsWhatWeWrite) {
  CMemoryOutputStream memory;
  CJavaDataOutputStream out(&memory);
  for (int v : kInts) out << v;
  for (short v : kShorts) out << v;
  out << static_cast<unsigned short>(65535) << true << false;
  for (char v : kBytes) out << v;
  out << static_cast<unsigned char>(200);
  for (const std::u16string& s : Strings()) out << FromU16(s);
  out << FromU16(u"\U0001F600");
  std::string file = s_dir + "/ours.bin";
  std::ofstream(file, std::ios::binary) << vesk_test::Contents(memory);

  std::string expected;
  for (int v : kInts) expected += "i:" + std::to_string(v) + "\n";
  for (short v : kShorts) expected += "h:" + std::to_string(v) + "\n";
  expected += "H:65535\nz:true\nz:false\n";
  for (char v : kBytes) expected += "b:" + std::to_string(static_cast<int>(v)) + "\n";
  expected += "B:200\n";
  for (const std::u16string& s : Strings()) expected += Units(s) + "\n";
  expected += "malformed\neof:-1\n";

  int status;
  std::string printed = Java("read", file, &status);
  EXPECT_EQ(status, 0) << printed.substr(0, 2000);
  // Line by line, so a mismatch in the long string does not flood the log.
  std::istringstream got(printed), want(expected);
  for (std::string g, w; std::getline(want, w);) {
    ASSERT_TRUE(std::getline(got, g)) << "output ends before " << w.substr(0, 80);
    EXPECT_TRUE(g == w) << "got " << g.substr(0, 80) << ", want " << w.substr(0, 80);
  }
  EXPECT_TRUE(got.peek() == EOF) << "extra output";
}

TEST_F(JavaInterop, WeReadWhatJdkWrites) {
  std::string file = s_dir + "/theirs.bin";
  int status;
  std::string log = Java("write", file, &status);
  ASSERT_EQ(status, 0) << log;
  std::string bytes = vesk_test::FileBytes(file);

  CMemoryInputStream source(bytes.data(), static_cast<unsigned int>(bytes.size()), false);
  CJavaDataInputStream in(&source);
  for (int v : kInts) EXPECT_EQ(in.ReadInt32(), v);
  for (short v : kShorts) EXPECT_EQ(in.ReadInt16(), v);
  EXPECT_EQ(in.ReadUInt16(), 65535);
  EXPECT_TRUE(in.ReadBool());
  EXPECT_FALSE(in.ReadBool());
  for (char v : kBytes) EXPECT_EQ(in.ReadByte(), v);
  EXPECT_EQ(in.ReadSByte(), 200);
  for (const std::u16string& s : Strings()) EXPECT_EQ(ToU16(in.ReadString()), s);
  EXPECT_EQ(in.GetAvailable(), 0u);
}

// Where the formats differ on purpose: floating-point values travel in host
// (little-endian) order here and big-endian in the JDK; a character outside
// the Basic Multilingual Plane is one four-byte UTF-8 sequence here and two
// three-byte surrogate sequences there; U+0000 is C0 80 in the JDK, while a
// CUnicodeString ends at U+0000, so "a\0b" is the text "a" here.
TEST_F(JavaInterop, DeliberateDifferencesInTheBytes) {
  std::string file = s_dir + "/differ.bin";
  int status;
  std::string log = Java("bytes", file, &status);
  ASSERT_EQ(status, 0) << log;
  std::string theirs = vesk_test::FileBytes(file);
  // Float, double, "a\0b", U+1F600.
  ASSERT_EQ(theirs, vesk_test::Bytes({0x3F, 0x80, 0, 0, 0x3F, 0xF0, 0, 0, 0, 0, 0, 0, 0, 4, 'a',
                                      0xC0, 0x80, 'b', 0, 6, 0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}));

  CMemoryOutputStream memory;
  CJavaDataOutputStream out(&memory);
  out << 1.0f << 1.0 << FromU16(std::u16string(u"a\0b", 3)) << FromU16(u"\U0001F600");
  EXPECT_EQ(vesk_test::Contents(memory),
            vesk_test::Bytes({0, 0, 0x80, 0x3F, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F, 0, 1, 'a', 0, 4, 0xF0,
                              0x9F, 0x98, 0x80}));

  CMemoryInputStream source(theirs.data(), static_cast<unsigned int>(theirs.size()), false);
  CJavaDataInputStream in(&source);
  // The JDK's floating-point bytes do not read back as the same value.
  EXPECT_NE(in.ReadFloat(), 1.0f);
  EXPECT_NE(in.ReadDouble(), 1.0);
  // Its C0 80 is no character here: the text ends before it.
  EXPECT_EQ(ToU16(in.ReadString()), u"a");
  // Its surrogate sequences each read as one unit, so the pair survives.
  EXPECT_EQ(ToU16(in.ReadString()), u"\U0001F600");
  EXPECT_EQ(in.GetAvailable(), 0u);
}

}  // namespace
