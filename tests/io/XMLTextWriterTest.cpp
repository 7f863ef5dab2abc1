#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestStreams.h"
#include "TestSupport.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/IXMLSerializable.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLTextWriter.h"

using vesk::base::CRef;
using vesk::base::CUnicodeString;
using namespace vesk::io;
using vesk::testing::W;
using vesk_test::Contents;
using vesk_test::ExpectThrow;

namespace {

typedef std::function<void(CXMLTextWriter&)> Script;

const unsigned short kLf[] = {'\n', 0};

/// Two blanks a call: enough to see where the writer asks for indentation.
class CTwoBlanks : public CXMLTextTabulator {
 public:
  const unsigned short* GetTabString() override {
    ++calls;
    return W(u"  ");
  }
  int calls = 0;
};

/// The bytes a fresh writer (LF line ends, started document unless told
/// otherwise) produces for script, flushed but not closed.
std::string Written(const Script& script, bool start = true, CXMLTextTabulator* tab = nullptr) {
  CMemoryOutputStream out;
  CXMLTextWriter writer(&out, "UTF-8", 64, tab, kLf, false);
  if (start) writer.WriteStartDocument();
  script(writer);
  try {
    writer.Flush();
  } catch (const CIOException& e) {
    EXPECT_STREQ(e.GetErrorDescription(), "Writer closed.");  // the script closed it
  }
  std::string bytes = Contents(out);
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  if (start && bytes.compare(0, declaration.size(), declaration) == 0)
    bytes.erase(0, declaration.size());
  return bytes;
}

void ExpectXMLError(const Script& script, const char* message, bool start = true) {
  ExpectThrow<CXMLException>([&] { Written(script, start); }, message, "vesk/io/XMLTextWriter");
}

TEST(XMLTextWriterTest, TheTypicalDocumentByteForByte) {
  CMemoryOutputStream out;
  CTwoBlanks tab;
  {
    CXMLTextWriter writer(&out, "UTF-8", 16, &tab, nullptr, true);
    writer.WriteStartDocument();
    writer.WriteComment(W(u"orders"));
    writer.WriteStartElement(W(u"orders"));
    writer.WriteAttrLong(W(u"count"), 2);
    writer.WriteAttribute(W(u"by"), W(u"Zoë & \"Co\""));
    writer.WriteStartElement(W(u"order"));
    writer.WriteAttrBool(W(u"paid"), true);
    writer.WriteString(W(u"5 < 6 \U0001F600"));
    writer.WriteEndElement();
    writer.WriteElementDouble(W(u"total"), 1.0 / 3);
    writer.WriteStartElement(W(u"empty"));
    writer.WriteEndElement();
    writer.WriteEndDocument();
    writer.Close();
    ExpectThrow<CIOException>([&] { writer.WriteComment(nullptr); }, "Writer closed.");
    ExpectThrow<CIOException>([&] { writer.Close(); }, "Writer closed.");
  }
  EXPECT_EQ(Contents(out),
            "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
            "<!-- orders-->\r\n"
            "  <orders count=\"2\" by=\"Zo\xC3\xAB &amp; &quot;Co&quot;\">\r\n"
            "  <order paid=\"true\">\r\n"
            "5 &lt; 6 &#x1F600;  </order>\r\n"
            "  <total>0.333333333333333</total>\r\n"
            "  <empty/>\r\n"
            "  </orders>\r\n");
  EXPECT_EQ(tab.calls, 6);
}

struct Case {
  const char* name;
  Script script;
  const char* expected;
};

TEST(XMLTextWriterTest, EdgeCasesGiveTheirExactText) {
#define S(...) [](CXMLTextWriter& w) { __VA_ARGS__; }
  const Case cases[] = {
      {"ended at once", S(w.WriteStartElement(W(u"a")); w.WriteEndElement()), "<a/>\n"},
      {"full end", S(w.WriteStartElement(W(u"a")); w.WriteFullEndElement()), "<a>\n</a>\n"},
      {"escaping", S(w.WriteString(W(u"a<b&c")); w.WriteString(W(u"'>\""))),
       "a&lt;b&amp;c&apos;&gt;&quot;"},
      {"empty text prints nothing, tag stays open",
       S(w.WriteStartElement(W(u"a")); w.WriteString(W(u"")); w.WriteAttribute(W(u"x"), W(u""))),
       "<a x=\"\""},
      {"default namespace inherited",
       S(w.WriteStartElement(W(u"a"), W(u"urn:n")); w.WriteStartElement(W(u"b"), W(u"urn:n"));
         w.WriteElementString(W(u"c"), W(u"urn:n"), W(u"&"))),
       "<a xmlns=\"urn:n\">\n<b>\n<c>&amp;</c>\n"},
      {"bound prefix reused, shadowed prefix not",
       S(w.WriteStartElement(W(u"p"), W(u"a"), W(u"urn:1"));
         w.WriteStartElement(W(u"p"), W(u"b"), W(u"urn:1"));
         w.WriteAttribute(W(u"x"), W(u"urn:1"), W(u"<")); w.WriteStartElement(W(u"c"), W(u"urn:1"));
         w.WriteStartElement(W(u"p"), W(u"d"), W(u"urn:2"));
         w.WriteStartElement(W(u"e"), W(u"urn:1")); w.WriteEndElement(); w.WriteEndElement();
         w.WriteStartElement(W(u"f"), W(u"urn:1"))),
       "<p:a xmlns:p=\"urn:1\">\n<p:b p:x=\"&lt;\">\n<p:c>\n<p:d xmlns:p=\"urn:2\">\n"
       "<e xmlns=\"urn:1\"/>\n</p:d>\n<p:f"},
      {"scope recomputed after a pop",
       S(w.WriteStartElement(W(u"a"), W(u"urn:1")); w.WriteStartElement(W(u"b"), W(u"urn:2"));
         w.WriteEndElement(); w.WriteStartElement(W(u"c"), W(u"urn:1"));
         w.WriteAttrNamespaceDeclaration(W(u"q"), W(u"urn:3"));
         w.WriteAttrDefaultNamespaceDeclaration(W(u"urn:4"));
         w.WriteElementString(W(u"d"), W(u"urn:4"), nullptr);
         w.WriteElementString(W(u"e"), W(u"urn:3"), nullptr)),
       "<a xmlns=\"urn:1\">\n<b xmlns=\"urn:2\"/>\n<c xmlns:q=\"urn:3\" xmlns=\"urn:4\">\n"
       "<d></d>\n<q:e></q:e>\n"},
      {"four-argument attribute raw, whitespace inside the open tag",
       S(w.WriteStartElement(W(u"a")); w.WriteAttribute(W(u"x"), W(u"b"), W(u"urn:x"), W(u"<&>"));
         w.WriteWhitespace(W(u"\t")); w.WriteEntityRef(W(u"amp"))),
       "<a x:b=\"<&>\"\t>\n&amp;"},
      {"comment, PI, CDATA",
       S(w.WriteComment(nullptr); w.WriteProcessingInstruction(W(u"t"), W(u"d"));
         w.WriteStartElement(W(u"a")); w.WriteCDATA(W(u"<&]")); w.WriteComment(W(u"c"))),
       "<!-- -->\n<?t d?>\n<a>\n<![CDATA[<&]]]>\n<!-- c-->\n"},
      {"end document ends all",
       S(for (auto n : {u"a", u"b", u"c"}) w.WriteStartElement(W(n)); w.WriteEndDocument()),
       "<a>\n<b>\n<c/>\n</b>\n</a>\n"},
      {"close ends one",
       S(for (auto n : {u"a", u"b", u"c"}) w.WriteStartElement(W(n)); w.WriteString(W(u"x"));
         w.Close()),
       "<a>\n<b>\n<c>\nx</c>\n"},
      {"typed element texts",
       S(w.WriteElementDouble(W(u"d"), 1.0 / 3);
         w.WriteElementDouble(W(u"d"), W(u"urn:n"), 1.0 / 3); w.WriteElementChar(W(u"c"), 'A');
         w.WriteElementInt64(W(u"i"), -9000000000LL);
         w.WriteElementUnsignedInt64(W(u"u"), 18446744073709551615ULL);
         w.WriteElementUnsignedLong(W(u"u"), 4294967295u); w.WriteElementFloat(W(u"f"), 2.5f);
         w.WriteElementBool(W(u"b"), false); w.WriteElementBase64(W(u"b"), "xyz", 1, 2);
         w.WriteElementBinHex(W(u"h"), "\x01\xAB", 0, 2)),
       "<d>0.333333333333333</d>\n<d xmlns=\"urn:n\">0.333333</d>\n<c>65</c>\n"
       "<i>-9000000000</i>\n<u>18446744073709551615</u>\n<u>4294967295</u>\n<f>2.5</f>\n"
       "<b>false</b>\n<b>eXo=</b>\n<h>01AB</h>\n"},
      {"typed attributes and content",
       S(w.WriteStartElement(W(u"p"), W(u"a"), W(u"urn:n")); w.WriteAttrDouble(W(u"d"), 0.1);
         w.WriteAttrShort(W(u"s"), W(u"urn:n"), -5); w.WriteAttrUnsignedChar(W(u"c"), 255);
         w.WriteDouble(1.0 / 3); w.WriteFloat(2.5f); w.WriteUInt64(0x100000007ULL);
         w.WriteChar('<'); w.Write(static_cast<unsigned short>(65535)); w.Write(true)),
       "<p:a xmlns:p=\"urn:n\" d=\"0.1\" p:s=\"-5\" c=\"255\">\n0.3333332.5000007&lt;65535true"},
  };
#undef S
  for (const Case& c : cases) EXPECT_EQ(Written(c.script), c.expected) << c.name;
}

TEST(XMLTextWriterTest, IndentationOnlyWhereAsked) {
  CTwoBlanks tab;
  EXPECT_EQ(Written(
                [](CXMLTextWriter& w) {
                  w.WriteStartElement(W(u"a"));
                  w.WriteStartElement(W(u"b"), W(u"urn:n"));
                  w.WriteElementString(W(u"c"), W(u"x"));
                  w.WriteElementString(W(u"c"), W(u"urn:n"), W(u"x"));
                  w.WriteFullEndElement();
                  w.WriteEndElement();
                },
                true, &tab),
            "  <a>\n<b xmlns=\"urn:n\">\n  <c>x</c>\n<c>x</c>\n</b>\n  </a>\n");
}

TEST(XMLTextWriterTest, RuleViolationsThrowTheirMessages) {
  typedef void (*Op)(CXMLTextWriter&);
  struct Violation {
    Op op;
    const char* message;
  };
  // Each with an open start tag <r>.
#define V(body, message)                     \
  {                                          \
    [](CXMLTextWriter& w) { body; }, message \
  }
  const Violation open[] = {
    V(w.WriteStartElement(W(u"")), "Invalid local name."),
    V(w.WriteStartElement(nullptr, W(u"urn:n")), "Invalid local name."),
    V(w.WriteStartElement(W(u"a:b")), "Local name must be unqualified name."),
    V(w.WriteStartElement(W(u"1a")), "Invalid character error."),
    V(w.WriteStartElement(W(u"a\U0001F600")), "Invalid character error."),
    V(w.WriteStartElement(W(u"a"), W(u"")), "Invalid namespace URI."),
    V(w.WriteStartElement(W(u""), W(u"a"), W(u"urn:n")), "Invalid prefix."),
    V(w.WriteStartElement(W(u"p:q"), W(u"a"), W(u"urn:n")), "Invalid character error."),
    V(w.WriteAttribute(W(u"a"), W(u"urn:none"), W(u"v")), "Undeclared namespace."),
    V(w.WriteAttribute(nullptr, W(u"a"), W(u"urn:n"), W(u"v")), "Invalid prefix."),
    V(w.WriteAttribute(W(u"a"), W(u"\x01")), "Invalid character error."),
    V(w.WriteAttribute(W(u"p"), W(u"a"), W(u"u"), W(u"\xFFFF")), "Invalid character error."),
    V(w.WriteAttrNamespaceDeclaration(W(u""), W(u"urn:n")), "Invalid prefix."),
    V(w.WriteAttrNamespaceDeclaration(W(u"-"), W(u"urn:n")), "Invalid character error."),
    V(w.WriteAttrNamespaceDeclaration(W(u"p"), nullptr), "Invalid namespace URI."),
    V(w.WriteAttrNamespaceDeclaration(W(u"p"), W(u"urn:1"));
      w.WriteAttrNamespaceDeclaration(W(u"p"), W(u"urn:2")),
      "This start element already declares the prefix."),
    V(w.WriteAttrDefaultNamespaceDeclaration(W(u"urn:1"));
      w.WriteAttrDefaultNamespaceDeclaration(W(u"urn:2")),
      "This start element already contains default namespace declaration."),
    V(w.WriteString(W(u"ok\xD800")), "Invalid character error."),
    V(w.WriteString(W(u"\xDC00x")), "Invalid character error."),
    V(w.WriteElementString(W(u"e"), W(u"\x0B")), "Invalid character error."),
    V(w.WriteEntityRef(W(u"")), "Invalid entity name."),
    V(w.WriteEntityRef(W(u"a;b")), "Invalid character error."),
    V(w.WriteProcessingInstruction(nullptr, W(u"d")), "Invalid processing instruction target."),
    V(w.WriteProcessingInstruction(W(u"t"), W(u"")), "Invalid processing instruction data."),
    V(w.WriteString(W(u"x"));
      w.WriteAttribute(W(u"a"), W(u"v")), "Attributes must be written at start element."),
    V(w.WriteEndElement();
      w.WriteEndElement(), "There is no start elements to close in the current context."),
  };
#undef V
  for (const Violation& v : open) {
    // The failing call leaves the start tag open and the line unprinted.
    EXPECT_EQ(Written([&](CXMLTextWriter& w) {
                w.WriteStartElement(W(u"r"));
                ExpectThrow<CXMLException>([&] { v.op(w); }, v.message, "vesk/io/XMLTextWriter");
              }).substr(0, 2),
              "<r")
        << v.message;
  }
  ExpectXMLError([](CXMLTextWriter& w) { w.WriteStartElement(W(u"a")); },
                 "Document hasn't been started yet.", false);
  ExpectXMLError([](CXMLTextWriter& w) { w.WriteProcessingInstruction(W(u"t"), nullptr); },
                 "Invalid processing instruction data.", false);
  for (Script before : {Script([](CXMLTextWriter& w) { w.WriteCDATA(W(u"x")); }),
                        Script([](CXMLTextWriter& w) { w.WriteEndDocument(); }),
                        Script([](CXMLTextWriter& w) { w.WriteEntityRef(W(u"lt")); })})
    ExpectXMLError(before, "Document root hasn't been written yet.");
  EXPECT_EQ(Written([](CXMLTextWriter& w) { w.WriteComment(W(u"c")); }), "<!-- c-->\n");

  CMemoryOutputStream out;
  auto make = [&](COutputStream* to, const char* encoding, unsigned int size) {
    CXMLTextWriter w(to, encoding, size, nullptr, nullptr, false);
  };
  for (const char* encoding : {"", static_cast<const char*>(nullptr)})
    ExpectThrow<CXMLException>([&] { make(&out, encoding, 8); }, "Invalid encoding specification.",
                               "vesk/io/XMLTextWriter");
  vesk_test::ExpectUnsupportedEncoding([&] { make(&out, "utf-8", 8); }, "utf-8");
  using vesk::base::CIllegalArgumentException;
  ExpectThrow<CIllegalArgumentException>([&] { make(nullptr, "UTF-8", 8); }, "Invalid output stream..");
  ExpectThrow<CIllegalArgumentException>([&] { make(&out, "UTF-8", 0); }, "Invalid buffer size.");
}

TEST(XMLTextWriterTest, SharedStreamLivesAndClosesWithTheWriter) {
  vesk_test::Tally tally;
  CUnicodeString eol;
  {
    CRef<COutputStream> out(new vesk_test::CTestOutputStream(&tally));
    CXMLTextWriter writer(out, "UTF-8", 4, nullptr, nullptr, false);
    out = vesk::null;
    writer.GetEndOfLine(eol);
    EXPECT_STREQ(writer.GetEncoding(), "UTF-8");
    writer.WriteStartDocument();
    writer.Close();
    EXPECT_EQ(tally.closed, 1);
    ExpectThrow<CIOException>([&] { writer.GetEndOfLine(eol); }, "Writer closed.");
    ExpectThrow<CIOException>([&] { writer.Flush(); }, "Writer closed.");
  }
  EXPECT_TRUE(eol == "\r\n");
  EXPECT_EQ(tally.destroyed, 1);
}

TEST(XMLTextWriterTest, WritesAFileByLocation) {
  const std::filesystem::path scratch = vesk_test::MakeTempDir("vesk-xml-location");
  const std::string pathText = (scratch / "out.xml").string();
  const char* path = pathText.c_str();
  {
    std::ofstream(path) << "old content that must go";
    CXMLTextWriter writer(IO::Location(path), "UTF-8", 16, nullptr, kLf, false);
    writer.WriteStartDocument();
    writer.WriteElementString(W(u"a"), W(u"\u00e9"));
    writer.Close();
  }
  const std::string written = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xC3\xA9</a>\n";
  EXPECT_EQ(vesk_test::FileBytes(path), written);
  // A bad encoding is refused before the file is emptied.
  ExpectThrow<CXMLException>(
      [&] { CXMLTextWriter w(IO::Location(path), "", 16, nullptr, kLf, false); },
      "Invalid encoding specification.");
  EXPECT_EQ(vesk_test::FileBytes(path), written);
  std::filesystem::remove_all(scratch);
  EXPECT_THROW(
      CXMLTextWriter(IO::Location("/nonexistent-dir/x.xml"), "UTF-8", 16, nullptr, kLf, false),
      CIOException);
}

// --- the typed defaults of every writer ----------------------------------------

/// Records the string writes the defaults delegate to.
class CRecordingWriter : public CXMLWriter {
 public:
  using S = const unsigned short*;
  std::u16string log;
  void Note(const char16_t* what, S a, S b, S c = nullptr) {
    log += what;
    for (S t : {a, b, c})
      if (t) log += u"|" + std::u16string(reinterpret_cast<const char16_t*>(t));
    log += u";";
  }
  void WriteStartDocument() override {}
  void WriteEndDocument() override {}
  void WriteCDATA(S) override {}
  void WriteComment(S) override {}
  void WriteProcessingInstruction(S, S) override {}
  void WriteEntityRef(S) override {}
  void WriteWhitespace(S) override {}
  void WriteStartElement(S) override {}
  void WriteStartElement(S, S) override {}
  void WriteStartElement(S, S, S) override {}
  void WriteEndElement() override {}
  void WriteFullEndElement() override {}
  void WriteElementString(S l, S ns, S t) override { Note(u"E", l, ns, t); }
  void WriteElementString(S l, S t) override { Note(u"E", l, t); }
  void WriteAttribute(S, S, S, S) override {}
  void WriteAttribute(S l, S ns, S v) override { Note(u"A", l, ns, v); }
  void WriteAttribute(S l, S v) override { Note(u"A", l, v); }
  void WriteAttrDefaultNamespaceDeclaration(S) override {}
  void WriteAttrNamespaceDeclaration(S, S) override {}
  void WriteString(S t) override { Note(u"S", t, nullptr); }
  void Flush() override {}
  void Close() override {}
};

class CNothing : public IXMLSerializable {
 public:
  void ReadXML(CXMLReader&) override {}
  void WriteXML(CXMLWriter&) const override { ++calls; }
  mutable int calls = 0;
};

TEST(XMLWriterTest, DefaultsFormatAndDelegate) {
  CRecordingWriter w;
  w.WriteElementDouble(W(u"d"), 2.5);
  w.WriteElementFloat(W(u"f"), W(u"n"), 0.5f);
  w.WriteElementShort(W(u"s"), -3);
  w.WriteElementUnsignedLong(W(u"u"), 4294967295u);
  w.WriteElementBool(W(u"b"), true);
  w.WriteAttrLong(W(u"l"), W(u"n"), -7);
  w.WriteAttrDouble(W(u"d"), 0.1);
  w.WriteBool(false);
  w.WriteDouble(1.0 / 3);
  w.WriteBase64("ab", 0, 2);
  w.WriteElementBinHex(W(u"h"), "\xFF", 0, 1);
  CNothing nothing;
  w.WriteObject(nothing);
  EXPECT_EQ(nothing.calls, 1);
  EXPECT_EQ(w.log,
            u"E|d|2.500000;E|f|n|0.500000;E|s|-3;E|u|4294967295;E|b|true;A|l|n|-7;A|d|0.100000;"
            u"S|false;S|0.333333;S|YWI=;E|h|FF;");
}

// --- allocation failures ------------------------------------------------------

TEST(XMLTextWriterTest, AllocationFailuresLeaveNoLeakAndAUsableWriter) {
  const std::u16string text(300, u'&');
  // Fails the nth allocation after the writer is made (0: none); returns
  // whether the run made that many allocations.
  auto run = [&](unsigned long n) {
    CMemoryOutputStream out;
    unsigned long start = 0;
    try {
      CXMLTextWriter writer(&out, "UTF-8", 8, nullptr, kLf, false);
      vesk::platform::FailAllocationAt(n);
      start = vesk::platform::AllocationCount();
      try {
        writer.WriteStartDocument();
        for (int depth = 0; depth < 14; ++depth) {
          writer.WriteStartElement(W(u"element-with-a-name-longer-than-the-line"), W(u"urn:a"));
          writer.WriteAttrNamespaceDeclaration(W(u"p"), W(u"urn:p"));
          writer.WriteString(W(text.c_str()));
        }
        writer.WriteEndDocument();
      } catch (const CIOException& e) {
        EXPECT_STREQ(e.GetErrorDescription(), "Memory full.") << n;
      }
      vesk::platform::FailAllocationAt(0);
      writer.WriteStartDocument();
      writer.WriteComment(W(u"still usable"));
      writer.Close();
    } catch (const vesk::base::CMemoryException&) {
      ADD_FAILURE() << "CMemoryException from a write, allocation " << n;
    }
    vesk::platform::FailAllocationAt(0);
    return vesk::platform::AllocationCount() - start >= n;
  };
  vesk::testing::FaultGuard guard;
  run(0);  // lazily made blocks of the library are made once, here
  long before = vesk::testing::Outstanding();
  unsigned long n = 1;
  for (; n < 2000 && run(n); ++n) EXPECT_EQ(before, vesk::testing::Outstanding()) << n;
  EXPECT_GT(n, 20u);
  EXPECT_LT(n, 2000u);
  EXPECT_EQ(before, vesk::testing::Outstanding());

  CMemoryOutputStream out;
  EXPECT_GT(vesk::testing::FailEachAllocationInTurn(
                [&] { CXMLTextWriter writer(&out, "UTF-8", 8, nullptr, kLf, true); }),
            3);
}

}  // namespace
