#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "TestSupport.h"
#include "vesk/io/IXMLStartElementToken.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLTextReader.h"

using namespace vesk::io;
using vesk::base::CRef;
using vesk::base::CUnicodeString;
using vesk::testing::W;
using namespace vesk_test;

namespace {

const char kSource[] = "vesk/io/XMLTextReader";

std::string Dump(const std::string& doc, unsigned int chunk = 0) { return DumpTokens(*XMLReaderOn(doc, chunk)); }

TEST(XMLTextReaderTest, TokensOfDocuments) {
  struct Case {
    const char* doc;
    const char* tokens;
  } cases[] = {
      {"<a/>", "<a> </a>"},
      // White space outside the root makes no token; inside it does.
      {"<?xml version=\"1.0\"?>\n<a> <b>x</b>\n</a>\n", "<a> ' ' <b> 'x' </b> '\n' </a>"},
      // A run of text split by references is one token.
      {"<a>Tom &amp; Jerry &lt;3 &#x41;&#65;</a>", "<a> 'Tom & Jerry <3 AA' </a>"},
      {"<!--c--><?p d?><a><![CDATA[<x>]]>t<!--d--><?q?></a><!--e-->",
       "#c ?p d <a> [<x>] 't' #d ?q  </a> #e"},
      {"<a k=\"1\" j=' x &amp; '><b/></a>", "<a k=1 j= x & > <b> </b> </a>"},
      {"<p:a xmlns:p=\"urn:x\" p:k=\"v\" k2=\"w\"><b xmlns=\"urn:d\"/></p:a>",
       "<p:a{urn:x}a xmlns:p{http://www.w3.org/2000/xmlns/}p=urn:x p:k{urn:x}k=v k2=w> "
       "<b{urn:d}b xmlns=urn:d> </b{urn:d}b> </p:a{urn:x}a>"},
      // The encoding comes from the declaration or the byte-order mark.
      {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>", "<a> '\xC3\xA9' </a>"},
      {"\xEF\xBB\xBF<a>\xE2\x82\xAC</a>", "<a> '\xE2\x82\xAC' </a>"},
  };
  for (const Case& c : cases) EXPECT_EQ(Dump(c.doc), c.tokens) << c.doc;
  // UTF-16 with its byte-order mark.
  EXPECT_EQ(Dump(std::string("\xFF\xFE<\0a\0/\0>\0", 10)), "<a> </a>");
  // Byte by byte, the scanner sees the same document.
  EXPECT_EQ(Dump("<a x='1'>text &amp; more<b/></a>", 1), "<a x=1> 'text & more' <b> </b> </a>");
}

TEST(XMLTextReaderTest, MalformedDocumentsFailWithTheScannersText) {
  // Each fails at creation or at the read that meets the error (the scanner
  // decodes ahead), always with the scanner's text and position.
  const char* docs[] = {"", "<", "<a", "no markup", "<?xml version=\"1.0\" encoding=\"no-such\"?><a/>",
                        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\xC3<a/>", "<a>\xFF\xFE</a>",
                        "<a><b></c></a>", "<a>&undefined;</a>", "<a>x</a><b/>", "<a x='1' x='2'/>", "<a>]]></a>",
                        "<a><!-- -- --></a>", "<a>&#0;</a>"};
  for (const char* doc : docs) {
    CRef<CXMLReader> reader;
    try {
      reader = XMLReaderOn(doc);
      while (reader->ReadToken()) {
      }
      ADD_FAILURE() << doc;
    } catch (const CXMLException& e) {
      EXPECT_STREQ(e.GetErrorDescription(), reader.IsNull() ? "Failed to create XML text tokenizer."
                                                            : "Failed to get the next token of xml text tokenizer.")
          << doc;
      EXPECT_STREQ(e.GetSourceFile(), kSource);
      ASSERT_NE(e.GetMessage(), nullptr);
      EXPECT_NE(std::string(e.GetMessage()).find("(line 1, column"), std::string::npos) << e.GetMessage();
    }
    // The failure stays: the scanner is not asked again.
    if (!reader.IsNull())
      ExpectThrow<CXMLException>([&] { reader->ReadToken(); }, "Failed to get the next token of xml text tokenizer.");
  }
  // Tokens taken before the failing step stay read.
  CRef<CXMLReader> reader = XMLReaderOn("<a><b>x</c></a>");
  EXPECT_TRUE(reader->ReadToken());
  EXPECT_EQ(DescribeToken(reader->GetCurrentToken()), "<a>");
}

TEST(XMLTextReaderTest, NothingOutsideTheDocumentIsRead) {
  // A DTD file that exists but would not parse: were it read, the document
  // would fail.
  std::string dtd = ::testing::TempDir() + "vesk_bad.dtd";
  std::ofstream(dtd) << "<<< not a DTD";
  const std::string docs[] = {
      "<!DOCTYPE a SYSTEM \"" + dtd + "\"><a>x</a>",
      "<!DOCTYPE a SYSTEM \"/no/such/file.dtd\"><a>x</a>",
      "<!DOCTYPE a PUBLIC \"-//X//Y//EN\" \"http://example.invalid/a.dtd\"><a>x</a>",
      "<!DOCTYPE a [<!ENTITY % p SYSTEM \"http://example.invalid/p\"> %p;]><a>x</a>",
  };
  for (const std::string& doc : docs) EXPECT_EQ(Dump(doc), "<a> 'x' </a>") << doc;
  std::remove(dtd.c_str());
  // A reference to a declared entity is refused, never dropped or fetched.
  const char* refused[] = {
      "<!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>",
      "<!DOCTYPE a [<!ENTITY e SYSTEM \"http://example.invalid/e\">]><a>&e;</a>",
      "<!DOCTYPE a [<!ENTITY e \"x\">]><a k='&e;'/>",
  };
  for (const char* doc : refused)
    ExpectThrow<CXMLException>([&] { DumpTokens(*XMLReaderOn(doc)); },
                               "Failed to get the next token of xml text tokenizer.");
}

TEST(XMLTextReaderTest, EntityExpansionIsBounded) {
  std::string laughs = "<?xml version=\"1.0\"?><!DOCTYPE l [<!ENTITY l0 \"lol\">";
  for (int i = 1; i < 10; ++i) {
    laughs += "<!ENTITY l" + std::to_string(i) + " \"";
    for (int j = 0; j < 10; ++j) laughs += "&l" + std::to_string(i - 1) + ";";
    laughs += "\">";
  }
  laughs += "]><l>&l9;</l>";
  auto start = std::chrono::steady_clock::now();
  ExpectThrow<CXMLException>([&] { DumpTokens(*XMLReaderOn(laughs)); }, nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  // Predefined entities are not expansions to bound: a million of them read.
  std::string amps = "<a>";
  for (int i = 0; i < 1000000; ++i) amps += "&amp;";
  amps += "</a>";
  CRef<CXMLReader> reader = XMLReaderOn(amps);
  reader->ReadStartElement(W(u"a"));
  EXPECT_EQ(reader->ReadElementText().GetLength(), 1000000u);
}

TEST(XMLTextReaderTest, ElementReadsAndTheirMessages) {
  CRef<CXMLReader> reader = XMLReaderOn("<a><b>x</b><c/><p:d xmlns:p='urn:p'/></a>");
  ExpectThrow<CXMLException>([&] { reader->ReadStartElement(W(u"")); }, "Invalid local name.", kSource);
  ExpectThrow<CXMLException>([&] { reader->ReadStartElement(nullptr, W(u"urn:p")); }, "Invalid local name.");
  ExpectThrow<CXMLException>([&] { reader->ReadStartElement(W(u"b")); }, "Failed to read the specified start element.",
                             kSource);
  reader->ReadStartElement();  // b
  EXPECT_TRUE(reader->ReadElementTextIfAvailable());
  ExpectThrow<CXMLException>([&] { reader->ReadEndElement(W(u"x")); }, "Failed to read the end element.", kSource);
  reader->ReadStartElement(W(u"c"), W(u""));
  // No text: the end element stays for the next read.
  EXPECT_FALSE(reader->ReadElementTextIfAvailable());
  EXPECT_EQ(reader->GetCurrentTokenType(), XMLStartElement);
  EXPECT_TRUE(reader->ReadElementText() == "");
  reader->ReadEndElement(W(u"c"));
  ExpectThrow<CXMLException>([&] { reader->ReadStartElement(W(u"p:d"), W(u"urn:p")); },
                             "Failed to read the specified start element.");
  reader->ReadEndElement(W(u"d"), W(u"urn:p"));
  reader->ReadEndElement();
  ExpectThrow<CXMLException>([&] { reader->ReadEndElement(); }, "End of stream reached.", kSource);
  EXPECT_FALSE(reader->ReadToken());
  EXPECT_EQ(reader->GetCurrentTokenType(), 0);
  reader->Close();
  reader->Close();
  // Closed is a stream state, not an XML error.
  ExpectThrow<CIOException>([&] { reader->ReadToken(); }, "Reader closed.");
  ExpectThrow<CIOException>([&] { reader->ReadStartElement(W(u"a")); }, "Reader closed.", kSource);
}

// A stream that fails after handing out its first bytes.
class CFailingStream : public CTestInputStream {
 public:
  CFailingStream() : CTestInputStream("<a><b>") {}
  int Read(char* buffer, unsigned int offset, unsigned int length) override {
    if (position == data.size()) throw CIOException("test", 1, "device gone");
    return CTestInputStream::Read(buffer, offset, length);
  }
};

TEST(XMLTextReaderTest, StreamsAndFiles) {
  CFailingStream failing;
  try {
    CXMLTextReader reader(&failing);
    while (reader.ReadToken()) {
    }
    ADD_FAILURE();
  } catch (const CXMLException&) {
    ADD_FAILURE() << "a stream failure is not an XML error";
  } catch (const CIOException& e) {
    EXPECT_STREQ(e.GetMessage(), "device gone");
  }
  std::string path = ::testing::TempDir() + "vesk_reader.xml";
  std::ofstream(path) << "<?xml version='1.0'?><r><v>42</v></r>";
  {
    CXMLTextReader reader{IO::Location(path.c_str())};
    reader.ReadStartElement(W(u"r"));
    EXPECT_EQ(reader.ReadElementLong(W(u"v")), 42);
  }
  std::remove(path.c_str());
  ExpectThrow<CIOException>([&] { CXMLTextReader reader{IO::Location(path.c_str())}; },
                            "An error occured while trying to open file.", kSource);
}

TEST(XMLTextReaderTest, TokensKeptByTheClientNeverChange) {
  // The reader makes its tokens again in place once nobody else holds them;
  // a token the client keeps must stay as it was read. Eleven attributes go
  // beyond the ones whose names are kept by position.
  std::string attributes;
  for (int i = 0; i < 10; ++i) attributes += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
  CRef<CXMLReader> reader =
      XMLReaderOn("<r><x" + attributes + " k='1'>one</x><y k='2' j='z'>two</y><x k='3'>three &amp; four</x></r>");
  reader->ReadStartElement(W(u"r"));
  reader->ReadStartElement(W(u"x"));
  CRef<IXMLToken> start = reader->GetCurrentToken();
  CUnicodeString value = reader->ReadAttribute(W(u"k"));
  ASSERT_TRUE(reader->ReadToken());
  CRef<IXMLToken> text = reader->GetCurrentToken();
  while (reader->ReadToken()) {
  }
  const IXMLStartElementToken& kept = dynamic_cast<const IXMLStartElementToken&>(*start);
  EXPECT_TRUE(kept.GetQualifiedName() == "x");
  ASSERT_EQ(kept.GetAttributes().GetCount(), 11u);
  EXPECT_TRUE(kept.GetAttributes().Get(W(u"a9")) == "9");
  EXPECT_TRUE(kept.GetAttributes().Get(W(u"k")) == "1");
  EXPECT_TRUE(value == "1");
  EXPECT_TRUE(text->GetValue() == "one");
  // Below the depths whose names are kept, each element still ends with its
  // own name.
  std::string deep, tokens;
  for (int i = 0; i < 70; ++i) deep += "<e" + std::to_string(i) + ">";
  for (int i = 69; i >= 0; --i) deep += "</e" + std::to_string(i) + ">";
  for (int i = 0; i < 70; ++i) tokens += "<e" + std::to_string(i) + "> ";
  for (int i = 69; i >= 0; --i) tokens += "</e" + std::to_string(i) + (i ? "> " : ">");
  EXPECT_EQ(Dump(deep), tokens);
}

TEST(XMLTextReaderTest, LargeTokensAndDeepNesting) {
  // An attribute of 10 MB and a name of 1 MB.
  std::string value(10 << 20, 'v');
  std::string name(1 << 20, 'n');
  CRef<CXMLReader> reader = XMLReaderOn("<a k='" + value + "'><" + name + "/></a>");
  reader->ReadStartElement(W(u"a"));
  EXPECT_EQ(reader->ReadAttribute(W(u"k")).GetLength(), value.size());
  reader->ReadStartElement();
  EXPECT_EQ(reader->GetCurrentToken()->GetType(), XMLStartElement);
  // 4096 levels read; 100 000 are refused (quickly) at level 4097.
  for (unsigned int depth : {4096u, 100000u}) {
    std::string deep;
    for (unsigned int i = 0; i < depth; ++i) deep += "<e>";
    for (unsigned int i = 0; i < depth; ++i) deep += "</e>";
    reader = XMLReaderOn(deep);
    unsigned int tokens = 0;
    try {
      while (reader->ReadToken()) ++tokens;
      EXPECT_EQ(tokens, 2 * depth);
    } catch (const CXMLException& e) {
      EXPECT_EQ(tokens, 4096u);
      EXPECT_EQ(std::string(e.GetMessage()), "elements nested deeper than 4096 levels (line 1, column 12292)");
    }
  }
}

TEST(XMLTextReaderTest, RepeatedNamesTakeTheirOwnNamespaces) {
  // One element name at one depth bound to two namespaces in turn, then
  // unbound; attribute lists shrinking from one start tag to the next.
  EXPECT_EQ(Dump("<r><p:x xmlns:p='u1' a='1' p:c='3'/><p:x xmlns:p='u2' p:c='4'>t</p:x><x a='5'/><x/></r>"),
            "<r> <p:x{u1}x xmlns:p{http://www.w3.org/2000/xmlns/}p=u1 a=1 p:c{u1}c=3> </p:x{u1}x> "
            "<p:x{u2}x xmlns:p{http://www.w3.org/2000/xmlns/}p=u2 p:c{u2}c=4> 't' </p:x{u2}x> <x a=5> </x> "
            "<x> </x> </r>");
  // A list grown beyond the slots a start token keeps, then a short one.
  std::string doc = "<r><x", tokens = "<r> <x";
  for (int i = 0; i < 70; ++i) {
    doc += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
    tokens += " a" + std::to_string(i) + "=" + std::to_string(i);
  }
  EXPECT_EQ(Dump(doc + "/><y b='1'/></r>"), tokens + "> </x> <y b=1> </y> </r>");
}

}  // namespace
