#include "zntopo/platform/tvxpl/TvXplXml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "zntopo/platform/tvxpl/TvXplStr.h"

using testing::ElementsAre;
using testing::HasSubstr;
using TvXplStr::narrowed;

namespace {

using TvXplXml::SAX::Attributes_i;

/// Notes what it is told.
class Listener : public TvXplXml::SAX::DefaultHandler_t {
 public:
  void SetDocumentLocator(const TvXplXml::SAX::Locator_i* locator) override { place_ = locator; }
  void StartDocument() override { heard.push_back("start"); }
  void EndDocument() override { heard.push_back("end"); }
  void StartPrefixMapping(const char16_t* prefix, const char16_t* uri) override {
    heard.push_back("prefix " + narrowed(prefix) + "=" + narrowed(uri));
  }
  void EndPrefixMapping(const char16_t* prefix) override {
    heard.push_back("no prefix " + narrowed(prefix));
  }
  void StartElement(const char16_t* uri, const char16_t* localName, const char16_t* qName,
                    const Attributes_i& attributes) override {
    heard.push_back("<" + narrowed(uri) + "|" + narrowed(localName) + "|" + narrowed(qName) + " " +
                    std::to_string(attributes.GetLength()) + " at " +
                    std::to_string(place_->GetLineNumber()) + ":" +
                    std::to_string(place_->GetColumnNumber()));
    if (look) look(attributes);
  }
  void EndElement(const char16_t* uri, const char16_t* localName, const char16_t* qName) override {
    heard.push_back(">" + narrowed(uri) + "|" + narrowed(localName) + "|" + narrowed(qName));
  }
  void Characters(const char16_t* chars, int start, int length) override {
    EXPECT_EQ(start, 0);
    EXPECT_EQ(std::u16string_view(chars).size(), static_cast<std::size_t>(length));
    text += narrowed(chars);
    ++pieces;
  }
  void ProcessingInstruction(const char16_t* target, const char16_t* data) override {
    heard.push_back("?" + narrowed(target) + " " + narrowed(data));
  }

  std::vector<std::string> heard;
  std::string text;
  int pieces = 0;
  void (*look)(const Attributes_i&) = nullptr;

 private:
  const TvXplXml::SAX::Locator_i* place_ = nullptr;
};

void read(const std::string& document, TvXplXml::SAX::ContentHandler_i* handler) {
  TvXplXml::SAXParser_t parser;
  parser.SetContentHandler(handler);
  TvXplIo::CharArrayInputStream_t stream(document.data(), document.size());
  parser.Parse(TvXplXml::SAX::InputSource_t(stream));
}

/// What the reader says of a document that it refuses; empty if it reads it.
std::string complaintAbout(const std::string& document) {
  try {
    Listener listener;
    read(document, &listener);
  } catch (const TvXplMsg::Exception_t& exception) {
    return exception.GetMessages().Format(TvXplMsg::fNone_k);
  }
  return {};
}

}  // namespace

TEST(TvXplXmlTest, TheHandlerHearsOfTheDocumentInItsOrder) {
  Listener listener;
  read("<a:b xmlns:a='urn:a' x='1'>\n <c/><?do it?></a:b>", &listener);
  EXPECT_THAT(listener.heard,
              ElementsAre("start", "prefix a=urn:a", "<urn:a|b|a:b 1 at 1:28", "<|c|c 0 at 2:6",
                          ">|c|c", "?do it", ">urn:a|b|a:b", "no prefix a", "end"));
  EXPECT_EQ(listener.text, "\n ");
}

