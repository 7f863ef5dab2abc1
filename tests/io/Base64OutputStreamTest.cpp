#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/Base64OutputStream.h"
#include "vesk/io/MemoryOutputStream.h"

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using namespace vesk::io;
using vesk_test::CTestOutputStream;

namespace {

std::string Encode(const std::string& bytes, unsigned int lineLength, bool flush = true) {
  CTestOutputStream sink;
  CBase64OutputStream out(&sink, lineLength);
  out.Write(bytes.data(), static_cast<unsigned int>(bytes.size()));
  if (flush) out.Flush();
  return sink.data;
}

// Python's encoder checks the text at large (MatchesPythonBase64); these are
// the rules it does not see.
TEST(Base64OutputStreamTest, PaddingHeldBytesAndLineBreaks) {
  EXPECT_EQ(Encode("Ma", 0), "TWE=");
  EXPECT_EQ(Encode("\xFF\xFE\xFD", 0), "//79");  // bytes are taken as unsigned
  // Held bytes are written only by Flush.
  EXPECT_EQ(Encode("Ma", 0, false), "");
  EXPECT_EQ(Encode("Many", 0, false), "TWFu");
  // A line breaks only before a character that would overflow it.
  EXPECT_EQ(Encode("abcdefg", 4), "YWJj\r\nZGVm\r\nZw==");
  EXPECT_EQ(Encode("abcdef", 3), "YWJ\r\njZG\r\nVm");
}

TEST(Base64OutputStreamTest, FlushInMidDataPadsAndStartsANewGroup) {
  CTestOutputStream sink;
  CBase64OutputStream out(&sink, 0);
  out.Write("Ma", 2);
  out.Flush();
  out.Write("n", 1);
  out.Flush();
  out.Flush();  // nothing held: only the wrapped flush
  EXPECT_EQ(sink.data, "TWE=bg==");
  EXPECT_EQ(sink.flushedAt, (std::vector<size_t>{4, 8, 8}));
}

TEST(Base64OutputStreamTest, CloseDropsHeldBytesAndClosesTheWrappedStream) {
  vesk_test::Tally tally;
  CTestOutputStream sink(&tally);
  {
    CBase64OutputStream out(&sink, 0);
    out.Write("Ma", 2);
    out.Close();
    EXPECT_EQ(tally.closed, 1);
  }
  EXPECT_EQ(sink.data, "");
  EXPECT_EQ(tally.flushed, 0);
}

TEST(Base64OutputStreamTest, NullStreamsAreRejected) {
  vesk_test::ExpectEachThrows<CIllegalArgumentException>(
      {[] { CBase64OutputStream out(static_cast<COutputStream*>(nullptr), 0); },
       [] { CBase64OutputStream out(CRef<COutputStream>(), 0); }},
      "Invalid output stream.", "vesk/io/Base64OutputStream");
}

TEST(Base64OutputStreamTest, FailingWrappedStreamNeverOverrunsTheGroup) {
  struct CFailingSink : COutputStream {
    void Write(char) override { throw CIOException("test", 1); }
    void Write(const char*, unsigned int, unsigned int) override { throw CIOException("test", 1); }
    void Flush() override {}
    void Close() override {}
  } sink;
  CBase64OutputStream out(&sink, 0);
  for (int i = 0; i < 12; ++i) {
    if (i % 3 == 2) {
      EXPECT_THROW(out.Write('x'), CIOException);
    } else {
      out.Write('x');
    }
  }
}

// Compares the stream's text with Python's base64 module over random data of
// random lengths, unbroken and broken into CR LF lines of several lengths.
// Array writes encode whole groups in blocks; what reaches the wrapped stream
// must be what one-byte writes produce, from any split and at any line length.
TEST(Base64OutputStreamTest, ArrayWritesMatchByteWrites) {
  std::mt19937 random(7);
  std::string data(5000, '\0');
  for (char& c : data) c = static_cast<char>(random());
  for (unsigned int lineLength : {0u, 1u, 2u, 3u, 4u, 5u, 7u, 76u}) {
    CTestOutputStream bytes, blocks;
    CBase64OutputStream one(&bytes, lineLength), many(&blocks, lineLength);
    for (char c : data) one.Write(c);
    for (size_t at = 0; at < data.size();) {
      size_t n = std::min<size_t>(random() % 40 == 0 ? 4000 : random() % 11, data.size() - at);
      many.Write(data.data(), static_cast<unsigned int>(at), static_cast<unsigned int>(n));
      at += n;
    }
    one.Flush();
    many.Flush();
    EXPECT_EQ(blocks.data, bytes.data) << "lines of " << lineLength;
  }
  // A subclass that takes the bytes one by one still gets every one.
  struct Counting : CBase64OutputStream {
    using CBase64OutputStream::CBase64OutputStream;
    using CBase64OutputStream::Write;
    void Write(char byte) override {
      ++count;
      CBase64OutputStream::Write(byte);
    }
    int count = 0;
  };
  CTestOutputStream sink;
  Counting counting(&sink, 0);
  counting.Write(data.data(), 100);
  EXPECT_EQ(counting.count, 100);
}

TEST(Base64OutputStreamTest, MatchesPythonBase64) {
  if (vesk_test::NoPeerReason()) GTEST_SKIP() << vesk_test::NoPeerReason();
  if (std::system("python3 -c 'import base64' >/dev/null 2>&1") != 0) {
    GTEST_SKIP() << "python3 with its base64 module is not available";
  }
  const std::string dir = vesk_test::MakeTempDir("vesk-base64").string();
  unsigned int seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const unsigned int kLineLengths[] = {0, 1, 4, 64, 76, 7};
  std::vector<std::string> cases;
  std::string args;
  for (int i = 0; i < 60; ++i) {
    std::string data;
    size_t length = i < 8 ? i : random() % (i < 50 ? 300 : 70000);
    for (size_t k = 0; k < length; ++k) data.push_back(static_cast<char>(random()));
    std::string path = dir + "/" + std::to_string(i);
    std::ofstream(path, std::ios::binary) << data;
    args += " " + path + " " + std::to_string(kLineLengths[i % 6]);
    cases.push_back(data);
  }
  // One line of hex per case: the encoded text, lines joined with CR LF.
  int status;
  std::istringstream output(
      vesk_test::CommandOutput("python3 " VESK_BASE64_JUDGE_SCRIPT + args, &status));
  ASSERT_EQ(status, 0);
  for (size_t i = 0; i < cases.size(); ++i) {
    std::string hex, expected;
    ASSERT_TRUE(std::getline(output, hex));
    for (size_t k = 0; k + 1 < hex.size(); k += 2)
      expected.push_back(static_cast<char>(std::stoi(hex.substr(k, 2), nullptr, 16)));
    // Feed the bytes through both the array write and single-byte writes.
    CMemoryOutputStream memory(0, 4096);
    CBase64OutputStream out(&memory, kLineLengths[i % 6]);
    const std::string& data = cases[i];
    size_t half = data.size() / 2;
    out.Write(data.data(), static_cast<unsigned int>(half));
    for (size_t k = half; k < data.size(); ++k) out.Write(data[k]);
    out.Flush();
    EXPECT_EQ(vesk_test::Contents(memory), expected)
        << "case " << i << ": " << data.size() << " bytes, lines of " << kLineLengths[i % 6];
  }
  std::filesystem::remove_all(dir);
}

}  // namespace
