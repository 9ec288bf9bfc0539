#include "zntopo/platform/tvxpl/TvXplXml.h"

#include <string>
#include <utility>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include "zntopo/platform/tvxpl/TvXplStr.h"
#include "zntopo/platform/tvxpl/XmlLibrary.h"

namespace TvXplXml {

namespace {

namespace xml = xercesc;
using SAX::ContentHandler_i;

[[noreturn]] void fail(const std::string& text) {
  TvXplMsg::MessageList_t messages;
  messages.Add(TvXplMsg::CreateError_t(text));
  throw TvXplMsg::Exception_t(messages);
}

class Stream : public xml::BinInputStream {
 public:
  explicit Stream(TvXplIo::InputStream_t& stream) : stream_(stream) {}

  XMLFilePos curPos() const override { return position_; }
  XMLSize_t readBytes(XMLByte* const target, const XMLSize_t most) override {
    const std::size_t count = stream_.Read(reinterpret_cast<char*>(target), most);
    position_ += count;
    return count;
  }
  const XMLCh* getContentType() const override { return nullptr; }

 private:
  TvXplIo::InputStream_t& stream_;
  XMLFilePos position_ = 0;
};

class Source : public xml::InputSource {
 public:
  explicit Source(TvXplIo::InputStream_t& stream) : stream_(stream) {}
  /// The library deletes what it gets.
  xml::BinInputStream* makeStream() const override { return new Stream(stream_); }

 private:
  TvXplIo::InputStream_t& stream_;
};

class AttributesView final : public SAX::Attributes_i {
 public:
  explicit AttributesView(const xml::Attributes& attributes) : attributes_(attributes) {}

  int GetLength() const override { return static_cast<int>(attributes_.getLength()); }
  const char16_t* GetURI(int index) const override { return attributes_.getURI(at(index)); }
  const char16_t* GetLocalName(int index) const override {
    return attributes_.getLocalName(at(index));
  }
  const char16_t* GetQName(int index) const override { return attributes_.getQName(at(index)); }
  const char16_t* GetType(int index) const override { return attributes_.getType(at(index)); }
  const char16_t* GetType(const char16_t* qName) const override {
    return attributes_.getType(qName);
  }
  const char16_t* GetValue(int index) const override { return attributes_.getValue(at(index)); }
  const char16_t* GetValue(const char16_t* qName) const override {
    return attributes_.getValue(qName);
  }
  const char16_t* GetValue(const char16_t* uri, const char16_t* localName) const override {
    return attributes_.getValue(uri, localName);
  }
  int GetIndex(const char16_t* qName) const override {
    XMLSize_t index = 0;
    return attributes_.getIndex(qName, index) ? static_cast<int>(index) : -1;
  }

 private:
  // A negative index becomes one that is beyond all.
  static XMLSize_t at(int index) { return static_cast<XMLSize_t>(index); }

  const xml::Attributes& attributes_;
};

class LocatorView final : public SAX::Locator_i {
 public:
  void set(const xml::Locator* locator) { locator_ = locator; }
  long GetLineNumber() const override {
    return locator_ ? static_cast<long>(locator_->getLineNumber()) : 1;
  }
  long GetColumnNumber() const override {
    return locator_ ? static_cast<long>(locator_->getColumnNumber()) : 1;
  }

 private:
  const xml::Locator* locator_ = nullptr;
};

/// Hands on to the platform's handler what the library tells.
class Relay : public xml::DefaultHandler {
 public:
  explicit Relay(ContentHandler_i* handler) : handler_(handler ? *handler : nobody_) {}

  void setDocumentLocator(const xml::Locator* const locator) override {
    place_.set(locator);
    handler_.SetDocumentLocator(&place_);
  }
  void startDocument() override { handler_.StartDocument(); }
  void endDocument() override { handler_.EndDocument(); }
  void startPrefixMapping(const XMLCh* const prefix, const XMLCh* const uri) override {
    handler_.StartPrefixMapping(prefix, uri);
  }
  void endPrefixMapping(const XMLCh* const prefix) override { handler_.EndPrefixMapping(prefix); }
  void startElement(const XMLCh* const uri, const XMLCh* const localName, const XMLCh* const qName,
                    const xml::Attributes& attributes) override {
    handler_.StartElement(uri, localName, qName, AttributesView(attributes));
  }
  void endElement(const XMLCh* const uri, const XMLCh* const localName,
                  const XMLCh* const qName) override {
    handler_.EndElement(uri, localName, qName);
  }
  /// The library cuts a long text anywhere: what it cuts off a pair of surrogates waits for the
  /// rest. A document in which the rest does not follow is not well-formed.
  void characters(const XMLCh* const chars, const XMLSize_t length) override {
    text_ = std::exchange(half_, {});
    text_.append(chars, length);
    if (!text_.empty() && isHighSurrogate(text_.back())) {
      half_ = text_.back();
      text_.pop_back();
    }
    handler_.Characters(text_.c_str(), 0, static_cast<int>(text_.size()));
  }
  void ignorableWhitespace(const XMLCh* const chars, const XMLSize_t length) override {
    handler_.IgnorableWhitespace(terminated(chars, length), 0, static_cast<int>(length));
  }
  void processingInstruction(const XMLCh* const target, const XMLCh* const data) override {
    handler_.ProcessingInstruction(target, data);
  }
  void skippedEntity(const XMLCh* const name) override { handler_.SkippedEntity(name); }

  /// Comes before anything of a declaration is read, so that nothing of it ever is.
  void startDTD(const XMLCh* const, const XMLCh* const, const XMLCh* const) override {
    fail(at(place_.GetLineNumber(), place_.GetColumnNumber()) +
         "has a document type declaration, which is refused");
  }
  xml::InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override {
    fail("names another file, which is not read");
  }

  void fatalError(const xml::SAXParseException& error) override {
    fail(at(static_cast<long>(error.getLineNumber()), static_cast<long>(error.getColumnNumber())) +
         TvXplStr::narrow(error.getMessage()));
  }
  void error(const xml::SAXParseException&) override {}
  void warning(const xml::SAXParseException&) override {}

 private:
  static std::string at(long line, long column) {
    return "line " + std::to_string(line) + ", char " + std::to_string(column) + ": ";
  }
  static bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
  const char16_t* terminated(const XMLCh* chars, XMLSize_t length) {
    text_.assign(chars, length);
    return text_.c_str();
  }

  SAX::DefaultHandler_t nobody_;
  ContentHandler_i& handler_;
  LocatorView place_;
  std::u16string text_;
  std::u16string half_;
};

}  // namespace

SAXParser_t::SAXParser_t() { startXmlLibrary(); }

SAXParser_t::~SAXParser_t() { stopXmlLibrary(); }

void SAXParser_t::Parse(const SAX::InputSource_t& source) {
  Relay relay(handler_);
  try {
    const auto reader = makeXmlReader(relay);
    reader->parse(Source(source.GetStream()));
  } catch (const xml::SAXException& error) {
    fail(TvXplStr::narrow(error.getMessage()));
  } catch (const xml::XMLException& error) {
    fail(TvXplStr::narrow(error.getMessage()));
  } catch (const xml::OutOfMemoryException&) {
    fail("there is not enough memory");
  }
}

}  // namespace TvXplXml
