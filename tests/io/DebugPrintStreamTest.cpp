#include <string>

#include <gtest/gtest.h>

#include "io/TestStreams.h"
#include "vesk/base/Exception.h"
#include "vesk/base/System.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/DebugSink.h"

using vesk::base::CString;
using vesk::base::CSystem;
using vesk::io::CDebugPrintStream;
using vesk::io::CIOException;

namespace {

// Captures what the debug sink receives, one string per call.
class DebugPrintStreamTest : public ::testing::Test {
 protected:
  static void Capture(const char* text, std::size_t length, void* context) {
    static_cast<DebugPrintStreamTest*>(context)->m_pieces.push_back(std::string(text, length));
  }
  void SetUp() override { m_old = vesk::platform::SetDebugCaptureHook(&Capture, this); }
  void TearDown() override { vesk::platform::SetDebugCaptureHook(m_old, nullptr); }
  std::string All() const {
    std::string all;
    for (const std::string& piece : m_pieces) all += piece;
    return all;
  }

  std::vector<std::string> m_pieces;
  vesk::platform::DebugCaptureHook m_old = nullptr;
};

}  // namespace

TEST_F(DebugPrintStreamTest, PrintsEachValueInOnePiece) {
  CDebugPrintStream out;
  vesk_test::PrintEach(out, static_cast<short>(-3), true, 'x', 1.5f, "text");
  vesk_test::PrintlnEach(out, 42, false, 'y', 2.25f, 0.5, 4000000000u, CString("line"));
  out.Println();
  EXPECT_EQ(18u, m_pieces.size());
  EXPECT_EQ("-3|true|x|1.500000|text|42\nfalse\ny\n2.250000\n0.500000\n4000000000\nline\n\n", All());
}

TEST_F(DebugPrintStreamTest, KeepsTheTwoHistoricPrints) {
  CDebugPrintStream out;
  out.Print(42u);
  EXPECT_EQ("lu", All());
  m_pieces.clear();
  // 1.5 is 0x3FF8000000000000: its low 32 bits are 0.
  out.Print(1.5);
  // The low word of 0.1 (0x3FB999999999999A) is 0x9999999A.
  out.Print(0.1);
  EXPECT_EQ("0" + std::to_string(static_cast<int>(0x9999999Au)), All());
}

TEST_F(DebugPrintStreamTest, EmptyTextsSendNothing) {
  CDebugPrintStream out;
  out.Print("");
  out.Print(static_cast<const char*>(nullptr));
  out.Println("");
  out.Println(static_cast<const char*>(nullptr));
  out.Print(CString());
  out.Println(CString(""));
  EXPECT_TRUE(m_pieces.empty());
}

TEST_F(DebugPrintStreamTest, RawBytesAreRefusedAndCloseIsFinal) {
  CDebugPrintStream out;
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { out.Write('x'); }, [&] { out.Write("ab", 2); }, [&] { out.Write("ab", 0, 2); }},
      "Unsupported on class CDebugPrintStream.");
  EXPECT_NO_THROW(out.Flush());
  out.Close();
  out.Close();  // repeatable
  EXPECT_FALSE(out.IsOpen());
  vesk_test::ExpectEachThrows<CIOException>(
      {[&] { out.Write('x'); }, [&] { out.Print(1); }, [&] { out.Flush(); }}, "Stream closed.");
  EXPECT_TRUE(m_pieces.empty());
}

TEST_F(DebugPrintStreamTest, SystemDebugOutPrintsExceptionReports) {
  EXPECT_EQ(&CDebugPrintStream::m_classCDebugPrintStream, CSystem::debugOut.GetClass());
  vesk::base::CException e("vesk/base/Thing", 7, "Described.", nullptr);
  e.Print(CSystem::debugOut);
  EXPECT_EQ(
      "--- Exception occured ----------------------------------------------------------\n"
      "\tvesk::base::CException\n"
      "--- Details --------------------------------------------------------------------\n"
      "\tLocation :\n\t\tvesk/base/Thing(7)\n"
      "\tError description :\n\t\tDescribed.\n",
      All());
}