TEST(TvXplXmlTest, TextIsWholeInUtf16WithANulBehindIt) {
  Listener listener;
  const std::string large(200'000, 'x');
  read("<a>\xC3\xA4&lt;&#x1F600;<![CDATA[<&>]]>" + large + "</a>", &listener);
  EXPECT_EQ(listener.text, "\xC3\xA4<\xF0\x9F\x98\x80<&>" + large);
}

TEST(TvXplXmlTest, ACharacterOfTwoUnitsStaysWholeWhereTheReaderCutsTheText) {
  const std::string pair = "\xF0\x9F\x98\x80";
  // The reader hands a text on in pieces of about 2 to the power of 20 units.
  for (const std::size_t front : {(1U << 20) - 2, (1U << 20) - 1, 1U << 20}) {
    std::string text(front, 'x');
    for (int i = 0; i < 100; ++i) text += pair;
    Listener listener;
    read("<a>" + text + "</a>", &listener);
    EXPECT_TRUE(listener.text == text) << front;
    EXPECT_GT(listener.pieces, 1) << "the text was not cut";
  }
}

TEST(TvXplXmlTest, AttributesAreFoundByIndexAndByEitherName) {
  Listener listener;
  listener.look = [](const Attributes_i& attributes) {
    ASSERT_EQ(attributes.GetLength(), 2);
    EXPECT_EQ(narrowed(attributes.GetQName(1)), "p:two");
    EXPECT_EQ(narrowed(attributes.GetLocalName(1)), "two");
    EXPECT_EQ(narrowed(attributes.GetURI(1)), "urn:p");
    EXPECT_EQ(narrowed(attributes.GetType(1)), "CDATA");
    EXPECT_EQ(narrowed(attributes.GetType(u"one")), "CDATA");
    EXPECT_EQ(narrowed(attributes.GetValue(0)), "1");
    EXPECT_EQ(narrowed(attributes.GetValue(u"p:two")), "2");
    EXPECT_EQ(narrowed(attributes.GetValue(u"urn:p", u"two")), "2");
    EXPECT_EQ(attributes.GetIndex(u"p:two"), 1);
    for (const int beyond : {-1, 2}) {
      EXPECT_EQ(attributes.GetQName(beyond), nullptr);
      EXPECT_EQ(attributes.GetValue(beyond), nullptr);
      EXPECT_EQ(attributes.GetType(beyond), nullptr);
      EXPECT_EQ(attributes.GetURI(beyond), nullptr);
      EXPECT_EQ(attributes.GetLocalName(beyond), nullptr);
    }
    EXPECT_EQ(attributes.GetValue(u"three"), nullptr);
    EXPECT_EQ(attributes.GetValue(u"urn:p", u"three"), nullptr);
    EXPECT_EQ(attributes.GetType(u"three"), nullptr);
    EXPECT_EQ(attributes.GetIndex(u"three"), -1);
  };
  read("<a xmlns:p='urn:p' one='1' p:two='2'/>", &listener);
}

TEST(TvXplXmlTest, WhatIsNotWellFormedIsThrownWithItsPlace) {
  EXPECT_EQ(complaintAbout("<a>\n<b></a>"), "line 2, char 6: expected end of tag 'b'\n");
  EXPECT_THAT(complaintAbout(""), HasSubstr("line 1, char 1: "));
  EXPECT_THAT(complaintAbout("<a></a><b/>"), HasSubstr("line 1, char "));
  EXPECT_THAT(complaintAbout("<a b='&none;'/>"), HasSubstr("none"));
}

TEST(TvXplXmlTest, ADocumentTypeIsRefused) {
  for (const char* document :
       {"<!DOCTYPE a SYSTEM 'file:///etc/hosts'><a/>", "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>",
        "<!DOCTYPE a [<!ENTITY % e SYSTEM 'file:///etc/hosts'>%e;]><a/>"}) {
    EXPECT_THAT(complaintAbout(document), HasSubstr("document type declaration, which is refused"));
  }
}

TEST(TvXplXmlTest, WhatAHandlerThrowsPasses) {
  class Thrower : public TvXplXml::SAX::DefaultHandler_t {
    void EndDocument() override { throw 42; }
  } thrower;
  EXPECT_THROW(read("<a/>", &thrower), int);
}

TEST(TvXplXmlTest, WithoutAHandlerADocumentIsReadAllTheSame) {
  EXPECT_NO_THROW(read("<a b='c'>text<?pi?></a>", nullptr));
  EXPECT_THROW(read("<a>", nullptr), TvXplMsg::Exception_t);
}

TEST(TvXplXmlTest, AReaderReadsOneDocumentAfterTheOther) {
  TvXplXml::SAXParser_t parser;
  Listener listener;
  parser.SetContentHandler(&listener);
  for (const std::string document : {"<a/>", "<b", "<c/>"}) {
    TvXplIo::CharArrayInputStream_t stream(document.data(), document.size());
    try {
      parser.Parse(TvXplXml::SAX::InputSource_t(stream));
    } catch (const TvXplMsg::Exception_t&) {
      listener.heard.push_back("broken");
    }
  }
  EXPECT_THAT(listener.heard, ElementsAre("start", "<|a|a 0 at 1:5", ">|a|a", "end", "start",
                                          "broken", "start", "<|c|c 0 at 1:5", ">|c|c", "end"));
}

TEST(TvXplXmlTest, ReadersOfSeveralThreadsStartAndStopTheLibrary) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int round = 0; round < 200; ++round) {
        Listener listener;
        read("<a>text</a>", &listener);
        EXPECT_EQ(listener.text, "text");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(TvXplIoTest, AnArrayIsReadInPiecesToItsEnd) {
  TvXplIo::CharArrayInputStream_t stream("abcde", 5);
  char piece[3];
  EXPECT_EQ(stream.Read(piece, 3), 3U);
  EXPECT_EQ(std::string(piece, 3), "abc");
  EXPECT_EQ(stream.Read(piece, 3), 2U);
  EXPECT_EQ(std::string(piece, 2), "de");
  EXPECT_EQ(stream.Read(piece, 3), 0U);
}
