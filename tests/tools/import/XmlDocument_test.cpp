#include "tools/import/XmlDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/Scratch.h"

namespace zntopo::tools {
namespace {

using test::TempFile;
using testing::HasSubstr;
using testing::StartsWith;

/// Writes down what it hears.
class Recorder : public XmlHandler {
 public:
  std::string heard;

  void startElement(const XmlElement& element) override {
    heard += "<" + named(element.name);
    for (const XmlAttribute& one : element.attributes) {
      heard += " " + named(one.name) + "=" + one.value;
    }
    heard += ">";
  }
  void endElement() override { heard += "</>"; }
  void text(std::string_view text) override { heard += text; }

 private:
  static std::string named(const XmlName& name) {
    return (name.space.empty() ? "" : "{" + name.space + "}") + name.local;
  }
};

std::string heard(const std::string& content) {
  Recorder recorder;
  readXml({"f.xml", "f", content}, recorder);
  return recorder.heard;
}

std::string complaint(const std::string& content, const XmlLimits& limits = {}) {
  Recorder recorder;
  try {
    readXml({"f.xml", "f", content}, recorder, limits);
    return "";
  } catch (const ImportError& error) {
    return error.what();
  }
}

/// A text of ASCII in an encoding of two bytes, the lower one first.
std::string utf16(const std::string& text) {
  std::string result = "\xff\xfe";
  for (const char c : text) result += {c, '\0'};
  return result;
}

std::string times(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

TEST(XmlDocumentTest, ElementsAttributesAndTextsAreHeard) {
  EXPECT_EQ(heard("<a x='1'>b<c/>d&lt;&#65;<![CDATA[<e>]]></a>"), "<a x=1>b<c></>d<A<e></>");
  EXPECT_EQ(heard("<a xmlns='urn:a' xmlns:b='urn:b'><b:c b:d='1' e='2'/></a>"),
            "<{urn:a}a><{urn:b}c {urn:b}d=1 e=2></></>");
  EXPECT_EQ(heard("<!-- c --><?p i?><a/>"), "<a></>");
}

TEST(XmlDocumentTest, EncodingsBecomeUtf8) {
  EXPECT_EQ(heard("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xe9</a>"), "<a>\xc3\xa9</>");
  EXPECT_EQ(heard(utf16("<a>b</a>")), "<a>b</>");
  EXPECT_EQ(heard("\xef\xbb\xbf<a>\xf0\x9f\x90\x99</a>"), "<a>\xf0\x9f\x90\x99</>");
  // Across the blocks in which texts are turned.
  EXPECT_EQ(heard("<a>" + times(5000, "x\xf0\x9f\x90\x99") + "</a>"),
            "<a>" + times(5000, "x\xf0\x9f\x90\x99") + "</>");
}

TEST(XmlDocumentTest, ErrorsSayLineAndColumn) {
  EXPECT_EQ(complaint("<a>\n  <b>\n</a>"), "f.xml:3:3: expected end of tag 'b'");
  EXPECT_THAT(complaint("<a>\n&nbsp;</a>"), StartsWith("f.xml:2:"));
  EXPECT_THAT(complaint("<a/>x"), StartsWith("f.xml:1:"));
}

TEST(XmlDocumentTest, WhatIsNotWellFormedIsRefused) {
  for (const std::string content :
       {"", " ", "<", "<a", "<a>", "<a/><b/>", "</a>", "<a b='1' b='2'/>", "<a b=1/>", "<x:a/>",
        "<a>\x01</a>", "<a>&#0;</a>", "<a>&#x1b;</a>", "<a>&#xd800;</a>", "{}", "a"}) {
    EXPECT_THAT(complaint(content), StartsWith("f.xml:")) << content;
  }
}

TEST(XmlDocumentTest, BadEncodingsAreRefused) {
  EXPECT_THAT(complaint("<a>\xff\xfe</a>"), HasSubstr("invalid byte"));
  EXPECT_THAT(complaint("<a>\xc0\xaf</a>"), StartsWith("f.xml:1:"));
  EXPECT_THAT(complaint("<a>\xed\xa0\x80</a>"), StartsWith("f.xml:1:"));
  EXPECT_THAT(complaint("<a>\xc3"), StartsWith("f.xml:"));
  EXPECT_THAT(complaint("<?xml version='1.0' encoding='klingon'?><a/>"), HasSubstr("KLINGON"));
  // Half of a pair.
  EXPECT_NE(complaint(utf16("<a>") + std::string("\0\xd8x\0", 4) + utf16("</a>").substr(2)), "");
}

TEST(XmlDocumentTest, ADocumentTypeIsRefusedBeforeAnythingOfItIsRead) {
  const TempFile secret("secret");
  const std::string wanted = "has a document type declaration";
  for (const std::string& type :
       {"<!DOCTYPE a SYSTEM 'file://" + secret.path() + "'>",
        std::string("<!DOCTYPE a SYSTEM 'http://127.0.0.1:9/x.dtd'>"),
        "<!DOCTYPE a [<!ENTITY b SYSTEM 'file://" + secret.path() + "'>]>",
        std::string("<!DOCTYPE a [<!ENTITY % p SYSTEM 'http://127.0.0.1:9/x'> %p;]>"),
        std::string("<!DOCTYPE a [<!ENTITY b 'bb'><!ENTITY c '&b;&b;'><!ENTITY d '&c;&c;'>]>")}) {
    const std::string text = complaint("<?xml version='1.0'?>\n" + type + "<a>&b;&d;</a>");
    EXPECT_THAT(text, HasSubstr(wanted)) << type;
    EXPECT_THAT(text, StartsWith("f.xml:2:")) << type;
  }
}

TEST(XmlDocumentTest, ADocumentTypeThatDeclaresNothingIsHarmless) {
  EXPECT_EQ(heard("<!DOCTYPE a><a/>"), "<a></>");
  EXPECT_THAT(complaint("<!DOCTYPE a><a>&b;</a>"), HasSubstr("entity 'b' not found"));
}

TEST(XmlDocumentTest, SchemasThatADocumentNamesAreNotRead) {
  EXPECT_THAT(heard("<a xmlns='urn:a' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                    "i:schemaLocation='urn:a http://127.0.0.1:9/a.xsd'><b/></a>"),
              HasSubstr("<{urn:a}b></></>"));
}

TEST(XmlDocumentTest, DepthIsLimited) {
  EXPECT_EQ(complaint(times(100, "<a>") + times(100, "</a>")), "");
  EXPECT_EQ(complaint(times(101, "<a>") + times(101, "</a>")),
            "f.xml:1:304: is nested deeper than 100 levels");
  EXPECT_THAT(complaint(times(1'000'000, "<a>")), HasSubstr("deeper than 100 levels"));
  EXPECT_THAT(complaint("<a><b/></a>", {1}), HasSubstr("deeper than 1 levels"));
}

TEST(XmlDocumentTest, ManyAttributesAreReadInReasonableTime) {
  std::string content = "<a";
  for (int i = 0; i < 50'000; ++i) content += " a" + std::to_string(i) + "=''";
  EXPECT_EQ(complaint(content + "/>"), "");
}

TEST(XmlDocumentTest, AComplaintQuotesLittle) {
  const std::string text = complaint("<a><" + std::string(10'000, 'b') + "></a>");
  EXPECT_THAT(text, StartsWith("f.xml:1:"));
  EXPECT_LT(text.size(), 300u);
}

TEST(XmlDocumentTest, TheLibraryWritesNothing) {
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  for (const char* content : {"", "<a", "<a>\xff</a>", "<!DOCTYPE a SYSTEM 'x'><a/>", "<a/>"}) {
    complaint(content);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(XmlDocumentTest, ProgressIsHeardToTheEnd) {
  double last = 0;
  int count = 0;
  Recorder recorder;
  readXml({"f.xml", "f", "<a>" + times(200'000, "<b/>") + "</a>"}, recorder, {}, [&](double part) {
    EXPECT_GT(part, last);
    last = part;
    ++count;
  });
  EXPECT_EQ(last, 1);
  EXPECT_GT(count, 5);
}

TEST(XmlDocumentTest, WhatAHandlerThrowsComesOut) {
  class Thrower : public Recorder {
    void endElement() override { throw ImportError("here", "enough"); }
  } thrower;
  EXPECT_THROW(readXml({"f.xml", "f", "<a><b/></a>"}, thrower), ImportError);
}

}  // namespace
}  // namespace zntopo::tools
