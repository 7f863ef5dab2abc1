#include <gtest/gtest.h>

#include "TestStreams.h"
#include "TestSupport.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/Ref.h"
#include "vesk/io/XMLAttributeList.h"
#include "vesk/io/XMLCDATAToken.h"
#include "vesk/io/XMLCommentToken.h"
#include "vesk/io/XMLEndElementToken.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLPIToken.h"
#include "vesk/io/XMLStartElementToken.h"
#include "vesk/io/XMLTextToken.h"

using namespace vesk::io;
using namespace vesk::base;
using vesk::testing::W;
using vesk_test::ExpectThrow;

namespace {

const char kListSource[] = "vesk/io/XMLAttributeList";

TEST(XMLTokenTest, KindsAndTextsReachThroughTheInterfaces) {
  CRef<IXMLToken> tokens[] = {new CXMLCommentToken(W(u"c")),
                              new CXMLPIToken(W(u"t"), W(u"d")),
                              new CXMLTextToken(W(u"x\U0001F600")),
                              new CXMLCDATAToken(W(u"<&")),
                              new CXMLStartElementToken(W(u"a"), CXMLAttributeList()),
                              new CXMLEndElementToken(W(u"p:a"), W(u"a"), W(u"urn:n"))};
  const char* values[] = {"c", "", nullptr, "<&", "", ""};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(tokens[i]->GetType(), static_cast<XMLTokenType>(i + 1));
    if (values[i]) EXPECT_TRUE(tokens[i]->GetValue() == values[i]) << i;
  }
  EXPECT_TRUE(tokens[2]->GetValue() == W(u"x\U0001F600"));
  // One IXMLToken sub-object: the checked conversions find each interface.
  CRef<IXMLPIToken> pi = tokens[1];
  EXPECT_TRUE(pi->GetTarget() == "t" && pi->GetData() == "d");
  CRef<IXMLElementToken> end = tokens[5];
  EXPECT_TRUE(end->HasNamespace());
  EXPECT_TRUE(end->GetQualifiedName() == "p:a" && end->GetLocalName() == "a");
  CRef<IXMLStartElementToken> start = tokens[4];
  EXPECT_FALSE(start->HasNamespace());
  // Built from the raw name: not split.
  EXPECT_TRUE(start->GetQualifiedName() == "a" && start->GetLocalName().IsEmpty());
  EXPECT_EQ(static_cast<IXMLToken*>(start.Get()), tokens[4].Get());
  EXPECT_THROW(CRef<IXMLTextToken> wrong = tokens[0], CClassCastException);
}

TEST(XMLAttributeListTest, LookupsAnswerTheFirstMatchInDocumentOrder) {
  CXMLAttributeList list;
  list.Add(W(u"p:a"), W(u"a"), W(u"urn:1"), W(u"first"));
  list.Add(nullptr, W(u"z"), W(u"urn:1"), W(u"dropped"));
  list.Add(W(u""), W(u"z"), W(u"urn:1"), W(u"dropped"));
  list.Add(W(u"q:a"), W(u"a"), W(u"urn:2"), nullptr);
  list.Add(W(u"p:a"), W(u"a"), W(u"urn:1"), W(u"second"));
  list.Add(W(u"plain"), W(u"plain"), nullptr, W(u"v"));
  ASSERT_EQ(list.GetCount(), 4u);
  EXPECT_TRUE(list.Get(W(u"p:a")) == "first");
  EXPECT_TRUE(list.Get(W(u"urn:2"), W(u"a")).IsEmpty());  // a null value reads back as ""
  EXPECT_TRUE(list.Get(W(u"urn:1"), W(u"a")) == "first");
  EXPECT_TRUE(list.Contains(W(u"plain")));
  EXPECT_FALSE(list.Contains(W(u"urn:3"), W(u"a")));
  EXPECT_FALSE(list.Contains(W(u"P:a")));  // exact, case-sensitive
  const CXMLAttribute& q = list.GetAt(1);
  EXPECT_TRUE(q.GetQualifiedName() == "q:a" && q.GetLocalName() == "a" &&
              q.GetNamespaceURI() == "urn:2");
  ExpectThrow<CArrayIndexOutOfBoundsException>([&] { list.GetAt(4); }, nullptr, "vesk/util/Vector");
  // An unprefixed attribute cannot be found by URI: the empty URI is refused.
  vesk_test::ExpectEachThrows<CXMLException>(
      {[&] { list.Contains(W(u""), W(u"plain")); }, [&] { list.Get(nullptr, nullptr); }},
      "Invalid namespace URI.", kListSource);
  ExpectThrow<CXMLException>([&] { list.Get(W(u"urn:1"), W(u"")); }, "Invalid local name.",
                             kListSource);
  vesk_test::ExpectEachThrows<CXMLException>(
      {[&] { list.Contains(nullptr); }, [&] { list.Get(W(u"")); }}, "Invalid qualified name.",
      kListSource);

  // The string overload shares what it is given; it too drops an empty name.
  CUnicodeString name(W(u"s")), value(W(u"shared"));
  list.Add(name, name, CUnicodeString(), value);
  list.Add(CUnicodeString(), name, CUnicodeString(), value);
  ASSERT_EQ(list.GetCount(), 5u);
  EXPECT_EQ(static_cast<const unsigned short*>(list.Get(W(u"s"))),
            static_cast<const unsigned short*>(value));
  EXPECT_TRUE(list.GetAt(4).GetNamespaceURI().IsEmpty());

  CXMLAttributeList empty;
  EXPECT_EQ(empty.GetCount(), 0u);
  EXPECT_FALSE(empty.Contains(W(u"a")));
  vesk_test::ExpectEachThrows<CXMLException>(
      {[&] { list.Get(W(u"b")); }, [&] { list.Get(W(u"urn:1"), W(u"b")); },
       [&] { empty.Get(W(u"a")); }},
      "No such attribute.", kListSource);
}

TEST(XMLAttributeListTest, CopiesAndGrowthSurviveAllocationFailures) {
  CXMLAttributeList list;
  for (int i = 0; i < 25; ++i) {
    unsigned short name[] = {static_cast<unsigned short>('a' + i), 0};
    list.Add(name, name, nullptr, name);
  }
  CXMLAttributeList copy(list);
  CXMLAttributeList assigned;
  assigned = copy;
  assigned = assigned;
  ASSERT_EQ(assigned.GetCount(), 25u);
  EXPECT_TRUE(assigned.Get(W(u"y")) == "y");
  vesk::testing::FailEachAllocationInTurn([&] {
    CXMLAttributeList grown(list);
    for (int i = 0; i < 6; ++i)
      grown.Add(W(u"long-name-that-needs-a-block"), nullptr, nullptr, W(u"v"));
    grown.Add(CUnicodeString(W(u"n")), CUnicodeString(), CUnicodeString(), CUnicodeString());
    EXPECT_EQ(grown.GetCount(), 32u);
  });
}

}  // namespace
